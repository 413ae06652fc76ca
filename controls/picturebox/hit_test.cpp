#include "controls/picturebox/hit_test.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "platform/text.h"

namespace controls {

using platform::Point;

std::array<Point, 8> handleCentres(const RegionRecord& region) {
    const auto near = [](std::int32_t edge) { return std::clamp(edge, -farAway, farAway); };
    const auto middle = [](int start, int end) {
        return platform::text::roundHalfEven((static_cast<double>(start) + end) / 2);
    };
    const int left = near(region.Left) - handleHalf;
    const int top = near(region.Top) - handleHalf;
    const int right = near(region.Right) + handleHalf;
    const int bottom = near(region.Bottom) + handleHalf;
    const int x = middle(near(region.Left), near(region.Right));
    const int y = middle(near(region.Top), near(region.Bottom));
    return {Point{left, top}, {x, top},    {right, top},   {right, y},
            {right, bottom},  {x, bottom}, {left, bottom}, {left, y}};
}

HitCode HitTestRegion(const RegionRecord& region, Point offset, Point point) {
    const std::int64_t x = std::int64_t{point.x} - offset.x;
    const std::int64_t y = std::int64_t{point.y} - offset.y;
    if (region.Left < x && x < region.Right && region.Top < y && y < region.Bottom) return HitCode::inside;
    if (!region.Selected) return HitCode::none;
    const auto centres = handleCentres(region);
    // Handles of a small region overlap; the last one wins.
    for (auto i = static_cast<int>(HitCode::left); i >= static_cast<int>(HitCode::topLeft); --i) {
        const Point centre = centres[static_cast<std::size_t>(i - 1)];
        if (std::abs(x - centre.x) < handleHalf && std::abs(y - centre.y) < handleHalf)
            return static_cast<HitCode>(i);
    }
    return HitCode::none;
}

}  // namespace controls
