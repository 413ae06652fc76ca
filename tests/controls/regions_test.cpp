#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

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

TEST(RegionOverlay, StandsRegionsFarOutside) {
    platform::Surface surface({20, 20});
    surface.fill(0);
    platform::Canvas canvas(surface);
    drawRegion(canvas, {least, least, most, most, true}, {-1000, 1000});
    bandsOf({most, most, most, most, true}, {most, most});
    EXPECT_EQ(surface.row(10)[10] & 0xFFFFFF, 0u);
}

}  // namespace
