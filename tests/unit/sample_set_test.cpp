#include "model/kvTamSampleSet.h"

#include <gmock/gmock.h>

#include "platform/errors.h"
#include "platform/files.h"
#include "platform/path.h"
#include "tests/unit/temporary_directory.h"

namespace {

using namespace model;
using platform::RuntimeError;
namespace files = platform::files;
using std::string;
using testing::ElementsAre;

kvTamSampleSet threeSamples(const string& appPath) {
    kvTamSampleSet set;
    set.AppPath(appPath);
    set.StdClass(2);
    set.DoubleSelection(true);
    for (const char* name : {"gut", "Riß", "Größe=5; [sic]"})
        set.kvtamClasses().Add(name).Description = name + string(" \"!\"");
    for (int i = 0; i < 2; ++i) {
        kvTamROI& roi = set.kvtamROIs().Add();
        roi.Name = " Bereich \"" + std::to_string(i) + "\" ";
        if (i > 0) roi.X = -5, roi.Y = 6, roi.dX = 2147483647, roi.dY = 0, roi.Z = 9;
    }
    const string names[] = {platform::path::join(appPath, R"(Picture\Störung.bmp)"),
                            R"(\\server\share\b.jpg)", R"(D:\' c '.bmp)"};
    std::int32_t number = 0;
    for (const string& name : names) {
        set.kvtamSamples().Add(name, " " + name).ItemClasses = {1 + number % 3, 1 + (number + 1) % 3};
        ++number;
    }
    return set;
}

void expectEqual(const kvTamSampleSet& a, const kvTamSampleSet& b) {
    EXPECT_EQ(a.StdClass(), b.StdClass());
    EXPECT_EQ(a.DoubleSelection(), b.DoubleSelection());
    ASSERT_EQ(a.kvtamClasses().Count(), b.kvtamClasses().Count());
    for (std::int32_t i = 1; i <= a.kvtamClasses().Count(); ++i) {
        const kvTamClass &x = a.kvtamClasses().Item(i), &y = b.kvtamClasses().Item(i);
        EXPECT_EQ(std::tie(x.Name, x.Description, x.Number), std::tie(y.Name, y.Description, y.Number));
    }
    ASSERT_EQ(a.kvtamROIs().Count(), b.kvtamROIs().Count());
    for (std::int32_t i = 1; i <= a.kvtamROIs().Count(); ++i) {
        const kvTamROI &x = a.kvtamROIs().Item(i), &y = b.kvtamROIs().Item(i);
        EXPECT_EQ(std::tie(x.Name, x.Description, x.X, x.Y, x.dX, x.dY, x.Z),
                  std::tie(y.Name, y.Description, y.X, y.Y, y.dX, y.dY, y.Z));
    }
    ASSERT_EQ(a.kvtamSamples().Count(), b.kvtamSamples().Count());
    for (std::int32_t i = 1; i <= a.kvtamSamples().Count(); ++i) {
        const kvTamSample &x = a.kvtamSamples().Item(i), &y = b.kvtamSamples().Item(i);
        EXPECT_EQ(std::tie(x.FileName(), x.ItemDescr, x.ItemClasses),
                  std::tie(y.FileName(), y.ItemDescr, y.ItemClasses));
    }
}

std::vector<string> sectionsOf(const string& fileName) {
    const auto document = platform::ProfileDocument::load(fileName);
    std::vector<string> names;
    for (std::size_t i = 0; i < document.sectionCount(); ++i) names.push_back(document.section(i).name());
    return names;
}

TEST(SampleSet, SavingAndLoadingGivesTheSame) {
    const TemporaryDirectory directory;
    kvTamSampleSet saved = threeSamples(directory.path());
    const string name = directory / R"(TestSets\Größe.kvs)";  // the directory is made
    ASSERT_TRUE(saved.Save(name));
    EXPECT_EQ(saved.FileName(), name);
    kvTamSampleSet loaded;
    loaded.AppPath(saved.AppPath());
    ASSERT_TRUE(loaded.Load(name));
    EXPECT_EQ(loaded.FileName(), name);
    expectEqual(saved, loaded);
    EXPECT_EQ(files::list(directory / "TestSets").size(), 1U);

    const auto document = platform::ProfileDocument::load(name);
    EXPECT_EQ(document.findSection("Items")->find(1), R"(Picture\Störung.bmp)");
    EXPECT_EQ(document.findSection("Items")->find(2), R"(\\server\share\b.jpg)");

    saved.kvtamClasses().Item(1).Name = "Ωmega";  // now the file is UTF-16
    ASSERT_TRUE(saved.Save());
    ASSERT_TRUE(loaded.Load(name));
    expectEqual(saved, loaded);
}

TEST(SampleSet, NamesDecideWhatHappens) {
    const TemporaryDirectory directory;
    kvTamSampleSet set = threeSamples(directory.path());
    EXPECT_FALSE(set.Save());
    EXPECT_FALSE(set.Load(""));
    EXPECT_FALSE(set.Load(directory / "none.kvs"));
    EXPECT_FALSE(set.Load(directory.path()));
    EXPECT_EQ(set.kvtamSamples().Count(), 3);
    EXPECT_EQ(set.FileName(), "");
    set.FileName(directory / "a.kvs");
    EXPECT_TRUE(set.Save());
    EXPECT_TRUE(set.Save(directory / "b.kvs"));
    EXPECT_EQ(set.FileName(), directory / "b.kvs");
    EXPECT_EQ(files::read(directory / "a.kvs"), files::read(directory / "b.kvs"));
}

TEST(SampleSet, WithoutRegionsItIsTheWholePicture) {
    const TemporaryDirectory directory;
    kvTamSampleSet set;
    set.StdClass(3);
    set.kvtamSamples().Add("a.bmp", "");
    ASSERT_TRUE(set.Save(directory / "a.kvs"));
    EXPECT_EQ(set.kvtamROIs().Count(), 1);
    EXPECT_THAT(sectionsOf(set.FileName()), ElementsAre("Common", "ROI0", "Items", "ItemDescr"));
    const auto document = platform::ProfileDocument::load(set.FileName());
    const auto* region = document.findSection("ROI0");
    for (const char* key : {"Name", "Description"}) EXPECT_EQ(region->find(key), "(gesamtes Bild)");
    for (const char* key : {"X", "Y", "dX", "dY", "Z"}) EXPECT_EQ(region->find(key), "-1");
    EXPECT_EQ(region->find(1), "3");  // not assigned: the standard class
}

TEST(SampleSet, AFailedSaveKeepsTheOldFile) {
    const TemporaryDirectory directory;
    kvTamSampleSet set = threeSamples(directory.path());
    ASSERT_TRUE(set.Save(directory / "a.kvs"));
    const string before = files::read(set.FileName());
    set.kvtamSamples().Item(3).ItemDescr = "two\nlines";
    EXPECT_THROW(set.Save(), RuntimeError);
    EXPECT_EQ(files::read(set.FileName()), before);
    EXPECT_EQ(files::list(directory.path()).size(), 1U);
    set.kvtamSamples().Item(3).ItemDescr = "";
    for (int i = 0; i < 32767; ++i) set.kvtamClasses().Add("c");
    EXPECT_THROW(set.Save(), RuntimeError);  // nobody could read it
    EXPECT_EQ(files::read(set.FileName()), before);
}

TEST(SampleSet, CreatedFromADirectory) {
    const TemporaryDirectory directory;
    for (const char* name : {R"(Klasse 10\z.bmp)", R"(klasse 2\y10.txt)", R"(klasse 2\Y9.bmp)",
                             R"(Äpfel\x.bmp)", "ignored.bmp", R"(Klasse 10\deeper\ignored.bmp)"})
        directory.put(name);
    files::createDirectories(directory / "empty");
    kvTamSampleSet set = threeSamples("");
    set.CreateFromDirectory(directory.path());
    std::vector<string> classes;
    for (const kvTamClass& entry : set.kvtamClasses())
        classes.push_back(std::to_string(entry.Number) + entry.Name);
    EXPECT_THAT(classes, ElementsAre("1Äpfel", "2empty", "3klasse 2", "4Klasse 10"));
    std::vector<string> samples;
    for (const kvTamSample& sample : set.kvtamSamples()) {
        EXPECT_TRUE(sample.FileFound());
        EXPECT_EQ(sample.File(), sample.ItemDescr);
        ASSERT_EQ(sample.ItemClasses.size(), 1U);
        samples.push_back(sample.ItemDescr + std::to_string(sample.ItemClasses[0]));
    }
    EXPECT_THAT(samples, ElementsAre("x.bmp1", "Y9.bmp3", "y10.txt3", "z.bmp4"));
    ASSERT_EQ(set.kvtamROIs().Count(), 1);
    EXPECT_EQ(set.kvtamROIs().Item(1).Name, "(gesamtes Bild)");

    EXPECT_THROW(set.CreateFromDirectory(directory / "none"), RuntimeError);
    EXPECT_EQ(set.kvtamSamples().Count() + set.kvtamClasses().Count() + set.kvtamROIs().Count(), 0);
    set.CreateFromDirectory(directory / "empty");
    EXPECT_EQ(set.kvtamROIs().Count(), 1);
    EXPECT_EQ(set.kvtamClasses().Count(), 0);
}

}  // namespace
