#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <functional>
#include <thread>

#include "platform/errors.h"
#include "platform/files.h"
#include "platform/picture.h"
#include "platform/win32/failure.h"
#include "platform/win32/handle.h"
#include "tests/support/pictures.h"
#include "tests/support/temp_folder.h"

// After <windows.h>, which they need.
#include <shlwapi.h>
#include <wincodec.h>

namespace {

using namespace platform;
using win32::requireOk;
using win32::UniqueCom;

template <class Interface>
UniqueCom<Interface> made(const std::function<HRESULT(Interface**)>& call) {
    Interface* object = nullptr;
    requireOk(call(&object), "Testbild anlegen");
    return UniqueCom<Interface>(object);
}

constexpr int side = 16;  // whole blocks of a JPEG, so that plain pictures stay plain

/// A file with one colour (blue, green, red or just grey in each pixel), by the system's own encoder.
std::string encoded(const GUID& container, const GUID& wantedFormat, const std::vector<BYTE>& pixel) {
    const auto factory = made<IWICImagingFactory>([](auto out) {
        return CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                IID_IWICImagingFactory, reinterpret_cast<void**>(out));
    });
    const UniqueCom<IStream> stream(SHCreateMemStream(nullptr, 0));
    const auto encoder = made<IWICBitmapEncoder>(
        [&](auto out) { return factory.get()->CreateEncoder(container, nullptr, out); });
    requireOk(encoder.get()->Initialize(stream.get(), WICBitmapEncoderNoCache), "Testbild anlegen");
    const auto frame =
        made<IWICBitmapFrameEncode>([&](auto out) { return encoder.get()->CreateNewFrame(out, nullptr); });
    requireOk(frame.get()->Initialize(nullptr), "Testbild anlegen");
    requireOk(frame.get()->SetSize(side, side), "Testbild anlegen");
    WICPixelFormatGUID format = wantedFormat;
    requireOk(frame.get()->SetPixelFormat(&format), "Testbild anlegen");
    EXPECT_TRUE(format == wantedFormat) << "the encoder cannot write this";
    std::vector<BYTE> bytes;
    for (int i = 0; i < side * side; ++i) bytes.insert(bytes.end(), pixel.begin(), pixel.end());
    const auto stride = static_cast<UINT>(side * static_cast<int>(pixel.size()));
    requireOk(frame.get()->WritePixels(side, stride, static_cast<UINT>(bytes.size()), bytes.data()),
              "Testbild anlegen");
    requireOk(frame.get()->Commit(), "Testbild anlegen");
    requireOk(encoder.get()->Commit(), "Testbild anlegen");
    ULARGE_INTEGER length{};
    LARGE_INTEGER begin{};
    requireOk(stream.get()->Seek(begin, STREAM_SEEK_END, &length), "Testbild anlegen");
    requireOk(stream.get()->Seek(begin, STREAM_SEEK_SET, nullptr), "Testbild anlegen");
    std::string content(static_cast<std::size_t>(length.QuadPart), '\0');
    requireOk(stream.get()->Read(content.data(), static_cast<ULONG>(content.size()), nullptr),
              "Testbild anlegen");
    return content;
}

Colour firstPixel(const std::string& file) {
    Surface surface({side, side});
    EXPECT_EQ(decodePicture(file, surface, {0, 0, side, side}), (Size{side, side}));
    return surface.row(0)[0];
}

void expectNear(Colour found, Colour wanted, const char* what) {
    for (const int shift : {0, 8, 16, 24}) {
        const auto part = [shift](Colour c) { return static_cast<int>(c >> shift & 0xFF); };
        EXPECT_NEAR(part(found), part(wanted), 4) << what << std::hex << ": " << found;
    }
}

TEST(Decoder, ReadsTheKindsOfPicturesThatCamerasWrite) {
    const support::TempFolder folder;
    const struct {
        const char* what;
        std::string content;
        Colour colour;
    } cases[] = {
        {"colour JPEG", encoded(GUID_ContainerFormatJpeg, GUID_WICPixelFormat24bppBGR, {20, 120, 220}),
         0xDC7814},
        {"grey JPEG", encoded(GUID_ContainerFormatJpeg, GUID_WICPixelFormat8bppGray, {99}), 0x636363},
        {"PNG named otherwise", encoded(GUID_ContainerFormatPng, GUID_WICPixelFormat24bppBGR, {1, 2, 3}),
         0x030201},
    };
    for (const auto& test : cases)
        expectNear(firstPixel(folder.write("bild.jpg", test.content)), test.colour, test.what);
}

/// A bitmap of 8 bits, packed by runs: the smallest kind that imaging components like to refuse.
std::string packedBitmap(int width, int height) {
    std::string bitmap =
        support::paletteBitmap({width, height}, {0x112233, 0xAABBCC}, [](int, int) { return 0; });
    const std::size_t pixels = bitmap.size() - static_cast<std::size_t>(width * height);
    std::string packed;
    for (int y = 0; y < height; ++y)
        packed += std::string{static_cast<char>(width), '\1', '\0', '\0'};  // a run, end of line
    packed += std::string{'\0', '\1'};                                      // end of the bitmap
    bitmap.replace(pixels, std::string::npos, packed);
    bitmap[30] = 1;  // how it is packed
    bitmap[34] = static_cast<char>(packed.size());
    bitmap[35] = 0;
    return bitmap;
}

TEST(Decoder, ReadsBitmapsPackedByRuns) {
    const support::TempFolder folder;
    EXPECT_EQ(firstPixel(folder.write("bild.bmp", packedBitmap(side, side))), 0xAABBCCu);
}

TEST(Decoder, FindsFilesOfAnyName) {
    const support::TempFolder folder;
    const std::string bitmap =
        support::trueColourBitmap({side, side}, [](int, int) { return Colour{0x102030}; });
    const std::string longFolder = "\\" + std::string(120, 'x') + "\\" + std::string(120, 'y');
    files::createDirectories(folder.path() + longFolder);
    for (const std::string& name : {std::string("\\Größe 日本 😀.bmp"), longFolder + "\\bild.bmp"}) {
        const std::string path = folder.path() + name;
        files::replace(path, bitmap);
        EXPECT_EQ(firstPixel(path), 0x102030u) << path;
        files::remove(path);
    }
}

TEST(Decoder, WorksOnOtherThreads) {
    const support::TempFolder folder;
    const std::string jpeg = folder.write("bild.jpg", support::smallJpeg());
    const std::string packed = folder.write("bild.bmp", packedBitmap(side, side));
    const int handles = win32::liveHandles();
    Size size{};
    Colour colour = 0;
    std::thread([&] {
        Surface surface({30, 30});
        size = decodePicture(jpeg, surface, {0, 0, 30, 30});
        colour = firstPixel(packed);
    }).join();
    EXPECT_EQ(size, support::smallJpegSize);
    EXPECT_EQ(colour, 0xAABBCCu);
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
        try {
            Surface surface({8, 8});
            decodePicture(file, surface, {0, 0, 8, 8});
            ADD_FAILURE() << reason;
        } catch (const RuntimeError& error) {
            EXPECT_NE(error.description().find(reason), std::string::npos) << error.description();
        }
    }
}

}  // namespace
