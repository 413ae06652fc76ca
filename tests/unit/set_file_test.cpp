#include <gmock/gmock.h>

#include "editor/set_io.h"
#include "model/kvTamSampleSet.h"
#include "model/set_file_checks.h"
#include "model/set_file_findings.h"
#include "platform/errors.h"
#include "platform/files.h"
#include "tests/support/error_of.h"
#include "tests/support/pictures.h"
#include "tests/support/temp_folder.h"

namespace {

using namespace model;
using platform::ProfileDocument;
using platform::RuntimeError;
using std::string;
using support::errorOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* good =
    "[Common]\nClasses=2\nStdClass=1\nROIs=2\nItems=2\nDoubleSelection=0\n"
    "[Class1]\nName=a\n[Class2]\nName=b\n"
    "[ROI0]\n1=1\n2=2\n"
    "[ROI1]\nName=r\nX=1\nY=2\ndX=3\ndY=4\nZ=5\n1=2\n2=1\n"
    "[Items]\n1=a.bmp\n2=b.bmp\n[ItemDescr]\n1=\n2=x\n";

/// The good file with one place changed; a change to nothing drops it.
string with(const string& place, const string& change) {
    string bytes = good;
    const std::size_t at = bytes.find(place);
    EXPECT_NE(at, string::npos) << place;
    return at == string::npos ? bytes : bytes.replace(at, place.size(), change);
}

kvTamSampleSet readFrom(const string& bytes) {
    kvTamSampleSet set;
    set.Read(ProfileDocument::parse(bytes), "a.kvs");
    return set;
}

TEST(SetFile, TakesWhatOthersWrite) {
    EXPECT_EQ(readFrom(with("StdClass=1\n", "")).StdClass(), 1);
    EXPECT_EQ(readFrom(with("StdClass=1", "StdClass=77")).StdClass(), 77);
    for (const auto& [change, on] :
         {std::pair("", false), {"DoubleSelection=1", true}, {"DoubleSelection=-1", true}})
        EXPECT_EQ(readFrom(with("DoubleSelection=0", change)).DoubleSelection(), on) << change;
    EXPECT_EQ(readFrom(with("[Class2]\nName=b\n", "")).kvtamClasses().Item(2).Name, "Klasse2");
    EXPECT_EQ(readFrom(with("Name=r\n", "")).kvtamROIs().Item(2).Name, "Bereich1");
    EXPECT_EQ(readFrom(good).kvtamROIs().Item(1).Name, "Bereich0");
    EXPECT_EQ(readFrom(good).kvtamROIs().Item(1).dX, -1);
    EXPECT_EQ(readFrom(with("Z=5\n", "")).kvtamROIs().Item(2).Z, -1);
    EXPECT_EQ(readFrom(with("[ItemDescr]\n1=\n2=x\n", "")).kvtamSamples().Item(2).ItemDescr, "");
    EXPECT_THAT(readFrom(with("1=2\n2=1\n", "1=-7\n2=99\n")).kvtamSamples().Item(1).ItemClasses,
                ElementsAre(1, -7));
    EXPECT_EQ(readFrom(with("ROIs=2", "ROIs=0")).kvtamROIs().Item(1).Name, "(gesamtes Bild)");
    EXPECT_EQ(readFrom("[Common]\nClasses=0\nROIs=0\nItems=0").kvtamSamples().Count(), 0);
}

TEST(SetFile, RefusesWhatItCannotUnderstandAndSaysWhere) {
    struct {
        const char *place, *change, *section, *key;
    } const cases[] = {
        {"Items=2", "Items=", "Common", "Items"},
        {"Items=2", "Items=-1", "Common", "Items"},
        {"Items=2", "Items=2147483647", "Common", "Items"},
        {"Items=2", "Items=20", "Common", "Items"},  // with the regions more than there are lines
        {"Items=2", "Items=3", "ROI0", "3"},
        {"ROIs=2", "ROIs=30000", "Common", "ROIs"},
        {"Classes=2", "Classes=32768", "Common", "Classes"},
        {"[Common]", "[Comon]", "Common", "Classes"},
        {"StdClass=1", "StdClass=x", "Common", "StdClass"},
        {"1=1\n2=2\n", "1=1\n2=b\n", "ROI0", "2"},
        {"1=1\n2=2\n", "2=2\n", "ROI0", "1"},
        {"X=1", "", "ROI1", "X"},
        {"dX=3", "dX=2147483647", "ROI1", "dX"},  // its far edge is beyond all numbers
        {"Z=5", "Z=z", "ROI1", "Z"},
    };
    const support::TempFolder folder;
    for (const auto& c : cases) {
        kvTamSampleSet set = readFrom(good);
        set.StdClass(2);
        const string bytes = with(c.place, c.change);
        const RuntimeError problem = errorOf([&] { set.Read(ProfileDocument::parse(bytes), "Menge.kvs"); });
        EXPECT_EQ(problem.number(), platform::error::typeMismatch) << c.change;
        EXPECT_THAT(problem.description(), HasSubstr("\"Menge.kvs\"")) << c.change;
        EXPECT_THAT(problem.description(), HasSubstr(set_file::place(c.section, c.key))) << c.change;
        EXPECT_EQ(set.kvtamSamples().Count(), 2);  // as before
        EXPECT_EQ(set.StdClass(), 2);
        // The editor reads sets on a way of its own.
        const string file = folder.write("Menge.kvs", bytes);
        const RuntimeError byEditor = errorOf([&] { editor::readSet(file, folder.path()); });
        EXPECT_EQ(byEditor.number(), string(c.key) == "Z" ? 0 : platform::error::typeMismatch) << c.change;
        EXPECT_TRUE(byEditor.number() == 0 || byEditor.description().find("Abschnitt [") != string::npos);
    }
}

TEST(SetFile, FindingsNameEveryFault) {
    const support::TempFolder folder;
    folder.write("A.BMP");
    folder.write("b.bmp");
    const auto findings = [&](const string& bytes) {
        return set_file::findings(ProfileDocument::parse(bytes), folder.path());
    };
    EXPECT_THAT(findings(good), IsEmpty());
    struct {
        const char *place, *change, *finding;
    } const cases[] = {
        {"StdClass=1", "StdClass=3", "[Common], Eintrag \"StdClass\": Die Klasse 3 gibt es nicht."},
        {"StdClass=1", "StdKlass=1", "[Common], Eintrag \"StdKlass\": Der Eintrag ist überzählig."},
        {"Classes=2", "Classes=zwei", "[Common], Eintrag \"Classes\": \"zwei\" ist keine ganze Zahl."},
        {"Items=2", "Items=200", "[Common], Eintrag \"Items\": Die Anzahl 200 ist nicht möglich."},
        {"[Class2]\nName=b\n", "", "[Class2] fehlt."},
        {"2=2\n", "2=0\n", "[ROI0], Eintrag \"2\": Die Klasse 0 gibt es nicht."},
        {"2=2\n", "", "[ROI0], Eintrag \"2\": Der Eintrag fehlt."},
        {"2=2\n", "2=2\n3=1\n", "[ROI0], Eintrag \"3\": Der Eintrag ist überzählig."},
        {"X=1\n", "", "[ROI1], Eintrag \"X\": Die Zahl fehlt."},
        {"2=b.bmp", "2=c.bmp", "[Items], Eintrag \"2\": Das Bild"},
        {"2=b.bmp", "2=", "[Items], Eintrag \"2\": Der Dateiname fehlt."},
        {"[ItemDescr]\n1=\n2=x\n", "", "[ItemDescr] fehlt."},
        {"2=x\n", "2=x\n[Class3]\n", "[Class3] ist überzählig."},
    };
    for (const auto& c : cases)
        EXPECT_THAT(findings(with(c.place, c.change)),
                    ElementsAre(HasSubstr("Abschnitt " + string(c.finding))))
            << c.change;
    EXPECT_THAT(findings(with("Items=2", "Items=5")),
                testing::Contains(HasSubstr("Dieser und die folgenden Einträge bis \"5\" fehlen.")));
    EXPECT_THAT(findings("no set at all"), testing::SizeIs(4));
}

TEST(SetFile, GoldenFilesAreReadAndWrittenByteForByte) {
    struct {
        const char *file, *className, *roiName;
    } const cases[] = {{"windows1252.kvs", "gut", "Kopf"}, {"utf16.kvs", "καλό Ω", "Голова 🙂"}};
    for (const auto& c : cases) {
        kvTamSampleSet set;
        set.AppPath(R"(C:\Data)");
        ASSERT_TRUE(set.Load(support::golden(c.file)));
        EXPECT_EQ(set.StdClass(), 2);
        EXPECT_TRUE(set.DoubleSelection());
        EXPECT_EQ(set.kvtamClasses().Item(1).Name, c.className);
        EXPECT_EQ(set.kvtamClasses().Item(2).Description, " mit Blanks am Rand ");
        EXPECT_EQ(set.kvtamClasses().Item(3).Description, "\"in Anführung\"");
        EXPECT_EQ(set.kvtamROIs().Item(2).Name, c.roiName);
        const kvTamROI& roi = std::as_const(set).kvtamROIs().Item(2);
        EXPECT_EQ((std::vector{roi.X, roi.Y, roi.dX, roi.dY, roi.Z}), (std::vector{10, 20, 300, -40, 7}));
        EXPECT_EQ(set.kvtamSamples().Item(1).FileName(), R"(C:\Data\Picture\Störung\bild1.bmp)");
        EXPECT_EQ(set.kvtamSamples().Item(2).FileName(), R"(\\Server\Freigabe\bild2.jpg)");
        EXPECT_THAT(set.kvtamSamples().Item(2).ItemClasses, ElementsAre(3, 2));
        EXPECT_EQ(set.Write().bytes(), platform::files::read(support::golden(c.file)));
    }
}

}  // namespace
