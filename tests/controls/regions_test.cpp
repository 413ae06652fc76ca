#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

#include "controls/picturebox/hit_test.h"
#include "controls/picturebox/region_drag.h"
#include "controls/picturebox/region_list.h"
#include "controls/picturebox/region_overlay.h"
#include "platform/errors.h"
#include "platform/list_view.h"

namespace {

using namespace controls;
using platform::Point;
using platform::Rect;
using platform::Size;

constexpr std::int32_t least = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t most = std::numeric_limits<std::int32_t>::max();

Rect edges(const RegionRecord& r) {
    return {r.Left, r.Top, r.Right, r.Bottom};
}

TEST(RegionRecord, RefusesEdgesBeyond32Bits) {
    EXPECT_EQ(edges(RegionRecord::at(-5, 6, 7, 8)), (Rect{-5, 6, 2, 14}));
    EXPECT_EQ(RegionRecord::at(most - 1, 0, 1, 0).Right, most);
    EXPECT_THROW(RegionRecord::at(most, 0, 1, 0), platform::RuntimeError);
    EXPECT_THROW(RegionRecord::at(0, least, 0, -1), platform::RuntimeError);
    EXPECT_THROW((RegionRecord{least, 0, most, 0}.dX()), platform::RuntimeError);
}

TEST(BringInto, MovesRegionsIntoASmallerPicture) {
    const Size picture{200, 100};
    const struct {
        Rect before, after;
    } cases[] = {
        {{10, 10, 200, 100}, {10, 10, 200, 100}},  // fits exactly
        {{150, 10, 201, 30}, {49, 10, 100, 30}},   // to the picture's height, not its width
        {{100, 10, 350, 30}, {0, 10, 100, 30}},    // wider than that: cut
        {{10, 90, 30, 101}, {10, 89, 30, 100}},   {{10, 90, 30, 300}, {10, 0, 30, 100}},
        {{least, 0, most, 10}, {0, 0, 100, 10}},
    };
    for (const auto& c : cases) {
        RegionRecord region{c.before.left, c.before.top, c.before.right, c.before.bottom, true};
        bringInto(picture, region);
        EXPECT_EQ(edges(region), c.after) << c.before.left << ", " << c.before.top;
        EXPECT_TRUE(region.Selected);
    }
}

TEST(FitMove, FitsEachEdgeByItsOwnRule) {
    const Size picture{200, 100};
    const RegionRecord region = RegionRecord::at(10, 20, 30, 40);
    const struct {
        const char* what;
        Rect wanted, fitted;  // X, Y, dX, dY
    } cases[] = {
        {"as it is", {10, 20, 30, 40}, {10, 20, 30, 40}},
        {"beyond the far edges", {180, 80, 30, 40}, {170, 60, 30, 40}},
        {"before the near edges", {-5, -6, 30, 40}, {0, 0, 30, 40}},
        {"larger than the picture", {5, 20, 300, 40}, {0, 20, 200, 40}},
        {"wider with its left edge kept", {10, 20, 300, 40}, {10, 20, 190, 40}},
        {"higher with its top edge kept: not cut", {10, 20, 30, 300}, {10, 20, 30, 300}},
    };
    for (const auto& c : cases) {
        auto [X, Y, dX, dY] = c.wanted;
        fitMove(picture, region, X, Y, dX, dY);
        EXPECT_EQ((Rect{X, Y, dX, dY}), c.fitted) << c.what;
    }
    const RegionRecord low = RegionRecord::at(10, 20, 30, 400);
    std::int32_t X = 10, Y = 20, dX = 30, dY = 300;
    fitMove(picture, low, X, Y, dX, dY);
    EXPECT_EQ(dY, 80) << "shorter than before, and still too high: cut";
    X = most;
    EXPECT_NO_THROW(fitMove(picture, low, X, Y, dX, dY));
    EXPECT_EQ(X, 170);
}

TEST(RegionList, KeepsItsScratchElementAndItsIndices) {
    RegionList regions;
    EXPECT_EQ(regions.count(), 0);
    EXPECT_NO_THROW(regions.at(0));
    EXPECT_THROW(regions.at(1), platform::RuntimeError);
    EXPECT_THROW(regions.at(-1), platform::RuntimeError);
    EXPECT_THROW(regions.remove(0), platform::RuntimeError);
    for (int i = 1; i <= 3; ++i) EXPECT_EQ(regions.add(RegionRecord::at(i, 0, 1, 1)), i);
    regions.SelectedIndex = regions.CurrentIndex = 3;
    regions.remove(2);
    EXPECT_EQ(regions.at(2).Left, 3);
    EXPECT_EQ(regions.SelectedIndex, 2) << "never behind the end";
    regions.at(0).Selected = true;
    EXPECT_EQ(regions.firstSelected(), 0) << "the scratch element does not count";
    regions.clear();
    EXPECT_EQ(regions.count(), 0);
    EXPECT_EQ(regions.CurrentIndex, 0);
}

TEST(HitTest, FindsTheInsideThenTheLastHandle) {
    RegionRecord region = RegionRecord::at(10, 20, 31, 40);
    const struct {
        Point at;  // on the picture
        int code;
    } cases[] = {
        {{10, 40}, 0}, {{11, 40}, 9}, {{40, 59}, 9}, {{41, 59}, 0}, {{20, 20}, 0},
        {{20, 60}, 0}, {{6, 16}, 1},  {{3, 13}, 1},  {{9, 19}, 1},  {{2, 16}, 0},
        {{10, 16}, 0}, {{26, 16}, 2}, {{45, 16}, 3}, {{45, 40}, 4}, {{45, 64}, 5},
        {{26, 64}, 6}, {{29, 61}, 6}, {{6, 64}, 7},  {{6, 40}, 8},  {{-90, -9}, 0},
    };
    for (const bool selected : {true, false}) {
        region.Selected = selected;
        for (const auto& c : cases)
            EXPECT_EQ(static_cast<int>(HitTestRegion(region, {100, -200}, {c.at.x + 100, c.at.y - 200})),
                      selected || c.code == 9 ? c.code : 0)
                << c.at.x << ", " << c.at.y;
    }
    EXPECT_EQ(HitTestRegion({10, 20, 12, 60, true}, {}, {13, 16}), HitCode::topRight) << "2 is below";
    EXPECT_EQ(HitTestRegion({10, 20, 60, 20, true}, {}, {6, 18}), HitCode::left) << "1 and 7 are below";
    EXPECT_EQ(HitTestRegion({least, least, most, most, true}, {least, most}, {most, least}), HitCode::none);
}

TEST(Dragged, KeepsInsideThePicture) {
    const Size picture{200, 100};
    const struct {
        const char* what;
        Rect before;
        HitCode code;
        Point way;
        Rect after;
    } cases[] = {
        {"moved", {10, 10, 30, 30}, HitCode::inside, {5, -3}, {15, 7, 35, 27}},
        {"moved too far", {10, 10, 30, 30}, HitCode::inside, {-99, 99}, {0, 80, 20, 100}},
        {"wider than the picture", {-20, 10, 190, 30}, HitCode::inside, {5, 0}, {0, 10, 200, 30}},
        {"outside", {300, -40, 320, -20}, HitCode::inside, {0, 0}, {180, 0, 200, 20}},
        {"sized to the edge", {10, 10, 30, 30}, HitCode::bottomRight, {500, 500}, {10, 10, 200, 100}},
        {"pulled across", {10, 10, 30, 30}, HitCode::topLeft, {25, 25}, {30, 30, 35, 35}},
        {"to nothing", {10, 10, 30, 30}, HitCode::right, {-20, 7}, {10, 10, 10, 30}},
        {"only the edge that is held", {-9, -9, 300, 300}, HitCode::top, {1, 1}, {-9, 0, 300, 300}},
        {"any numbers", {least, least, most, most}, HitCode::inside, {most, least}, {0, 0, 200, 100}},
    };
    for (const auto& c : cases) {
        const RegionRecord start{c.before.left, c.before.top, c.before.right, c.before.bottom};
        EXPECT_EQ(edges(dragged(start, c.code, c.way, picture)), c.after) << c.what;
    }
}

TEST(Nudged, MovesOrSizesAndLeavesAPixel) {
    using namespace platform::keyCode;
    using namespace platform::shiftKey;
    const Size picture{200, 100};
    const RegionRecord region{10, 20, 15, 25};
    const struct {
        int key, shift;
        Rect after;
    } cases[] = {
        {left, 0, {0, 20, 5, 25}},        {up, control, {10, 19, 15, 24}},
        {right, shift, {10, 20, 25, 25}}, {left, shift, {10, 20, 11, 25}},
        {up, shift, {10, 20, 15, 21}},    {down, shift | control, {10, 20, 15, 26}},
    };
    for (const auto& c : cases) {
        const auto after = nudged(region, c.key, c.shift, picture);
        ASSERT_TRUE(after) << c.key;
        EXPECT_EQ(edges(*after), c.after) << c.key << "/" << c.shift;
    }
    EXPECT_EQ(edges(*nudged({190, 90, 240, 120}, right, shift, picture)), (Rect{150, 70, 200, 100}));
    EXPECT_FALSE(nudged(region, left, alt, picture));
    EXPECT_FALSE(nudged(region, home, 0, picture));
}

TEST(RegionOverlay, PlacesHandlesOutsideOfTheFrame) {
    const auto handles = handlesOf(RegionRecord::at(10, 20, 31, 40), {100, 200});
    const Point centres[] = {{106, 216}, {126, 216}, {145, 216}, {145, 240},
                             {145, 264}, {126, 264}, {106, 264}, {106, 240}};  // (10 + 41) / 2 is even 26
    for (std::size_t i = 0; i < handles.size(); ++i) {
        const Point c = centres[i];
        EXPECT_EQ(handles[i], (Rect{c.x - 4, c.y - 4, c.x + 4, c.y + 4})) << i + 1;
    }
}

TEST(RegionOverlay, DrawsNothingOutsideOfItsBands) {
    constexpr platform::Colour ground = 0x808080;
    platform::Surface surface({80, 80});
    surface.fill(ground);
    platform::Canvas canvas(surface);
    RegionRecord region{50, 20, 20, 60, true};  // as during a drag across the opposite edge
    drawRegion(canvas, region, {3, -2});
    EXPECT_EQ(surface.row(18)[23] & 0xFFFFFF, 0xFFFFFFu);
    EXPECT_EQ(surface.row(57)[52] & 0xFFFFFF, 0xFFFFFFu);
    EXPECT_EQ(surface.row(26)[22] & 0xFFFFFF, 0u) << "a dark line for white pictures";
    EXPECT_EQ(surface.row(40)[40] & 0xFFFFFF, ground) << "the inside stays";
    for (const Rect& band : bandsOf(region, {3, -2})) canvas.fill(band, ground);
    for (int y = 0; y < 80; ++y)
        for (int x = 0; x < 80; ++x) ASSERT_EQ(surface.row(y)[x] & 0xFFFFFF, ground) << x << ", " << y;
}

TEST(RegionOverlay, StandsRegionsFarOutside) {
    platform::Surface surface({20, 20});
    surface.fill(0);
    platform::Canvas canvas(surface);
    drawRegion(canvas, {least, least, most, most, true}, {-1000, 1000});
    bandsOf({most, most, most, most, true}, {most, most});
    EXPECT_EQ(surface.row(10)[10] & 0xFFFFFF, 0u);
}

}  // namespace
