#include "platform/picture.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/errors.h"
#include "tests/support/error_of.h"
#include "tests/support/pictures.h"
#include "tests/support/temp_folder.h"

namespace {

using namespace platform;
using support::RowOrder;

constexpr Colour ground = 0x123456;

struct Decoded {
    Surface surface;
    Size size;
    Colour at(int x, int y) const { return surface.row(y)[x] & 0xFFFFFF; }
};

Decoded decode(const std::string& bytes, Size target, Rect area) {
    const support::TempFolder folder;
    Decoded result{Surface(target), {}};
    result.surface.fill(ground);
    result.size = decodePicture(folder.write("bild.bmp", bytes), result.surface, area);
    return result;
}

TEST(DecodePicture, ReadsBitmapsOfEveryDepth) {
    const Size size{11, 4};  // rows that need filling up
    for (const int bits : {1, 4, 8, 24, 32})
        for (const RowOrder order : {RowOrder::bottomUp, RowOrder::topDown}) {
            std::vector<Colour> palette;
            for (int i = 0; bits <= 8 && i < 1 << bits; ++i) palette.push_back(support::distinctColour(i, 3));
            const auto index = [&](int x, int y) { return (x * 5 + y) % static_cast<int>(palette.size()); };
            const std::string bytes =
                palette.empty() ? support::trueColourBitmap(size, support::distinctColour, bits, order)
                                : support::paletteBitmap(size, palette, index, bits, order);
            const Decoded picture = decode(bytes, size, {0, 0, 11, 4});
            EXPECT_EQ(picture.size, size);
            for (int y = 0; y < 4; ++y)
                for (int x = 0; x < 11; ++x) {
                    const Colour expected = palette.empty() ? support::distinctColour(x, y)
                                                            : palette[static_cast<std::size_t>(index(x, y))];
                    EXPECT_EQ(picture.at(x, y), expected) << bits << ": " << x << ", " << y;
                }
        }
}

TEST(DecodePicture, PutsThePictureIntoItsAreaOnly) {
    const Size size{6, 5};
    const std::string bitmap = support::trueColourBitmap(size, support::distinctColour);
    const Rect areas[] = {
        {2, 3, 8, 8},    // as large as the picture
        {2, 3, 4, 6},    // the picture is cut off
        {0, 0, 12, 10},  // the picture does not fill it
        {9, 7, 15, 12},  // it reaches out of the surface
        {-2, -1, 4, 4},  // at the other side as well
        {3, 3, 3, 3},    // empty
    };
    for (const Rect& area : areas) {
        const Decoded picture = decode(bitmap, {12, 10}, area);
        EXPECT_EQ(picture.size, size) << "the picture's own size";
        for (int y = 0; y < 10; ++y)
            for (int x = 0; x < 12; ++x) {
                const Point p{x - area.left, y - area.top};
                const bool covered = area.contains({x, y}) && p.x < size.width && p.y < size.height;
                EXPECT_EQ(picture.at(x, y), covered ? support::distinctColour(p.x, p.y) : ground)
                    << "area at " << area.left << ", " << area.top << ": " << x << ", " << y;
            }
    }
}

TEST(DecodePicture, RefusesWhatIsNoPicture) {
    const support::TempFolder folder;
    const std::string bitmap = support::trueColourBitmap({8, 8}, support::distinctColour);
    const std::pair<const char*, std::string> cases[] = {
        {"empty", ""},
        {"text", "Das ist kein Bild."},
        {"only the name of a bitmap", "BM"},
        {"half a header", bitmap.substr(0, 30)},
        {"only the start of a JPEG", "\xFF\xD8"},
        {"cut off JPEG header", support::jpegHeader({10, 10}).substr(0, 24)},
    };
    Surface surface({8, 8});
    for (const auto& [what, bytes] : cases) {
        const std::string file = folder.write("bild.bmp", bytes);
        const auto error = support::errorOf([&] { decodePicture(file, surface, {0, 0, 8, 8}); });
        EXPECT_EQ(error.number(), error::badPicture) << what;
        EXPECT_FALSE(error.description().empty()) << what;
    }
    const auto missing = [&] { decodePicture(folder.file("fehlt.bmp"), surface, {0, 0, 8, 8}); };
    EXPECT_EQ(support::errorOf(missing).number(), error::badPicture);
}

}  // namespace
