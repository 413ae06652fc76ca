#include "editor/region_placement.h"

#include <algorithm>
#include <cstddef>

namespace editor {

namespace {

constexpr int smallest = 16;
constexpr int shift = 12;

/// One direction: where the region may begin, how long it is and where it would best begin.
struct Axis {
    int starts;  // 0 to starts - 1
    int extent;
    int start;

    Axis(int picture, int seenStart, int seenEnd) {
        extent = std::max(1, std::min(std::max(picture / 4, smallest), picture));
        starts = std::max(1, picture - extent + 1);
        start = std::clamp(seenStart + (seenEnd - seenStart - extent) / 2, 0, starts - 1);
    }
};

}  // namespace

RegionRect newRegion(platform::Size picture, platform::Rect seen, const std::vector<RegionRect>& others) {
    const Axis x(picture.width, seen.left, seen.right);
    const Axis y(picture.height, seen.top, seen.bottom);
    const auto isTaken = [&](const RegionRect& r) {
        return std::any_of(others.begin(), others.end(), [&](const RegionRect& other) {
            return other.X == r.X && other.Y == r.Y && other.dX == r.dX && other.dY == r.dY;
        });
    };
    RegionRect region{x.start, y.start, x.extent, y.extent};
    for (std::size_t tries = 0; tries < others.size() && isTaken(region); ++tries) {
        region.X = (region.X + shift) % x.starts;
        region.Y = (region.Y + shift) % y.starts;
    }
    // In a small picture the shifts come round again; then any place that is free will do.
    for (int place = 0; isTaken(region) && place < x.starts * y.starts; ++place) {
        region.X = place % x.starts;
        region.Y = place / x.starts;
    }
    return region;
}

}  // namespace editor
