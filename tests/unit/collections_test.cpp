#include "model/collections.h"

#include <gmock/gmock.h>

#include "tests/support/error_of.h"

namespace {

using namespace model;
using support::errorOf;
using testing::ElementsAre;

std::vector<std::string> names(const kvtamClasses& classes) {
    std::vector<std::string> found;
    for (const kvTamClass& entry : classes.NewEnum()) found.push_back(entry.Name);
    return found;
}

TEST(Collections, KeepTheOrderOfInsertion) {
    kvtamClasses classes;
    classes.Add("a");
    classes.Add("b", "Schlüssel");
    kvTamClass& c = classes.Add("c");
    EXPECT_THAT(names(classes), ElementsAre("a", "b", "c"));
    classes.Remove(1);
    EXPECT_THAT(names(classes), ElementsAre("b", "c"));
    EXPECT_EQ(&classes.Item(2), &c);
    EXPECT_EQ(c.Number, 3);  // not renumbered
    EXPECT_EQ(classes.Add("d").Number, 3);
    classes.Clear();
    EXPECT_EQ(classes.Add("e", "Schlüssel").Number, 1);
    EXPECT_EQ(classes.Count(), 1);
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
