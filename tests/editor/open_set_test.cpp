#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <random>
#include <sstream>

#include "editor/open_set.h"
#include "editor/set_io.h"
#include "model/kvTamSampleSet.h"
#include "platform/files.h"
#include "platform/path.h"
#include "platform/text.h"
#include "tests/support/error_of.h"
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

TEST(OpenSet, RemovingAClassOrARegionRenumbersTheAssignments) {
    const struct {
        int removed, standard;
        std::vector<std::int16_t> after;  // of samples that had classes 0, 1, 2, 3
    } cases[] = {{2, 0, {0, 0, 1, 2}}, {4, 1, {0, 1, 2, 1}}, {1, 0, {0, 0, 1, 2}}};
    for (const auto& c : cases) {
        OpenSet set = sampleSet(4, 4, 1);
        for (int row = 1; row <= 4; ++row) set.assign(row, 1, static_cast<std::int16_t>(row - 1));
        set.removeClass(c.removed, c.standard);
        for (int row = 1; row <= 4; ++row)
            EXPECT_EQ(set.classOf(row, 1), c.after[static_cast<std::size_t>(row - 1)]);
        EXPECT_EQ(set.classCount(), 3);
    }
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
        [](OpenSet& s) {
            s.removeSamples({1, 2, 3});
        },
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
                if (pick(20) == 0) set.removeSamples(set.duplicates());
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

/// All that a set holds, as text; the case of its paths does not count.
std::string contentOf(const OpenSet& set, const std::vector<editor::RegionRect>& rects) {
    std::ostringstream text;
    text << set.standardClass() << set.doubleSelection() << '\n';
    for (int i = 1; i <= set.classCount(); ++i)
        text << set.classRow(i).name << '|' << set.classRow(i).description << '\n';
    for (int i = 1; i <= set.regionCount(); ++i) {
        const auto& r = rects.at(static_cast<std::size_t>(i - 1));
        text << set.regionRow(i).name << '|' << set.regionRow(i).description << '|' << r.X << ' ' << r.Y
             << ' ' << r.dX << ' ' << r.dY << '\n';
    }
    for (int row = 1; row <= set.sampleCount(); ++row) {
        text << platform::text::foldCase(set.samplePath(row));
        for (int region = 0; region <= set.regionCount(); ++region) text << ' ' << set.classOf(row, region);
        text << '\n';
    }
    return text.str();
}

TEST_F(SetFile, WhatTheEditorHoldsComesBackEqual) {
    OpenSet set;
    std::vector<editor::RegionRect> rects;
    for (const char* name : {"gut", " vorn", "hinten ", "=", "[x]", ";k", "\"q\"", "'q'", "\"", "a=b",
                             "Maß 5 €", "Ωμέγα", "тест 例", "ÄÖÜäöü", "\"halb offen", "R&D && x"}) {
        set.addClass(name, name);
        set.addRegion(name, name);
        const int i = set.regionCount();
        rects.push_back({i, -i, 100 + i, 2147483647});
    }
    set.setStandardClass(3);
    set.setDoubleSelection(true);
    const std::pair<const char*, const char*> samples[] = {
        {"C:\\Daten\\Picture", "a.bmp"}, {"C:\\Daten", "=.bmp"},
        {"C:\\", "wurzel.jpg"},          {"c:\\DATEN\\x", " b.bmp"},
        {"C:\\Daten2", "nebenan.bmp"},   {"\\\\server\\freigabe\\o", "ü.jpg"},
        {"Z:\\lang\\weg", "Ж.bmp"},      {"C:\\Daten\\Picture", "a.bmp"},
    };
    for (const auto& [directory, name] : samples) set.addSample(directory, name);
    for (int row = 1; row <= set.sampleCount(); ++row)
        for (int region = 0; region <= set.regionCount(); ++region)
            set.assign(row, region, static_cast<std::int16_t>((row * 7 + region) % set.classCount()));
    writeSet(file, "C:\\Daten", set, rects);
    const auto back = editor::readSet(file, "C:\\Daten");
    EXPECT_TRUE(back.set.unchanged());
    EXPECT_EQ(back.strayAssignments, 0);
    EXPECT_EQ(contentOf(back.set, back.rectangles), contentOf(set, rects));
}

TEST_F(SetFile, IsWrittenAsTheSampleSetObjectDoes) {
    OpenSet set = sampleSet(0, 1, 0);
    set.addSample("C:\\Daten\\Picture", "a.bmp");
    set.addSample("D:\\x", "b.bmp");
    writeSet(file, "C:\\Daten", set, {});
    EXPECT_EQ(platform::files::read(file),
              "[Common]\r\nClasses=1\r\nStdClass=1\r\nROIs=1\r\nItems=2\r\nDoubleSelection=0\r\n"
              "[Class1]\r\nName=K1\r\nDescription=\r\n"
              "[ROI0]\r\nName=(gesamtes Bild)\r\nDescription=(gesamtes Bild)\r\n"
              "X=-1\r\nY=-1\r\ndX=-1\r\ndY=-1\r\nZ=-1\r\n1=1\r\n2=1\r\n"
              "[Items]\r\n1=Picture\\a.bmp\r\n2=D:\\x\\b.bmp\r\n[ItemDescr]\r\n1=\r\n2=\r\n");
    model::kvTamSampleSet object;
    object.AppPath("C:\\Daten");
    ASSERT_TRUE(object.Load(file));
    ASSERT_TRUE(object.Save(folder.file("y.kvs")));
    EXPECT_EQ(platform::files::read(folder.file("y.kvs")), platform::files::read(file));
}

TEST_F(SetFile, DamagedFilesAreRefusedWithTheirPlace) {
    const std::string good =
        "[Common]\r\nClasses=1\r\nROIs=2\r\nItems=1\r\n[ROI0]\r\n1=1\r\n"
        "[ROI1]\r\nX=1\r\nY=2\r\ndX=3\r\ndY=4\r\n1=1\r\n[Items]\r\n1=a.bmp\r\n";
    const char* const cases[][3] = {
        {"Classes=1", "", "Classes"},
        {"Items=1", "Items=99999", "Items"},
        {"[ROI0]\r\n1=1", "[ROI0]\r\n1=eins", "ROI0"},
        {"[ROI1]", "[ROI7]", "ROI1"},
        {"dX=3", "dX=3.5", "dX"},
        {"dX=3", "dX=2147483647", "dX"},
        {"[Items]\r\n1=a.bmp", "[Items]\r\n", "Items"},
    };
    platform::files::replace(file, good);
    EXPECT_NO_THROW(editor::readSet(file, "C:\\p"));
    for (const auto& [from, to, place] : cases) {
        std::string bad = good;
        platform::files::replace(file, bad.replace(bad.find(from), std::string(from).size(), to));
        const auto error = support::errorOf([&] { editor::readSet(file, "C:\\p"); });
        EXPECT_NE(error.description().find(place), std::string::npos) << to << ": " << error.description();
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
    platform::BackgroundTask::Progress progress;
    EXPECT_EQ(editor::PictureFiles(set).missing(platform::files::foldedFileNames, progress),
              (std::vector<int>{2, 3}));
    EXPECT_EQ(progress.done, 4);
}

}  // namespace
