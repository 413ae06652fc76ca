#include <gtest/gtest.h>

#include "platform/background_task.h"
#include "platform/errors.h"
#include "platform/files.h"
#include "platform/picture.h"
#include "platform/win32/handle.h"
#include "tests/support/error_of.h"
#include "tests/support/pictures.h"
#include "tests/support/temp_folder.h"

namespace {

using namespace platform;

constexpr int side = 16;  // of the pictures, each of one colour

Colour firstPixel(const std::string& file) {
    Surface surface({side, side});
    EXPECT_EQ(decodePicture(file, surface, {0, 0, side, side}), (Size{side, side}));
    return surface.row(0)[0];
}

TEST(Decoder, ReadsTheKindsOfPicturesThatAreAround) {
    const support::TempFolder folder;
    const std::pair<const char*, Colour> cases[] = {
        {"orange.jpg", 0xDC7814}, {"grey.jpg", 0x636363}, {"dark.png", 0x030201}, {"packed.bmp", 0xAABBCC}};
    for (const auto& [name, colour] : cases) {
        // Whatever it is called; some decoders go by the name.
        const std::string file = folder.write("bild.jpg", files::read(support::golden(name)));
        const Colour found = firstPixel(file);
        for (const int shift : {0, 8, 16, 24}) {
            const auto part = [shift](Colour c) { return static_cast<int>(c >> shift & 0xFF); };
            EXPECT_NEAR(part(found), part(colour), 4) << name << std::hex << ": " << found;
        }
    }
}

TEST(Decoder, FindsFilesOfAnyName) {
    const support::TempFolder folder;
    const std::string bitmap =
        support::trueColourBitmap({side, side}, [](int, int) { return Colour{0x102030}; });
    const std::string longFolder = std::string(120, 'x') + "\\" + std::string(120, 'y');
    for (const std::string& name : {std::string("Größe 日本 😀.bmp"), longFolder + "\\bild.bmp"})
        EXPECT_EQ(firstPixel(folder.write(name, bitmap)), 0x102030u) << name;
}

TEST(Decoder, WorksOnOtherThreads) {
    const int handles = win32::liveHandles();
    Colour wic = 0, ole = 0;
    {
        BackgroundTask task([&](auto&) {
            wic = firstPixel(support::golden("dark.png"));
            ole = firstPixel(support::golden("packed.bmp"));
        });
        ASSERT_TRUE(task.wait(60'000));
    }
    EXPECT_EQ(wic & 0xFFFFFF, 0x030201u);
    EXPECT_EQ(ole & 0xFFFFFF, 0xAABBCCu);
    for (int patience = 500; patience > 0 && win32::liveHandles() != handles; --patience) ::Sleep(10);
    EXPECT_EQ(win32::liveHandles(), handles) << "the thread's decoder is gone with it";
}

TEST(Decoder, SaysWhyItRefuses) {
    const support::TempFolder folder;
    const std::string jpeg = support::smallJpeg();
    const std::string bitmap = support::trueColourBitmap({16, 16}, support::distinctColour);
    const std::pair<const char*, std::string> cases[] = {{"unbekanntes Bildformat", "kein Bild"},
                                                         {"beschädigt", jpeg.substr(0, jpeg.size() / 2)},
                                                         {"", bitmap.substr(0, bitmap.size() - 100)}};
    for (const auto& [reason, content] : cases) {
        const std::string file = folder.write("Ölfilm.jpg", content);
        Surface surface({8, 8});
        const auto error = support::errorOf([&] { decodePicture(file, surface, {0, 0, 8, 8}); });
        EXPECT_EQ(error.number(), error::badPicture) << reason;
        EXPECT_NE(error.description().find(reason), std::string::npos) << error.description();
    }
}

}  // namespace
