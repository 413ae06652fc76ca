#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <random>

#include "editor/open_set.h"
#include "editor/set_io.h"
#include "model/kvTamSampleSet.h"
#include "platform/document.h"
#include "platform/errors.h"
#include "platform/files.h"
#include "platform/path.h"
#include "platform/text.h"
#include "tests/support/temp_folder.h"

namespace {

using editor::OpenSet;

OpenSet sampleSet(int samples, int classes, int regions) {
    OpenSet set;
    for (int i = 1; i <= classes; ++i) set.addClass("K" + std::to_string(i));
    for (int i = 1; i <= regions; ++i) set.addRegion("B" + std::to_string(i));
    for (int i = 1; i <= samples; ++i) set.addSample("C:\\p", "bild" + std::to_string(i) + ".bmp");
    return set;
}

TEST(OpenSet, RemovingAClassRenumbersTheAssignments) {
    const struct {
        int classes, removed, standard;
        std::vector<std::int16_t> after;  // of samples that had classes 0, 1, 2, 3
    } cases[] = {
        {4, 2, 0, {0, 0, 1, 2}},
        {4, 4, 1, {0, 1, 2, 1}},
        {4, 1, 0, {0, 0, 1, 2}},
    };
    for (const auto& c : cases) {
        OpenSet set = sampleSet(4, c.classes, 1);
        for (int row = 1; row <= 4; ++row) set.assign(row, 1, static_cast<std::int16_t>(row - 1));
        set.removeClass(c.removed, c.standard);
        for (int row = 1; row <= 4; ++row)
            EXPECT_EQ(set.classOf(row, 1), c.after[static_cast<std::size_t>(row - 1)]);
        EXPECT_EQ(set.classCount(), c.classes - 1);
    }
}

TEST(OpenSet, RemovingARegionMovesTheLaterOnesDown) {
    OpenSet set = sampleSet(1, 4, 3);
    for (int region = 0; region <= 3; ++region) set.assign(1, region, static_cast<std::int16_t>(region));
    set.removeRegion(2);
    EXPECT_EQ(set.regionRow(2).name, "B3");
    EXPECT_EQ(set.classOf(1, 1), 1);
    EXPECT_EQ(set.classOf(1, 2), 3);
}

TEST(OpenSet, EveryEditClearsTheUnchangedFlag) {
    const std::vector<std::function<void(OpenSet&)>> edits = {
        [](OpenSet& s) { s.addSample("C:\\p", "neu.bmp"); },
        [](OpenSet& s) { s.removeSamples({2}); },
        [](OpenSet& s) { s.removeAllSamples(); },
        [](OpenSet& s) { s.movedTo(1, "D:\\"); },
        [](OpenSet& s) { s.assign(1, 0, 1); },
        [](OpenSet& s) { s.assignAll(1, 1); },
        [](OpenSet& s) { s.addClass("neu"); },
        [](OpenSet& s) { s.renameClass(1, "neu"); },
        [](OpenSet& s) { s.describeClass(1, "neu"); },
        [](OpenSet& s) { s.removeClass(1, 0); },
        [](OpenSet& s) { s.setStandardClass(1); },
        [](OpenSet& s) { s.addRegion("neu"); },
        [](OpenSet& s) { s.renameRegion(1, "neu"); },
        [](OpenSet& s) { s.describeRegion(1, "neu"); },
        [](OpenSet& s) { s.removeRegion(1); },
        [](OpenSet& s) { s.regionMoved(); },
        [](OpenSet& s) { s.setDoubleSelection(true); },
    };
    for (std::size_t i = 0; i < edits.size(); ++i) {
        OpenSet set = sampleSet(3, 2, 1);
        set.setUnchanged(true);
        edits[i](set);
        EXPECT_FALSE(set.unchanged()) << "edit " << i;
    }
}

// The index against a walk over all rows, over many random edits.
TEST(OpenSet, SamplesAreFoundAfterAnySequenceOfEdits) {
    std::mt19937 random(7);
    const auto pick = [&](int below) { return static_cast<int>(random() % static_cast<unsigned>(below)); };
    const char* const directories[] = {"C:\\Ä", "c:\\ä", "D:\\", "\\\\server\\bilder"};
    const auto name = [&] { return (pick(2) ? "Bild" : "bild") + std::to_string(pick(30)) + ".bmp"; };
    OpenSet set = sampleSet(0, 1, 2);
    for (int step = 0; step < 3000; ++step) {
        switch (pick(12)) {
            case 0:
                if (set.sampleCount() > 0) set.removeSamples({1 + pick(set.sampleCount())});
                break;
            case 1:
                if (set.sampleCount() > 0) set.movedTo(1 + pick(set.sampleCount()), directories[pick(4)]);
                break;
            case 2:
                if (pick(20) == 0) set.removeDuplicates();
                break;
            default:
                set.addSample(directories[pick(4)], name());
        }
        const std::string wanted = platform::path::join(directories[pick(4)], name());
        int expected = -1;
        for (int row = 1; row <= set.sampleCount() && expected == -1; ++row) {
            if (platform::text::equalNoCase(set.samplePath(row), wanted)) expected = row;
        }
        ASSERT_EQ(set.findSample(wanted), expected) << "step " << step;
    }
}

class SetFile : public testing::Test {
  protected:
    support::TempFolder folder;
    std::string file = folder.file("x.kvs");
};

TEST_F(SetFile, WhatTheEditorHoldsComesBackEqual) {
    OpenSet set = sampleSet(0, 0, 0);
    const char* const names[] = {"gut",     " vorn",  "hinten ",      "=",       "[x]",     ";k",
                                 "\"q\"",   "'q'",    "\"",           "a=b",     "Maß 5 €", "Ωμέγα",
                                 "тест 例", "ÄÖÜäöü", "\"halb offen", "R&D && x"};
    for (const char* name : names) set.addClass(name, name);
    set.setStandardClass(3);
    set.setDoubleSelection(true);
    for (const char* name : names) set.addRegion(name, name);
    std::vector<editor::RegionRect> rects;
    for (int i = 0; i < static_cast<int>(std::size(names)); ++i)
        rects.push_back({i, -i, 100 + i, 2147483647});
    const std::pair<const char*, const char*> samples[] = {
        {"C:\\Daten\\Picture", "a.bmp"}, {"C:\\Daten", "=.bmp"},
        {"C:\\", "wurzel.jpg"},          {"c:\\DATEN\\x", " b.bmp"},
        {"C:\\Daten2", "nebenan.bmp"},   {"\\\\server\\freigabe\\o", "ü.jpg"},
        {"Z:\\lang\\weg", "Ж.bmp"},      {"C:\\Daten\\Picture", "a.bmp"},
    };
    for (const auto& [directory, name] : samples) set.addSample(directory, name);
    for (int row = 1; row <= set.sampleCount(); ++row) {
        for (int region = 0; region <= set.regionCount(); ++region) {
            set.assign(row, region, static_cast<std::int16_t>((row * 7 + region) % set.classCount()));
        }
    }
    writeSet(file, "C:\\Daten", set, rects);
    const auto back = editor::readSet(file, "C:\\Daten");

    EXPECT_TRUE(back.set.unchanged());
    EXPECT_EQ(back.strayAssignments, 0);
    EXPECT_EQ(back.set.standardClass(), 3);
    EXPECT_TRUE(back.set.doubleSelection());
    ASSERT_EQ(back.set.classCount(), set.classCount());
    ASSERT_EQ(back.set.regionCount(), set.regionCount());
    ASSERT_EQ(back.set.sampleCount(), set.sampleCount());
    for (int i = 1; i <= set.classCount(); ++i) {
        EXPECT_EQ(back.set.classRow(i).name, set.classRow(i).name);
        EXPECT_EQ(back.set.classRow(i).description, set.classRow(i).description);
        EXPECT_EQ(back.set.regionRow(i).name, set.regionRow(i).name);
        const auto& r = back.rectangles[static_cast<std::size_t>(i - 1)];
        EXPECT_EQ(r.X, i - 1);
        EXPECT_EQ(r.Y, 1 - i);
        EXPECT_EQ(r.dY, 2147483647);
    }
    for (int row = 1; row <= set.sampleCount(); ++row) {
        EXPECT_TRUE(platform::text::equalNoCase(back.set.samplePath(row), set.samplePath(row)))
            << set.samplePath(row);
        for (int region = 0; region <= set.regionCount(); ++region) {
            EXPECT_EQ(back.set.classOf(row, region), set.classOf(row, region));
        }
    }
}

TEST_F(SetFile, TheWholePictureHasNoPlaceAndPathsBelowTheBaseAreRelative) {
    OpenSet set = sampleSet(0, 1, 0);
    set.addSample("C:\\Daten\\Picture", "a.bmp");
    set.addSample("D:\\x", "b.bmp");
    writeSet(file, "C:\\Daten", set, {});
    const auto document = platform::ProfileDocument::load(file);
    const auto value = [&](const char* section, const char* key) {
        return std::string(document.findSection(section)->find(key).value_or("(absent)"));
    };
    for (const char* key : {"X", "Y", "dX", "dY", "Z"}) EXPECT_EQ(value("ROI0", key), "-1") << key;
    EXPECT_EQ(value("ROI0", "Name"), "(gesamtes Bild)");
    EXPECT_EQ(value("ROI0", "2"), "1");
    EXPECT_EQ(value("Items", "1"), "Picture\\a.bmp");
    EXPECT_EQ(value("Items", "2"), "D:\\x\\b.bmp");
    EXPECT_EQ(value("Common", "StdClass"), "1");
}

TEST_F(SetFile, TheSampleSetObjectWritesTheSameFile) {
    OpenSet set = sampleSet(3, 2, 0);
    set.assign(2, 0, 1);
    writeSet(file, "C:\\p", set, {});
    model::kvTamSampleSet object;
    object.AppPath("C:\\p");
    ASSERT_TRUE(object.Load(file));
    ASSERT_TRUE(object.Save(folder.file("y.kvs")));
    EXPECT_EQ(platform::files::read(folder.file("y.kvs")), platform::files::read(file));
}

TEST_F(SetFile, DamagedFilesAreRefusedWithTheirPlace) {
    const std::string good =
        "[Common]\r\nClasses=1\r\nROIs=2\r\nItems=1\r\n[ROI0]\r\n1=1\r\n[ROI1]\r\nX=1\r\nY=2\r\ndX=3\r\ndY="
        "4\r\n1=1\r\n"
        "[Items]\r\n1=a.bmp\r\n";
    const struct {
        const char* from;
        const char* to;
        const char* place;
    } cases[] = {
        {"Classes=1", "", "Classes"},
        {"ROIs=2", "ROIs=zwei", "ROIs"},
        {"Items=1", "Items=-1", "Items"},
        {"Items=1", "Items=99999", "Items"},
        {"Classes=1", "Classes=99999999999", "Classes"},
        {"ROIs=2", "ROIs=2000000000", "ROIs"},
        {"[ROI0]\r\n1=1", "[ROI0]\r\n1=eins", "ROI0"},
        {"[ROI1]", "[ROI7]", "ROI1"},
        {"dX=3", "dX=3.5", "dX"},
        {"dX=3", "dX=2147483647", "dX"},
        {"[Items]\r\n1=a.bmp", "[Items]\r\n", "Items"},
    };
    platform::files::replace(file, good);
    EXPECT_NO_THROW(editor::readSet(file, "C:\\p"));
    for (const auto& c : cases) {
        std::string bad = good;
        bad.replace(bad.find(c.from), std::string(c.from).size(), c.to);
        platform::files::replace(file, bad);
        try {
            editor::readSet(file, "C:\\p");
            ADD_FAILURE() << c.to << " was accepted";
        } catch (const platform::RuntimeError& error) {
            EXPECT_NE(error.description().find(c.place), std::string::npos) << error.description();
        }
    }
}

TEST_F(SetFile, ATextThatALineCannotHoldIsRefusedBeforeAnythingIsWritten) {
    platform::files::replace(file, "old");
    OpenSet set = sampleSet(1, 1, 0);
    set.describeClass(1, "zwei\r\nZeilen");
    EXPECT_THROW(writeSet(file, "C:\\p", set, {}), platform::RuntimeError);
    EXPECT_EQ(platform::files::read(file), "old");
}

TEST_F(SetFile, MissingPicturesAreFoundWhateverTheCaseOfTheirNames) {
    folder.write("a\\Bild1.BMP", "x");
    OpenSet set = sampleSet(0, 1, 0);
    set.addSample(folder.file("a"), "bild1.bmp");
    set.addSample(folder.file("a"), "bild2.bmp");
    set.addSample(folder.file("b"), "bild1.bmp");
    set.addSample(folder.file("A"), "BILD1.bmp");
    EXPECT_EQ(editor::missingSamples(set), (std::vector<int>{2, 3}));
}

}  // namespace
