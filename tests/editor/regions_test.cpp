#include "editor/region_placement.h"
#include "tests/editor/editor_fixture.h"
#include "tests/support/pictures.h"

namespace {

using editor::RegionRect;
namespace message = platform::message;

std::vector<int> numbers(const RegionRect& r) {
    return {r.X, r.Y, r.dX, r.dY};
}

TEST(NewRegion, IsAQuarterOfThePictureInTheMiddleOfWhatIsSeen) {
    const struct {
        platform::Size picture;
        platform::Rect seen;
        std::vector<RegionRect> others;
        std::vector<int> expected;
    } cases[] = {
        {{400, 200}, {0, 0, 400, 200}, {}, {150, 75, 100, 50}},
        {{400, 200}, {200, 100, 300, 200}, {}, {200, 125, 100, 50}},
        {{400, 200}, {380, 0, 400, 200}, {}, {300, 75, 100, 50}},
        {{40, 10}, {0, 0, 40, 10}, {}, {12, 0, 16, 10}},
        {{0, 0}, {0, 0, 0, 0}, {}, {0, 0, 64, 64}},
        {{4000, 3000}, {3481, 2442, 4000, 3000}, {}, {3000, 2250, 1000, 750}},
        {{400, 200}, {280, 140, 400, 200}, {{290, 145, 100, 50}}, {298, 143, 100, 50}},
        {{400, 200}, {0, 0, 400, 200}, {{150, 75, 100, 50}, {162, 87, 100, 50}}, {174, 99, 100, 50}},
        {{400, 200}, {0, 0, 400, 200}, {{150, 75, 100, 49}}, {150, 75, 100, 50}},
        {{17, 16}, {0, 0, 17, 16}, {{0, 0, 16, 16}}, {1, 0, 16, 16}},
        {{16, 16}, {0, 0, 16, 16}, {{0, 0, 16, 16}}, {0, 0, 16, 16}},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(numbers(editor::newRegion(c.picture, c.seen, c.others)), c.expected);
    }
}

class Regions : public EditorTest {
  protected:
    Regions() {
        makeSet("Probe", {});
        const std::string picture = support::trueColourBitmap({32, 24}, support::distinctColour);
        for (const char* name : {"1", "2", "3"})
            folder.write("Picture\\Probe\\bild" + std::string(name) + ".bmp", picture);
        start();
        openByChooser("Probe");
        user::selectTab(window().TabStrip1, 3);
    }
    void makeRegion(const std::string& name = {}) {
        user::press(window().btnROINew);
        if (name.empty()) {
            user::abandonEdit(window().lvROIs);
        } else {
            user::finishEdit(window().lvROIs, name);
        }
    }
    std::vector<int> rectangle(int region) {
        const auto r = window().kvPictureBox1.regionRect(region);
        return {r.left, r.top, r.width(), r.height()};
    }
};

TEST_F(Regions, ANewOneIsNamedShownChosenAndCanBeNamedAtOnce) {
    auto& w = window();
    EXPECT_FALSE(w.txtX.enabled());
    user::press(w.btnROINew);
    EXPECT_TRUE(user::editing(w.lvROIs));
    user::finishEdit(w.lvROIs, "Kopf");
    EXPECT_FALSE(w.unchanged());
    EXPECT_EQ(w.cboROI.text(), "Kopf");
    EXPECT_EQ(w.lblROICaption.caption(), "Bereich: Kopf");
    makeRegion("Bereich4");
    makeRegion();
    EXPECT_EQ(w.cboROI.item(3), "Bereich3") << "the first free number from the count on";
    makeRegion();
    EXPECT_EQ(w.cboROI.item(4), "Bereich5") << "Bereich4 is taken";
    EXPECT_NE(rectangle(1), rectangle(2));
}

TEST_F(Regions, ASetWithoutPicturesGetsNone) {
    auto& w = window();
    user::selectTab(w.TabStrip1, 1);
    user::press(w.btnRA);
    user::selectTab(w.TabStrip1, 3);
    messages.expectPart("Sie haben keine Stichprobenelemente festgelegt.");
    user::press(w.btnROINew);
    EXPECT_EQ(w.set().regionCount(), 0);
}

TEST_F(Regions, OneThatCouldNotBeSeenWhenFittedIsShownAtFullSize) {
    auto& w = window();
    user::check(w.chkStretch, true);
    makeRegion();
    EXPECT_FALSE(w.chkStretch.checked());
    EXPECT_FALSE(w.kvPictureBox1.Stretch());
}

// The picture is 32 pixels wide and 24 high.
TEST_F(Regions, ATypedNumberMovesTheRegionAndAnythingElseIsPutBack) {
    auto& w = window();
    makeRegion("Kopf");
    const struct {
        platform::TextBox& box;
        const char* typed;
        std::vector<int> expected;
    } cases[] = {
        {w.txtX, "2", {2, 4, 16, 16}},
        {w.txtY, "100", {2, 8, 16, 16}},
        {w.txtX, "zwei", {2, 8, 16, 16}},
        {w.txtDX, "0", {2, 8, 16, 16}},
        {w.txtDX, "99999999999", {2, 8, 16, 16}},
        {w.txtX, "-5", {0, 8, 16, 16}},
        {w.txtDX, "2147483647", {0, 8, 32, 16}},
        {w.txtDY, " 5 ", {0, 8, 32, 5}},
    };
    ASSERT_EQ(rectangle(1), (std::vector<int>{8, 4, 16, 16}));
    for (const auto& c : cases) {
        user::type(c.box, c.typed);
        user::commit(c.box);
        EXPECT_EQ(rectangle(1), c.expected) << c.typed;
    }
}

TEST_F(Regions, APictureThatCannotBeReadLeavesThemAlone) {
    auto& w = window();
    makeRegion("Kopf");
    const auto before = rectangle(1);
    folder.write("Picture\\Probe\\bild2.bmp", "BM, but no picture");
    w.GoToItem(2);
    w.GoToItem(2);
    EXPECT_EQ(rectangle(1), before);
}

TEST_F(Regions, ANumberThatIsBeingTypedCountsWhenTheWindowIsClosed) {
    auto& w = window();
    makeRegion("Kopf");
    messages.expectPart("überschreiben?");
    user::press(w.btnSave);
    user::type(w.txtX, "3");
    messages.expect("Änderungen speichern?", message::cancel);
    EXPECT_FALSE(user::close(w.form));
    EXPECT_EQ(rectangle(1)[0], 3);
}

TEST_F(Regions, OnlyWhatChangesARegionCountsAsAChange) {
    auto& w = window();
    makeRegion("Kopf");
    messages.expectPart("überschreiben?", message::ok);
    user::press(w.btnSave);
    user::choose(w.cboROI, 0);
    user::clickRow(w.lvROIs, 1);
    user::type(w.txtX, w.txtX.text());
    user::commit(w.txtX);
    EXPECT_TRUE(w.unchanged()) << "a region was only chosen";
    user::type(w.txtX, "3");
    user::commit(w.txtX);
    EXPECT_FALSE(w.unchanged());
}

}  // namespace
