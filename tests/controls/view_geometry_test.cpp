#include "controls/picturebox/view_geometry.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using namespace controls;
using platform::Rect;
using platform::Size;

constexpr int inner = 217, bar = 17;  // so the view is 200

TEST(ViewAxis, CentresWhatFitsAndScrollsTheRest) {
    const struct {
        int picture, before, maximum, small, offset;
    } cases[] = {
        {0, -77, 0, 0, 100},        {100, -77, 0, 0, 50},  {200, -77, 0, 0, 0},
        {199, -77, 0, 0, 0},        {197, -77, 0, 0, 2},   {195, -77, 0, 0, 2},  // halves to even
        {201, 0, 1, 1, 0},                                                       // one pixel too wide
        {215, 0, 15, 2, 0},         {245, 0, 45, 2, 0},                          // 1.5 and 2.5 changes
        {500, -40, 300, 11, -40},   {500, 30, 300, 11, 0},                       // was centred
        {500, -400, 300, 11, -300},  // was scrolled further than there is to scroll now
    };
    for (const auto& c : cases) {
        const AxisView axis = viewAxis(c.picture, inner, bar, c.before);
        EXPECT_EQ(axis.scrollable, c.maximum > 0) << c.picture;
        EXPECT_EQ(axis.offset, c.offset) << c.picture << " from " << c.before;
        if (!axis.scrollable) continue;
        EXPECT_EQ(axis.maximum, c.maximum) << c.picture;
        EXPECT_EQ(axis.smallChange, c.small) << c.picture;
        EXPECT_EQ(axis.largeChange, 200) << c.picture;
    }
    const AxisView tiny = viewAxis(50, 5, bar, 0);
    EXPECT_EQ(tiny.maximum, 62) << "a control smaller than its scroll bar";
    EXPECT_GE(tiny.largeChange, 1);
}

TEST(ViewStretched, KeepsTheAspectRatioBetweenTwoBands) {
    const struct {
        Size inner, picture;
        Rect place, first, second;
    } cases[] = {
        {{100, 100}, {50, 25}, {0, 25, 100, 75}, {0, 0, 100, 25}, {0, 75, 100, 100}},
        {{100, 100}, {25, 50}, {25, 0, 75, 100}, {0, 0, 25, 100}, {75, 0, 100, 100}},
        {{100, 99}, {50, 25}, {0, 24, 100, 74}, {0, 0, 100, 24}, {0, 74, 100, 99}},     // 24.5 and 74.5
        {{10, 300}, {4000, 3}, {0, 150, 10, 150}, {0, 0, 10, 150}, {0, 150, 10, 300}},  // less than a line
    };
    for (const auto& c : cases) {
        const auto view = viewStretched(c.inner, c.picture);
        ASSERT_TRUE(view);
        EXPECT_EQ(view->picture, c.place) << c.inner.width << " x " << c.inner.height;
        EXPECT_EQ(view->bands[0], c.first) << c.inner.width << " x " << c.inner.height;
        EXPECT_EQ(view->bands[1], c.second) << c.inner.width << " x " << c.inner.height;
    }
}

// Nothing is erased before a repaint, so a line that neither the picture nor a band covers would stay.
TEST(ViewStretched, LeavesNoLineUncovered) {
    for (int picture = 1; picture < 120; ++picture)
        for (int extent = 1; extent < 120; ++extent) {
            const Size high{37, extent}, wide{extent, 37};
            for (const auto& [control, shown] :
                 {std::pair{high, Size{picture, 41}}, {wide, Size{41, picture}}}) {
                const auto view = viewStretched(control, shown);
                ASSERT_TRUE(view);
                const auto& [first, second] = view->bands;
                const bool beside = second.top == 0;
                ASSERT_EQ(beside ? first.right : first.bottom,
                          beside ? view->picture.left : view->picture.top);
                ASSERT_LE(beside ? second.left : second.top,
                          beside ? view->picture.right : view->picture.bottom);
            }
        }
}

TEST(ViewStretched, DrawsNothingWithoutHeight) {
    EXPECT_FALSE(viewStretched({100, 0}, {10, 10}));
    EXPECT_FALSE(viewStretched({100, 100}, {0, 0}));
    EXPECT_TRUE(viewStretched({0, 100}, {10, 10}));
}

}  // namespace
