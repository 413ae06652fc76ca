#include <gmock/gmock.h>

#include <cstdint>
#include <limits>

#include "controls/picturebox/region_list.h"
#include "controls/picturebox/region_overlay.h"
#include "platform/errors.h"
#include "tests/controls/picture_box_fixture.h"

namespace {

using platform::Colour;
using platform::Point;
using platform::Rect;
using platform::RuntimeError;
using testing::ElementsAre;

constexpr Colour white = 0xFFFFFF, ground = 0x102030;

class PictureBoxRegions : public PictureBoxTest {
  protected:
    PictureBoxRegions() {
        box.LoadPic(bitmap("a.bmp", {500, 300}, plain(ground)));
        box.ROIselect = [this](int& index, int& X, int& Y, int& dX, int& dY) {
            selected.push_back({index, X, Y, dX, dY});
            index = X = -99;  // the control does not look at it
        };
    }
    std::vector<std::vector<int>> selected;
};

TEST_F(PictureBoxRegions, AddsAtTheVisibleEdgeAndLoadsAnywhere) {
    user::scroll(hScroll, 100);
    user::scroll(vScroll, 30);
    EXPECT_EQ(box.ROI_Add(0, -5, 50, 40), 1);
    EXPECT_EQ(box.ROI_Add(7, 8, 9, 10), 2);
    EXPECT_THAT(selected, ElementsAre(ElementsAre(1, 100, 30, 50, 40), ElementsAre(2, 7, 8, 9, 10)));
    EXPECT_EQ(box.GetSelectedROI(), 1) << "counts from 0";
    EXPECT_EQ(box.regionRect(1), (Rect{100, 30, 150, 70}));
    box.LoadPic(bitmap("small.bmp", {20, 10}));
    box.ROI_Add(-1, 0, 5, 5);
    EXPECT_EQ(box.regionRect(3), (Rect{0, 0, 5, 5})) << "centred";
    selected.clear();
    box.ROI_Load(-3, 0, 5000, 40);
    EXPECT_EQ(box.regionRect(4), (Rect{-3, 0, 4997, 40})) << "exactly as given";
    EXPECT_TRUE(selected.empty()) << "and quietly";
}

TEST_F(PictureBoxRegions, RemovesByAnIndexFrom0) {
    for (const int x : {10, 20}) box.ROI_Load(x, 0, 5, 5);
    box.ROI_Add(30, 5, 5, 5);
    box.ROI_Remove(1);
    EXPECT_EQ(box.regionRect(2).left, 30);
    user::key(box, platform::keyCode::right);
    EXPECT_EQ(box.regionRect(2).left, 40) << "it is still the selected one";
    EXPECT_THROW(box.ROI_Remove(2), RuntimeError);
    EXPECT_THROW(box.ROI_Remove(-1), RuntimeError);
    for (const int number : {-1, 3}) EXPECT_THROW(box.regionRect(number), RuntimeError);
    box.ROI_Clear();
    EXPECT_THROW(box.ROI_Remove(0), RuntimeError);
    EXPECT_EQ(box.PicWidth(), 500) << "the picture stays";
}

TEST_F(PictureBoxRegions, SelectsOneAndReportsIt) {
    for (const int x : {10, 20, 30}) box.ROI_Load(x, 0, 5, 6);
    box.ROI_Select(2);
    box.ROI_Select(3);
    EXPECT_THAT(selected, ElementsAre(ElementsAre(2, 20, 0, 5, 6), ElementsAre(3, 30, 0, 5, 6)));
    EXPECT_EQ(box.GetSelectedROI(), 2);
    EXPECT_EQ(box.ROI(), 3);
    EXPECT_THROW(box.ROI_Select(4), RuntimeError);
    EXPECT_EQ(box.ROI(), 3);
    box.ROI_Select(0);
    EXPECT_EQ(box.GetSelectedROI(), -1);
    EXPECT_EQ(selected.back()[0], 0);
}

TEST_F(PictureBoxRegions, TakesACurrentIndexUpToOnePastTheEnd) {
    box.ROI_Load(10, 20, 30, 40);
    for (const int index : {0, 1, 2}) EXPECT_NO_THROW(box.ROI(index));
    for (const int index : {-1, 3}) try {
            box.ROI(index);
            ADD_FAILURE() << index;
        } catch (const RuntimeError& error) {
            EXPECT_EQ(static_cast<std::uint32_t>(error.number()), 0x80040001u);
            EXPECT_EQ(error.description(), "Index außerhalb des gültigen Bereiches");
        }
    EXPECT_EQ(box.ROI(), 2);
    EXPECT_THROW(box.X(), RuntimeError);
    box.ROI(1);
    box.X(15);
    box.Y(25);
    EXPECT_EQ(box.regionRect(1), (Rect{15, 25, 40, 60})) << "the far edges stay";
    box.dX(1);
    box.dY(2);
    EXPECT_EQ(box.regionRect(1), (Rect{15, 25, 16, 27}));
}

TEST_F(PictureBoxRegions, MovesIntoThePictureAndScrollsAlong) {
    box.ROI_Load(10, 10, 50, 40);
    int X = 480, Y = 20, dX = 50, dY = 40;
    box.ROI_Move(0, X, Y, dX, dY);
    EXPECT_EQ(box.regionRect(1).left, 10) << "no region 0";
    box.ROI_Move(1, X, Y, dX, dY);
    EXPECT_EQ(X, 450);
    EXPECT_EQ(box.regionRect(1), (Rect{450, 20, 500, 60}));
    EXPECT_EQ(offset(), (Point{-300, -10}))
        << "by the way that the region moved, as far as there is to scroll";
    X = 440;
    box.ROI_Move(1, X, Y, dX, dY);
    EXPECT_EQ(offset(), (Point{-300, -10})) << "in view already";
    EXPECT_TRUE(selected.empty());
    box.ROI_Load(10, 20, 30, 400);
    box.ROI_Move(2, X = 10, Y = 20, dX = 600, dY = 350);
    EXPECT_EQ(box.regionRect(2), (Rect{10, 20, 500, 300})) << "where its near edges stay it is cut";
}

TEST_F(PictureBoxRegions, AreDrawnOverThePictureInOneToOneModeOnly) {
    box.ROI_Add(20, 20, 50, 30);
    box.ROI_Add(100, 20, 50, 30);
    const user::Picture screen = user::screen(box);
    EXPECT_EQ(screen, user::printed(box)) << "the handles of the first one are gone";
    EXPECT_EQ(screen.at({20, 20}), white);
    EXPECT_EQ(screen.at({69, 49}), white);
    EXPECT_EQ(screen.at({21, 21}), ground);
    EXPECT_EQ(screen.at({16, 16}), ground) << "not selected: no handle";
    EXPECT_EQ(screen.at({96, 16}), platform::systemColour(platform::SystemColour::infoBackground));
    EXPECT_EQ(screen.at({92, 12}), white);
    EXPECT_EQ(screen.at({93, 13}), 0u) << "a dark line for white pictures";
    box.ShowROIs(false);
    EXPECT_EQ(user::screen(box).at({20, 20}), ground);
    box.ShowROIs(true);
    box.Stretch(true);
    EXPECT_FALSE(hScroll.visible() || vScroll.visible());
    const user::Picture stretched = user::screen(box);
    EXPECT_EQ(std::count(stretched.pixels.begin(), stretched.pixels.end(), white), 0);
}

TEST_F(PictureBoxRegions, LeaveNothingBehindOnTheScreen) {
    box.ROI_Add(20, 20, 50, 30);
    int X = 60, Y = 40, dX = 20, dY = 20;
    box.ROI_Move(1, X, Y, dX, dY);
    EXPECT_EQ(user::screen(box), user::printed(box));
    box.ROI_Load(120, 10, 50, 30);
    box.ROI_Select(2);
    EXPECT_EQ(user::screen(box), user::printed(box));
    user::scroll(hScroll, 33);
    EXPECT_EQ(user::screen(box), user::printed(box));
    box.ROI_Remove(1);
    box.ROI_Remove(0);
    const user::Picture screen = user::screen(box);
    EXPECT_EQ(screen, user::printed(box));
    EXPECT_EQ(std::count(screen.pixels.begin(), screen.pixels.end(), white), 0);
}

constexpr std::int32_t least = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t most = std::numeric_limits<std::int32_t>::max();

TEST(RegionRecord, RefusesEdgesBeyond32Bits) {
    EXPECT_EQ(controls::RegionRecord::at(most - 1, 0, 1, 0).Right, most);
    EXPECT_THROW(controls::RegionRecord::at(most, 0, 1, 0), RuntimeError);
    EXPECT_THROW(controls::RegionRecord::at(0, least, 0, -1), RuntimeError);
    EXPECT_THROW((controls::RegionRecord{least, 0, most, 0}.dX()), RuntimeError);
}

TEST(RegionOverlay, StandsRegionsFarOutside) {
    platform::Surface surface({20, 20});
    surface.fill(0);
    platform::Canvas canvas(surface);
    controls::drawRegion(canvas, {least, least, most, most, true}, {-1000, 1000});
    controls::bandsOf({most, most, most, most, true}, {most, most});
    EXPECT_EQ(surface.row(10)[10] & 0xFFFFFF, 0u);
}

}  // namespace
