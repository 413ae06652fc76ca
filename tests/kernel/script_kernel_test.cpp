#include "kernel/script_kernel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <utility>

#include "kernel/cutting.h"
#include "platform/errors.h"
#include "platform/files.h"
#include "platform/picture.h"
#include "tests/support/error_of.h"
#include "tests/support/pictures.h"
#include "tests/support/temp_folder.h"

namespace {

using namespace platform;
using files::read;

/// A folder with pictures, a kernel, and what it reported.
class ScriptRuns : public testing::Test {
  protected:
    bool run(const std::string& script) { return kernel_->run(script, parameters_); }
    /// The script that cuts out regions, as it is shipped.
    bool extract(const std::string& source, std::int32_t x, std::int32_t y, std::int32_t dX, std::int32_t dY,
                 const std::string& target) {
        parameters_.set("Parameter0", "0", "Rfile://" + source);
        parameters_.set("Parameter1", "0", std::to_string(x));
        parameters_.set("Parameter1", "1", std::to_string(y));
        parameters_.set("Parameter1", "4", std::to_string(dX));
        parameters_.set("Parameter1", "5", std::to_string(dY));
        parameters_.set("Parameter2", "0", "Wfile://" + target);
        return run(shipped);
    }
    /// What was reported since the last question.
    std::vector<std::string> reported() { return std::exchange(lines_, {}); }
    /// The one error that was reported since, without what every error begins with.
    std::string error(const std::string& script) {
        const auto lines = reported();
        const std::string begin = "Fehler in " + script + ": ";
        if (lines.empty() || !lines.back().starts_with(begin)) return "(no error)";
        return lines.back().substr(begin.size());
    }

    const std::string shipped = files::fullPath(STICH_SOURCE_DIR "/res/Scripts/Extract.kvr");
    support::TempFolder folder_;
    kernel::Parameters parameters_;
    std::vector<std::string> lines_;
    std::unique_ptr<kernel::ScriptKernel> kernel_ =
        kernel::builtInKernel([this](const std::string& line) { lines_.push_back(line); });
};

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
        {{-3, -2, 5, 4}, {0, 0, 2, 2}},
        {{9, 5, 5, 5}, {9, 5, 11, 7}},
        {{-1, -1, most, most}, {0, 0, 11, 7}},
        {{11, 0, 1, 1}, {}},
        {{0, 7, 1, 1}, {}},
        {{2, 2, 0, 1}, {}},
        {{2, 2, 1, -1}, {}},
        {{most, most, most, most}, {}},
        {{least, least, most, most}, {}},
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
    const std::string target = folder_.file("b.bmp");
    const std::string file = written(0x112233);
    for (const std::string& name : {file, folder_.file("A.BMP"), file})
        ASSERT_TRUE(extract(name, 0, 0, 1, 1, target));
    const auto lines = reported();
    EXPECT_EQ(
        std::count_if(lines.begin(), lines.end(), [](const auto& l) { return l.starts_with("Gelesen: "); }),
        1);
    ASSERT_TRUE(extract(written(0x445566), 0, 0, 1, 1, target));
    EXPECT_EQ(read(target).substr(54, 3), "\x66\x55\x44");
    files::remove(folder_.file("a.bmp"));
    EXPECT_FALSE(extract(folder_.file("a.bmp"), 0, 0, 1, 1, target)) << "what is gone is not cut from memory";
}

