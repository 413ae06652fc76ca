#include <limits>

#include "kernel/cutting.h"
#include "platform/errors.h"
#include "platform/picture.h"
#include "tests/kernel/script_runs.h"
#include "tests/support/error_of.h"
#include "tests/support/pictures.h"

namespace {

using namespace platform;
using files::read;

constexpr Size size{11, 7};  // rows that need filling up
constexpr std::int32_t least = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t most = std::numeric_limits<std::int32_t>::max();

std::vector<Colour> paletteOf(int colours) {
    std::vector<Colour> palette;
    for (int i = 0; i < colours; ++i) palette.push_back(support::distinctColour(i, 3));
    return palette;
}

std::string source(int bits, support::RowOrder order, const std::vector<Colour>& palette) {
    if (palette.empty()) return support::trueColourBitmap(size, support::distinctColour, bits, order);
    const auto index = [&](int x, int y) { return (x * 5 + y) % static_cast<int>(palette.size()); };
    return support::paletteBitmap(size, palette, index, bits, order);
}

TEST(Clipped, IsWhatLiesInThePicture) {
    const struct {
        kernel::Area area;
        Rect inside;
    } cases[] = {
        {{0, 0, 11, 7}, {0, 0, 11, 7}},
        {{10, 6, 1, 1}, {10, 6, 11, 7}},
        {{-3, -2, 5, 4}, {0, 0, 2, 2}},
        {{9, 5, 5, 5}, {9, 5, 11, 7}},
        {{-1, -1, most, most}, {0, 0, 11, 7}},
        {{10, 6, most, most}, {10, 6, 11, 7}},
        {{11, 0, 1, 1}, {}},
        {{0, 7, 1, 1}, {}},
        {{-4, 0, 4, 4}, {}},
        {{0, -4, 4, 4}, {}},
        {{2, 2, 0, 1}, {}},
        {{2, 2, 1, -1}, {}},
        {{most, most, most, most}, {}},
        {{least, least, most, most}, {}},
        {{least, least, least, least}, {}},
        {{0, 0, least, 1}, {}},
    };
    for (const auto& [area, inside] : cases) {
        Rect found{};
        const auto error = support::errorOf([&, a = area] { found = kernel::clipped(a, size); });
        EXPECT_EQ(found, inside) << area.X << ", " << area.Y << " " << area.dX << " x " << area.dY;
        EXPECT_EQ(error.number() != 0, inside.empty());
    }
}

/// The raster's pixels are those that are painted; a file that is not painted has no raster either.
void expectAsShown(const std::string& file) {
    Surface surface({64, 64});
    const auto shown = support::errorOf([&] { decodePicture(file, surface, {0, 0, 64, 64}); });
    Raster raster;
    const auto error = support::errorOf([&] { raster = readRaster(file); });
    ASSERT_EQ(error.number(), shown.number()) << file;
    ASSERT_EQ(raster.rows.size(), raster.bytesPerRow() * static_cast<std::size_t>(raster.size.height));
    const std::uint8_t* at = raster.rows.data();
    for (int y = 0; y < raster.size.height; ++y)
        for (int x = 0; x < raster.size.width; ++x, at += raster.bitsPerPixel / 8) {
            const Colour colour = raster.bitsPerPixel == 8
                                      ? raster.palette.at(*at)
                                      : static_cast<Colour>(at[0] | at[1] << 8 | at[2] << 16);
            EXPECT_EQ(colour, surface.row(y)[x] & 0xFFFFFF) << file << ": " << x << ", " << y;
        }
}

TEST(ReadRaster, HoldsThePixelsThatAreShown) {
    const support::TempFolder folder;
    for (const int bits : {1, 4, 8, 24, 32})
        for (const auto order : {support::RowOrder::bottomUp, support::RowOrder::topDown})
            expectAsShown(folder.write("bild", source(bits, order, paletteOf(bits <= 8 ? 1 << bits : 0))));
    for (const char* name : {"halves.jpg", "grey.jpg", "orange.jpg", "dark.png", "packed.bmp"})
        expectAsShown(support::golden(name));
}

TEST_F(ScriptRuns, CutOutsHoldTheirSourcesPixels) {
    const std::string target = folder_.file("Größe_Kopf.bmp");
    constexpr Size part{4, 3};
    const auto colour = [](int x, int y) { return support::distinctColour(x + 6, y + 2); };
    for (const auto order : {support::RowOrder::bottomUp, support::RowOrder::topDown})
        for (const int bits : {1, 4, 8, 24, 32}) {
            const auto palette = paletteOf(bits == 8 ? 200 : bits < 8 ? 1 << bits : 0);
            const auto index = [&](int x, int y) {
                return ((x + 6) * 5 + y + 2) % static_cast<int>(palette.size());
            };
            const auto shown = [&](int x, int y) { return palette[static_cast<std::size_t>(index(x, y))]; };
            const std::string expected = bits == 8  ? support::paletteBitmap(part, palette, index)
                                         : bits < 8 ? support::trueColourBitmap(part, shown)
                                                    : support::trueColourBitmap(part, colour);
            ASSERT_TRUE(
                extract(folder_.write("Größe.bmp", source(bits, order, palette)), 6, 2, 4, 3, target));
            EXPECT_EQ(read(target), expected) << bits;
        }
}

TEST_F(ScriptRuns, CutThePartThatLiesInThePicture) {
    const std::string picture =
        folder_.write("a.bmp", support::trueColourBitmap(size, support::distinctColour));
    const std::string target = folder_.file("b.bmp");
    ASSERT_TRUE(extract(picture, -9, 5, 10, most, target));
    EXPECT_EQ(read(target), support::trueColourBitmap(
                                {1, 2}, [](int x, int y) { return support::distinctColour(x, y + 5); }));
    const std::vector<std::string> lines{
        "Gelesen: " + picture + " (11 x 7, 24 Bit)",
        "Der Bereich ragt über das Bild hinaus; es bleiben 1 x 2 Pixel.",
        "Geschrieben: " + target + " (1 x 2)",
    };
    EXPECT_EQ(reported(), lines);
    EXPECT_FALSE(extract(picture, least, 5, most, 2, target));
    EXPECT_EQ(error("Extract.kvr"),
              "Zeile 15: Der Bereich -2147483648, 5 mit 2147483647 x 2 Pixeln liegt "
              "außerhalb des Bildes.");
    EXPECT_EQ(read(target).size(), 54u + 2 * 4) << "what was there stays";
}

TEST_F(ScriptRuns, DecodeAPictureOnceUntilItChanges) {
    const auto written = [&](Colour colour) {
        const std::string file = folder_.file("a.bmp");
        const auto before = files::version(file);
        do {  // clocks of file systems are coarse
            folder_.write("a.bmp", support::trueColourBitmap(size, [=](int, int) { return colour; }));
        } while (files::version(file) == before);
        return file;
    };
    const auto decoded = [&] {
        const auto lines = reported();
        return std::count_if(lines.begin(), lines.end(),
                             [](const std::string& line) { return line.starts_with("Gelesen: "); });
    };
    const std::string target = folder_.file("b.bmp");
    const std::string file = written(0x112233);
    for (const std::string& name : {file, folder_.file("A.BMP"), file})
        ASSERT_TRUE(extract(name, 0, 0, 1, 1, target));
    EXPECT_EQ(decoded(), 1);
    ASSERT_TRUE(extract(written(0x445566), 0, 0, 1, 1, target));
    EXPECT_EQ(decoded(), 1);
    EXPECT_EQ(read(target).substr(54, 3), "\x66\x55\x44");
    files::remove(folder_.file("a.bmp"));
    EXPECT_FALSE(extract(folder_.file("a.bmp"), 0, 0, 1, 1, target)) << "what is gone is not cut from memory";
}

TEST_F(ScriptRuns, TellWhichPictureCannotBeReadOrWritten) {
    const std::string bitmap = support::trueColourBitmap(size, support::distinctColour);
    std::string huge = bitmap, endless = bitmap;
    huge[19] = huge[23] = endless[21] = endless[25] = '\x7F';  // 32,000 and 2,000 million pixels a side
    for (const std::string& content : {std::string(), std::string("BM"), bitmap.substr(0, bitmap.size() - 1),
                                       huge, endless, support::jpegHeader({65535, 65535})}) {
        EXPECT_FALSE(extract(folder_.write("Öl.bmp", content), 0, 0, 1, 1, folder_.file("b.bmp")));
        EXPECT_NE(error("Extract.kvr").find(": Das Bild "), std::string::npos) << content.size();
    }
    const std::string picture = folder_.write("a.bmp", bitmap);
    files::createDirectories(folder_.file("ordner.bmp"));
    for (const char* target : {"ordner.bmp", "fehlt\\b.bmp"}) {
        EXPECT_FALSE(extract(picture, 0, 0, 1, 1, folder_.file(target)));
        const std::string reason = error("Extract.kvr");
        EXPECT_NE(reason.find("Die Datei \"" + folder_.file(target) + '"'), std::string::npos) << reason;
    }
    EXPECT_EQ(files::list(folder_.path()).size(), 3u) << "nothing is left beside the target";
    EXPECT_TRUE(extract(picture, 0, 0, 1, 1, folder_.file("b.bmp"))) << "the kernel works on";
}

}  // namespace
