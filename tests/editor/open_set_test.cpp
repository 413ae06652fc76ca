#include "editor/open_set.h"

#include <random>

#include "editor/set_io.h"
#include "model/kvTamSampleSet.h"
#include "platform/path.h"
#include "platform/text.h"
#include "random_user.h"

namespace {

using editor::OpenSet;

TEST(OpenSet, EveryEditIsAChange) {
    void (*const edits[])(OpenSet&) = {
        [](OpenSet& s) { s.addSample("C:\\p", "neu.bmp"); },
        [](OpenSet& s) { s.removeSamples({2}); },
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
    for (const auto& edit : edits) {
        OpenSet set;
        for (const char* name : {"1", "2"}) set.addClass(name), set.addSample("C:\\p", name);
        set.addRegion("1");
        set.setUnchanged(true);
        edit(set);
        EXPECT_FALSE(set.unchanged()) << "edit " << &edit - edits;
    }
}

// The index against a walk over all rows, over many random edits.
TEST(OpenSet, SamplesAreFoundAfterAnySequenceOfEdits) {
    std::mt19937 random(7);
    const auto pick = [&](int below) { return static_cast<int>(random() % static_cast<unsigned>(below)); };
    const char* const directories[] = {"C:\\Ä", "c:\\ä", "D:\\", "\\\\server\\bilder"};
    const auto name = [&] { return (pick(2) ? "Bild" : "bild") + std::to_string(pick(30)) + ".bmp"; };
    OpenSet set;
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

TEST_F(SetFile, WhatTheEditorHoldsComesBackEqual) {
    OpenSet set;
    std::vector<editor::RegionRect> rects;
    for (const char* name :
         {"gut",           " vorn",        "hinten ",     "=",       "[x]",   ";k",      "\"q\"",
          "'q'",           "\"",           "a=b",         "Maß 5 €", "Ωμέγα", "тест 例", "ÄÖÜäöü",
          "\"halb offen",  "R&D && x",     "\ta\t",       "''",      " ",     "ÃŸ",      "\xC2\x81",
          "\xC2\xA0 nbsp", "\xED\xA0\xBD", "\xEF\xBB\xBF"}) {
        set.addClass(name, name);
        set.addRegion(name, name);
        const int i = set.regionCount();
        rects.push_back({i, -i, 100 + i, 2147483647});
    }
    set.setStandardClass(3);
    set.setDoubleSelection(true);
    const std::pair<const char*, const char*> samples[] = {
        {"C:\\Daten\\Picture", "a.bmp"}, {"C:\\Daten", "=.bmp"},
        {"C:\\", "wurzel.jpg"},          {"C:\\Daten\\x", " b.bmp"},
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
    OpenSet set;
    set.addClass("K1");
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

TEST_F(SetFile, ATextThatALineCannotHoldIsRefusedBeforeAnythingIsWritten) {
    platform::files::replace(file, "old");
    OpenSet set;
    set.addClass("K1");
    set.describeClass(1, "zwei\r\nZeilen");
    EXPECT_THROW(writeSet(file, "C:\\p", set, {}), platform::RuntimeError);
    EXPECT_EQ(platform::files::read(file), "old");
}

TEST_F(SetFile, MissingPicturesAreFoundWhateverTheCaseOfTheirNames) {
    folder.write("a\\Bild1.BMP", "x");
    OpenSet set;
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
