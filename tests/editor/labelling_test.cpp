#include <algorithm>
#include <chrono>
#include <thread>

#include "editor_fixture.h"
#include "platform/application.h"

namespace {

class Labelling : public EditorTest {
  protected:
    void SetUp() override { ASSERT_TRUE(start(makeSet("Probe", {.pictures = 3, .regions = {"Kopf"}}))); }
};

TEST_F(Labelling, OneClickLabelsThePictureAndBringsTheNext) {
    auto& w = window();
    pressClass(2);
    EXPECT_EQ(classShown(1), "Pore");
    EXPECT_EQ(current(), 2);
    EXPECT_EQ(w.ListView2.firstSelected(), 2);
    EXPECT_EQ(w.kvPictureBox1.FileName(), w.ItemPath(2));
    EXPECT_EQ(w.txtInfo.text(), "Bereich: (gesamtes Bild)   Datei: bild2.bmp");
    EXPECT_EQ(w.txtSize.text(), "10 x 6 Pixel, 24 Bit Farbtiefe");
    pressClass(0);
    pressClass(1);
    EXPECT_EQ(classShown(3), "Riß");
    EXPECT_EQ(current(), 1) << "the last one is followed by the first";
}

TEST_F(Labelling, WhatIsNotASeenItemOfTheSetIsNotLabelled) {
    auto& w = window();
    w.lvCItems.unselectAll();
    pressClass(2);
    EXPECT_TRUE(w.unchanged()) << "no item is current";
    folder.write("Quelle\\fremd.bmp", platform::files::read(w.ItemPath(1)));
    w.browse(folder.file("Quelle"));
    user::clickRow(w.ListView1, 1);
    EXPECT_EQ(w.kvPictureBox1.FileName(), folder.file("Quelle\\fremd.bmp"));
    pressClass(2);
    EXPECT_TRUE(w.unchanged()) << "what is seen is no item";
    user::clickRow(w.ListView2, 2);
    pressClass(2);
    EXPECT_EQ(w.ItemClasses(2, 0), 2) << "the row clicked in the file list is the one that is seen";
}

TEST_F(Labelling, ARangeOfFilesBringsNoPicture) {
    auto& w = window();
    folder.write("Quelle\\fremd.bmp", platform::files::read(w.ItemPath(1)));
    w.browse(folder.file("Quelle"));
    user::clickRow(w.ListView2, 2);
    const std::function<void()> ranges[] = {
        [&] { user::clickRow(w.ListView2, 3, platform::shiftKey::shift); },
        [&] { user::key(w.ListView2, platform::keyCode::up, platform::shiftKey::shift); },
        [&] { user::clickRow(w.ListView1, 1, platform::shiftKey::shift); },
    };
    for (const auto& choose : ranges) {
        choose();
        EXPECT_EQ(w.kvPictureBox1.FileName(), w.ItemPath(2));
        EXPECT_EQ(current(), 2);
    }
}

TEST_F(Labelling, TheToolbarStepsRoundTheSetAndWhatComesNextIsFetched) {
    auto& w = window();
    const struct {
        const char* key;
        int row, next, before;
    } steps[] = {{"btnR", 3, 2, 1},  {"btnF", 1, 2, 3}, {"btnF", 2, 3, 1},
                 {"btnFF", 3, 1, 2}, {"btnR", 2, 1, 3}, {"btnFR", 1, 3, 2}};
    for (const auto& step : steps) {
        user::press(w.Toolbar1, step.key);
        EXPECT_EQ(current(), step.row) << step.key;
        const std::vector<std::string> wanted{w.ItemPath(step.next), w.ItemPath(step.before)};
        EXPECT_EQ(w.kvPictureBox1.Expected(), wanted) << step.key << " to " << step.row;
    }
    while (w.kvPictureBox1.FetchOn()) std::this_thread::sleep_for(std::chrono::milliseconds(1));
    user::tick(w.Timer3);
    EXPECT_FALSE(w.Timer3.enabled()) << "all is fetched";
}

TEST_F(Labelling, TheShowRunsUntilItIsStopped) {
    auto& w = window();
    user::press(w.Toolbar1, "btnLoop");
    EXPECT_EQ(current(), 2) << "the show goes on at once";
    user::tick(w.Timer2);
    EXPECT_EQ(w.kvPictureBox1.Expected().front(), w.ItemPath(1));
    user::tick(w.Timer2);
    EXPECT_EQ(current(), 1);
    user::slide(w.Slider1, 2500);
    EXPECT_EQ(w.Timer2.interval(), 2500);
    EXPECT_EQ(w.txtTime.caption(), " " + platform::formatNumber(2.5, 1) + "s");
    // Even in the middle of a tick.
    platform::application::post(w.form, [&] { user::press(w.Toolbar1, "btnStop"); });
    user::tick(w.Timer2);
    EXPECT_FALSE(w.Timer2.enabled());
    EXPECT_TRUE(w.Toolbar1.enabled(6));
    EXPECT_FALSE(w.Toolbar1.enabled(7));
}

TEST_F(Labelling, APictureThatCannotBeReadIsNamed) {
    auto& w = window();
    platform::files::replace(w.ItemPath(2), "BM");
    user::clickRow(w.lvCItems, 2);
    EXPECT_EQ(w.lblHint.caption().substr(0, 11), "bild2.bmp: ");
    EXPECT_TRUE(w.lblHint.visible());
    EXPECT_EQ(w.txtSize.text(), "");
    user::clickRow(w.lvCItems, 3);
    EXPECT_EQ(w.lblHint.caption(), "");
    EXPECT_FALSE(w.lblHint.visible());
    user::check(w.chkStretch, true);
    EXPECT_TRUE(w.kvPictureBox1.Stretch());
}

// What arrives while the next picture is on its way.
TEST_F(Labelling, APressMadeBeforeThePictureIsSeenLabelsNothing) {
    auto& w = window();
    platform::application::post(w.form, [&] { w.kvButtonList1_Click(2); });
    w.GoToItem(2);
    EXPECT_EQ(w.ItemClasses(1, 0), 0);
    EXPECT_EQ(w.ItemClasses(2, 0), 0);
    EXPECT_EQ(current(), 2);
}

TEST_F(Labelling, AnotherChoiceMadeMeanwhileCounts) {
    auto& w = window();
    // Handled only while the picture is being loaded.
    platform::application::post(w.form, [&] { platform::application::post(w.form, [&] { w.GoToItem(3); }); });
    w.GoToItem(2);
    EXPECT_EQ(current(), 3);
    EXPECT_EQ(w.kvPictureBox1.FileName(), w.ItemPath(3));
    EXPECT_EQ(w.ListView2.firstSelected(), 3);
    platform::application::post(w.form, [&] { w.btnRA_Click(); });
    w.GoToItem(1);
    EXPECT_EQ(w.lvCItems.count(), 0);
    EXPECT_EQ(w.ListView2.selectedCount(), 0);
}

// As a key that is held down while a disk is slow.
TEST_F(Labelling, StepsThatPileUpAreNotNested) {
    auto& w = window();
    int depth = 0, deepest = 0;
    for (int i = 0; i < 20; ++i)
        platform::application::post(w.form, [&] {
            deepest = std::max(deepest, ++depth);
            w.GoToItem(current() % 3 + 1);
            --depth;
        });
    w.GoToItem(1);
    EXPECT_EQ(deepest, 1);
    EXPECT_EQ(current(), 3);
    EXPECT_EQ(w.kvPictureBox1.FileName(), w.ItemPath(3));
}

// A press and, before its picture is there, a removal of the row that the press was for.
TEST_F(Labelling, WhatIsRemovedWhileAPictureIsOnItsWayLeavesNoOtherOnTheScreen) {
    auto& w = window();
    user::clickRow(w.ListView2, 2);
    platform::application::post(w.form, [&w] { w.btnR_Click(); });
    w.kvButtonList1_Click(1);
    ASSERT_EQ(w.set().sampleCount(), 2);
    ASSERT_EQ(current(), 2);
    EXPECT_EQ(w.kvPictureBox1.FileName(), w.ItemPath(2)) << "the next press is for what is seen";
}

}  // namespace
