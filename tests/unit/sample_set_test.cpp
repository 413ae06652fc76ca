#include "model/kvTamSampleSet.h"

#include <gtest/gtest.h>

#include "platform/errors.h"
#include "platform/files.h"
#include "tests/support/error_of.h"
#include "tests/support/pictures.h"
#include "tests/support/temp_folder.h"

namespace {

using namespace model;
using platform::RuntimeError;
namespace files = platform::files;
using std::string;
using support::errorOf;

/// A set with everything that a set can have.
kvTamSampleSet fullSet() {
    kvTamSampleSet set;
    set.AppPath(R"(C:\Data)");
    EXPECT_TRUE(set.Load(support::golden("windows1252.kvs")));
    set.FileName("");
    return set;
}

TEST(SampleSet, NamesDecideWhatHappens) {
    const support::TempFolder folder;
    kvTamSampleSet set = fullSet();
    EXPECT_FALSE(set.Save());
    for (const string& noFile : {string(), folder.file("none.kvs"), folder.path()})
        EXPECT_FALSE(set.Load(noFile)) << noFile;
    EXPECT_EQ(set.kvtamSamples().Count(), 3);
    EXPECT_EQ(set.FileName(), "");
    set.FileName(folder.file("a.kvs"));
    EXPECT_TRUE(set.Save());
    EXPECT_TRUE(set.Save(folder.file("b.kvs")));
    EXPECT_EQ(set.FileName(), folder.file("b.kvs"));
    EXPECT_EQ(files::read(folder.file("a.kvs")), files::read(folder.file("b.kvs")));
    EXPECT_TRUE(set.Save(folder.file(R"(TestSets\Größe.kvs)"))) << "the directory is made";
    EXPECT_TRUE(files::fileExists(set.FileName()));
}

TEST(SampleSet, WithoutRegionsItIsTheWholePicture) {
    const support::TempFolder folder;
    kvTamSampleSet set;
    set.StdClass(3);
    set.kvtamSamples().Add("a.bmp", "");
    ASSERT_TRUE(set.Save(folder.file("a.kvs")));
    EXPECT_EQ(set.kvtamROIs().Count(), 1);
    EXPECT_EQ(files::read(set.FileName()),
              "[Common]\r\nClasses=0\r\nStdClass=3\r\nROIs=1\r\nItems=1\r\nDoubleSelection=0\r\n"
              "[ROI0]\r\nName=(gesamtes Bild)\r\nDescription=(gesamtes Bild)\r\n"
              "X=-1\r\nY=-1\r\ndX=-1\r\ndY=-1\r\nZ=-1\r\n1=3\r\n"  // not assigned: the standard class
              "[Items]\r\n1=a.bmp\r\n[ItemDescr]\r\n1=\r\n");
}

TEST(SampleSet, AFailedSaveKeepsTheOldFile) {
    const support::TempFolder folder;
    kvTamSampleSet set = fullSet();
    ASSERT_TRUE(set.Save(folder.file("a.kvs")));
    const string before = files::read(set.FileName());
    set.kvtamSamples().Item(3).ItemDescr = "two\nlines";
    EXPECT_THROW(set.Save(), RuntimeError);
    set.kvtamSamples().Item(3).ItemDescr = "";
    for (int i = 0; i < 32767; ++i) set.kvtamClasses().Add("c");
    EXPECT_THROW(set.Save(), RuntimeError);  // nobody could read it
    files::createDirectories(folder.file("Ordner.kvs"));
    EXPECT_THROW(kvTamSampleSet().Save(folder.file("Ordner.kvs")), RuntimeError);
    EXPECT_EQ(files::read(set.FileName()), before);
    EXPECT_EQ(files::list(folder.path()).size(), 2U);
}

TEST(SampleSet, CreatedFromADirectory) {
    const support::TempFolder folder;
    for (const char* name : {R"(Klasse 10\z.bmp)", R"(klasse 2\y10.txt)", R"(klasse 2\Y9.bmp)",
                             R"(Äpfel\x.bmp)", "ignored.bmp", R"(Klasse 10\deeper\ignored.bmp)"})
        folder.write(name);
    files::createDirectories(folder.file("empty"));
    kvTamSampleSet set = fullSet();
    set.CreateFromDirectory(folder.path());
    string classes, samples;
    for (const kvTamClass& entry : set.kvtamClasses())
        classes += std::to_string(entry.Number) + entry.Name + ", ";
    EXPECT_EQ(classes, "1Äpfel, 2empty, 3klasse 2, 4Klasse 10, ");
    for (const kvTamSample& sample : set.kvtamSamples()) {
        EXPECT_TRUE(sample.FileFound());
        EXPECT_EQ(sample.Path() + "\\" + sample.File(), sample.FileName());
        samples += sample.ItemDescr + testing::PrintToString(sample.ItemClasses);
    }
    EXPECT_EQ(samples, "x.bmp{ 1 }Y9.bmp{ 3 }y10.txt{ 3 }z.bmp{ 4 }");
    files::remove(folder.file(R"(Äpfel\x.bmp)"));
    EXPECT_FALSE(set.kvtamSamples().Item(1).FileFound());
    ASSERT_EQ(set.kvtamROIs().Count(), 1);
    EXPECT_EQ(set.kvtamROIs().Item(1).Name, "(gesamtes Bild)");
}

TEST(Collections, KeysIgnoreCaseAndAreUnique) {
    kvtamROIs rois;
    rois.Add().Name = "without";
    rois.Add().Name = "without too";
    rois.Add("Schlüssel").Name = "with";
    EXPECT_EQ(rois.Item("SCHLÜSSEL").Name, "with");
    EXPECT_EQ(errorOf([&] { rois.Add("SCHLÜSSEL"); }).number(), platform::error::duplicateKey);
    EXPECT_EQ(rois.Count(), 3);
    rois.Remove("schlüssel");
    EXPECT_EQ(rois.Item(2).Name, "without too");
    rois.Add("Schlüssel");
    rois.Remove(3);
    EXPECT_EQ(errorOf([&] { rois.Item("Schlüssel"); }).number(), platform::error::subscriptOutOfRange);
}

TEST(Collections, RefuseIndicesOutside) {
    kvtamSamples samples;
    samples.Add("a", "");
    const auto expectRefused = [&](auto place) {
        EXPECT_EQ(errorOf([&] { samples.Item(place); }).number(), platform::error::subscriptOutOfRange);
        EXPECT_EQ(errorOf([&] { samples.Remove(place); }).number(), platform::error::subscriptOutOfRange);
    };
    for (const std::int32_t position : {0, -1, 2}) expectRefused(position);
    for (const char* key : {"", "1", "a"}) expectRefused(key);
    EXPECT_EQ(samples.Count(), 1);
}

}  // namespace