TEST_F(ScriptRuns, TellWhichPictureCannotBeReadOrWritten) {
    const std::string bitmap = support::trueColourBitmap(size, support::distinctColour);
    for (const std::string& content : {std::string(), bitmap.substr(0, bitmap.size() - 1)}) {
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

TEST_F(ScriptRuns, SayWhatIsWrongWithAScriptAndWhere) {
    const std::string picture =
        folder_.write("a.bmp", support::trueColourBitmap({8, 6}, support::distinctColour));
    const std::string lies = "Lies Bild von \"Rfile://" + picture + "\"\n";
    parameters_.set("P", "leer", "");
    parameters_.set("P", "Wort", "acht");
    parameters_.set("P", "riesig", "2147483648");
    const std::pair<std::string, std::string> cases[] = {
        {"", "Das Skript enthält keinen Befehl."},
        {std::string("Lies\0", 5), "Der Inhalt ist kein Text."},
        {std::string(2 << 20, '\n'), "Das Skript ist zu lang."},
        {"\n\n  Male Bild", "Zeile 3: Den Befehl \"Male\" gibt es nicht."},
        {"Lies Bild", "Zeile 1: Erwartet wird: Lies <Ziel> von <Datei>"},
        {"Lies Bild von \"x", "Zeile 1: Das Anführungszeichen wird nicht geschlossen."},
        {"Lies \"Bild\" von \"x\"", "Zeile 1: \"\"Bild\"\" ist kein Name für ein Bild."},
        {"Lies B von Pfad",
         "Zeile 1: \"Pfad\" ist kein Wert: weder eine ganze Zahl noch ein Text in "
         "Anführungszeichen noch ein Parameter wie Parameter0[0]."},
        {"Schreibe Bild nach \"x\"", "Zeile 1: Ein Bild \"Bild\" gibt es hier noch nicht."},
        {"Lies B von P[leer]", "Zeile 1: P[leer] ist nicht gesetzt."},
        {"Lies B von \"Rfile://a.bmp\"", "Zeile 1: \"Rfile://a.bmp\" ist kein voller Pfad: Rfile://a.bmp"},
        {lies + "Schneide B aus Bild bei P[Wort] 0 mit 1 1",
         "Zeile 2: P[Wort]: \"acht\" ist keine ganze Zahl."},
        {lies + "Schneide B aus Bild bei 0 0 mit P[riesig] 1",
         "Zeile 2: P[riesig]: \"2147483648\" ist als Zahl zu groß oder zu klein."},
        {lies + "Schreibe Bild nach \"Wfile://" + folder_.file("x\\..\\A.BMP") + "\"",
         "Zeile 2: Ein Bild, das gelesen wurde, wird nicht überschrieben: " + folder_.file("x\\..\\A.BMP")},
    };
    for (const auto& [content, expected] : cases) {
        EXPECT_FALSE(run(folder_.write("s.kvr", content))) << content.substr(0, 80);
        EXPECT_EQ(error("s.kvr"), expected) << content.substr(0, 80);
    }
    EXPECT_FALSE(run(folder_.file("fehlt.kvr")));
    EXPECT_NE(error("fehlt.kvr").find("wurde nicht gefunden"), std::string::npos);
    EXPECT_FALSE(run(folder_.write("s.kvr", "Lies B von " + std::string(5000, 'x') + "\n")));
    EXPECT_LT(error("s.kvr").size(), 1100u);
}

TEST_F(ScriptRuns, MayBeWrittenInManyWays) {
    const auto colour = [](int x, int y) { return support::distinctColour(x + 3, y + 2); };
    parameters_.set("QUELLE", "Größe", "2");
    const std::string body =
        "lies b von \"rfile://" +
        folder_.write("a.bmp", support::trueColourBitmap({8, 6}, support::distinctColour)) +
        "\";ein Bild\r\n"
        "\tSCHNEIDE B AUS b bei +1 1 mit 99 99 \n\n"  // takes the place of its source
        "Schneide Ölfleck aus B bei Quelle[größe] 1 mit 2 2;\n"
        "Schreibe ölfleck nach \"Wfile://" +
        folder_.file("b.bmp") + "\"";
    std::string ansi = body;
    for (const auto& [utf8, byte] : {std::pair{"ö", "\xF6"}, {"Ö", "\xD6"}, {"ß", "\xDF"}})
        for (std::size_t at; (at = ansi.find(utf8)) != std::string::npos;) ansi.replace(at, 2, byte);
    for (const std::string& content : {body, "\xEF\xBB\xBF" + body, ansi}) {
        files::remove(folder_.file("b.bmp"));
        ASSERT_TRUE(run(folder_.write("s.kvr", content))) << error("s.kvr");
        EXPECT_EQ(read(folder_.file("b.bmp")), support::trueColourBitmap({2, 2}, colour));
    }
}

}  // namespace
