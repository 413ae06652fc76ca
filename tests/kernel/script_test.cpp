#include "kernel/script.h"

#include "tests/kernel/script_runs.h"
#include "tests/support/pictures.h"

namespace {

using platform::files::read;

TEST_F(ScriptRuns, SayWhatIsWrongWithAScriptAndWhere) {
    const std::string picture =
        folder_.write("a.bmp", support::trueColourBitmap({8, 6}, support::distinctColour));
    const std::string lies = "Lies Bild von \"Rfile://" + picture + "\"\n";
    parameters_.set("P", "leer", "");
    parameters_.set("P", "Wort", "acht");
    parameters_.set("P", "riesig", "2147483648");
    const std::pair<std::string, std::string> cases[] = {
        {"", "Das Skript enthält keinen Befehl."},
        {"; nur ein Kommentar\r\n\r\n \t\r\n", "Das Skript enthält keinen Befehl."},
        {std::string("Lies\0", 5), "Der Inhalt ist kein Text."},
        {"\xEF\xBB\xBF\xFF", "Der Text ist kein gültiges UTF-8."},
        {std::string(2 << 20, '\n'), "Das Skript ist zu lang."},
        {"\n\n  Male Bild", "Zeile 3: Den Befehl \"Male\" gibt es nicht."},
        {"Lies Bild", "Zeile 1: Erwartet wird: Lies <Ziel> von <Datei>"},
        {"Lies Bild aus \"x\"", "Zeile 1: Erwartet wird: Lies <Ziel> von <Datei>"},
        {"Lies Bild von \"x\" \"y\"", "Zeile 1: Erwartet wird: Lies <Ziel> von <Datei>"},
        {"Lies Bild von \"x", "Zeile 1: Das Anführungszeichen wird nicht geschlossen."},
        {"Lies \"Bild\" von \"x\"", "Zeile 1: \"\"Bild\"\" ist kein Name für ein Bild."},
        {"Lies B von Pfad",
         "Zeile 1: \"Pfad\" ist kein Wert: weder eine ganze Zahl noch ein Text in "
         "Anführungszeichen noch ein Parameter wie Parameter0[0]."},
        {"Schreibe Bild nach \"x\"", "Zeile 1: Ein Bild \"Bild\" gibt es hier noch nicht."},
        {"Lies B von P[leer]", "Zeile 1: P[leer] ist nicht gesetzt."},
        {"Lies B von P[fehlt]", "Zeile 1: P[fehlt] ist nicht gesetzt."},
        {"Lies B von 7", "Zeile 1: \"7\" beginnt nicht mit Rfile://: 7"},
        {"Lies B von \"Rfile://a.bmp\"", "Zeile 1: \"Rfile://a.bmp\" ist kein voller Pfad: Rfile://a.bmp"},
        {lies + "Schneide B aus Bild bei P[Wort] 0 mit 1 1",
         "Zeile 2: P[Wort]: \"acht\" ist keine ganze Zahl."},
        {lies + "Schneide B aus Bild bei 0 0 mit P[riesig] 1",
         "Zeile 2: P[riesig]: \"2147483648\" ist als Zahl zu groß oder zu klein."},
        {lies + "Schneide B aus Bild bei 8 0 mit 1 1",
         "Zeile 2: Der Bereich 8, 0 mit 1 x 1 Pixeln liegt außerhalb des Bildes."},
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
        platform::files::remove(folder_.file("b.bmp"));
        ASSERT_TRUE(run(folder_.write("s.kvr", content))) << error("s.kvr");
        EXPECT_EQ(read(folder_.file("b.bmp")), support::trueColourBitmap({2, 2}, colour));
    }
}

TEST(Parameters, CompareNamesWithoutCaseAndKeepTheirOrder) {
    kernel::Parameters parameters;
    parameters.set("Maß", "0", "eins");
    parameters.set("B", "x", "zwei");
    parameters.set("MAß", "0", "drei");
    EXPECT_EQ(parameters.get("mAß", "0"), "drei");
    EXPECT_EQ(parameters.get("b", "X"), "zwei");
    EXPECT_EQ(parameters.get("B", "0"), "");
    ASSERT_EQ(parameters.entries().size(), 2u);
    EXPECT_EQ(parameters.entries()[0].name, "Maß");
}

}  // namespace
