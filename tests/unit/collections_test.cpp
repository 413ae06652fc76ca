#include "model/collections.h"

#include <gmock/gmock.h>

#include "platform/files.h"
#include "tests/unit/error_of.h"
#include "tests/unit/temporary_directory.h"

namespace {

using namespace model;
using platform::RuntimeError;
using testing::ElementsAre;

std::vector<std::string> names(const kvtamClasses& classes) {
    std::vector<std::string> found;
    for (const kvTamClass& entry : classes.NewEnum()) found.push_back(entry.Name);
    return found;
}

TEST(Collections, KeepTheOrderOfInsertion) {
    kvtamClasses classes;
    EXPECT_EQ(classes.Count(), 0);
    EXPECT_THAT(names(classes), ElementsAre());
    classes.Add("a");
    classes.Add("b", "Schlüssel");
    kvTamClass& c = classes.Add("c");
    EXPECT_EQ(c.Number, 3);
    EXPECT_THAT(names(classes), ElementsAre("a", "b", "c"));

    classes.Remove(1);
    EXPECT_THAT(names(classes), ElementsAre("b", "c"));
    EXPECT_EQ(&classes.Item(2), &c);
    EXPECT_EQ(c.Number, 3);  // not renumbered
    EXPECT_EQ(classes.Add("d").Number, 3);
    classes.Clear();
    EXPECT_EQ(classes.Count(), 0);
    EXPECT_EQ(classes.Add("e", "Schlüssel").Number, 1);
}

TEST(Collections, KeysIgnoreCaseAndAreUnique) {
    kvtamROIs rois;
    rois.Add().Name = "without";
    rois.Add().Name = "without too";
    rois.Add("Schlüssel").Name = "with";
    EXPECT_EQ(rois.Item("SCHLÜSSEL").Name, "with");
    EXPECT_EQ(errorOf([&] { rois.Add("SCHLÜSSEL"); }), platform::error::duplicateKey);
    EXPECT_EQ(rois.Count(), 3);
    rois.Remove("schlüssel");
    EXPECT_EQ(rois.Count(), 2);
    EXPECT_EQ(rois.Item(2).Name, "without too");
    rois.Add("Schlüssel");
    rois.Remove(3);
    EXPECT_EQ(errorOf([&] { rois.Item("Schlüssel"); }), platform::error::subscriptOutOfRange);
}

TEST(Collections, RefuseIndicesOutside) {
    kvtamSamples samples;
    samples.Add("a", "");
    for (const std::int32_t position : {0, -1, 2}) {
        EXPECT_EQ(errorOf([&] { samples.Item(position); }), platform::error::subscriptOutOfRange);
        EXPECT_EQ(errorOf([&] { samples.Remove(position); }), platform::error::subscriptOutOfRange);
    }
    for (const char* key : {"", "1", "a"}) {
        EXPECT_EQ(errorOf([&] { samples.Item(key); }), platform::error::subscriptOutOfRange);
        EXPECT_EQ(errorOf([&] { samples.Remove(key); }), platform::error::subscriptOutOfRange);
    }
    EXPECT_EQ(samples.Count(), 1);
}

TEST(Sample, AnswersFromItsNameAndTheDisk) {
    const TemporaryDirectory directory;
    kvtamSamples samples;
    const kvTamSample& sample = samples.Add(directory.put("Bild.bmp"), "text");
    EXPECT_EQ(sample.ItemDescr, "text");
    EXPECT_TRUE(sample.FileFound());
    platform::files::remove(sample.FileName());
    EXPECT_FALSE(sample.FileFound());
    EXPECT_EQ(sample.File(), "Bild.bmp");
    EXPECT_EQ(sample.Path(), directory.path());
}

}  // namespace
