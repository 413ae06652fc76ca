#include "editor/region_placement.h"

#include <algorithm>

namespace editor {

namespace {

constexpr int smallest = 16;
constexpr int shift = 12;

constexpr int withoutPicture = 64;

/// One direction: how long the region is, where it may begin, and where it would best begin.
struct Axis {
    int extent;
    int first, last;  // so that it is all in view, or at least in the picture
    int start;

    Axis(int picture, int seenStart, int seenEnd) {
        extent = std::min(std::max(picture / 4, smallest), picture);
        // A region at 0 of a picture that is scrolled would be taken to the edge of what is seen.
        const int least = seenStart > 0 ? std::min(1, picture - extent) : 0;
        first = std::max(seenStart, least);
        last = seenEnd - extent;
        if (last < first) first = least, last = picture - extent;
        start = std::clamp(seenStart + (seenEnd - seenStart - extent) / 2, first, last);
    }

    int places() const { return last - first + 1; }
    /// That many pixels on, to and fro between the ends.
    int moved(int pixels) const {
        if (last == first) return first;
        const int way = (start - first + pixels) % (2 * (last - first));
        return first + std::min(way, 2 * (last - first) - way);
    }
};

}  // namespace

RegionRect newRegion(platform::Size picture, platform::Rect seen, const std::vector<RegionRect>& others) {
    if (picture.width <= 0 || picture.height <= 0) return {0, 0, withoutPicture, withoutPicture};
    const Axis x(picture.width, seen.left, seen.right);
    const Axis y(picture.height, seen.top, seen.bottom);
    const auto isTaken = [&](const RegionRect& r) {
        return std::any_of(others.begin(), others.end(), [&](const RegionRect& other) {
            return other.X == r.X && other.Y == r.Y && other.dX == r.dX && other.dY == r.dY;
        });
    };
    RegionRect region{x.start, y.start, x.extent, y.extent};
    const int count = static_cast<int>(others.size());
    for (int tries = 1; tries <= count && isTaken(region); ++tries) {
        region.X = x.moved(tries * shift);
        region.Y = y.moved(tries * shift);
    }
    // Where there is little room the shifts come round again; then any place that is free will do.
    for (int place = 0; isTaken(region) && place <= count && place / x.places() < y.places(); ++place) {
        region.X = x.first + place % x.places();
        region.Y = y.first + place / x.places();
    }
    return region;
}

}  // namespace editor
