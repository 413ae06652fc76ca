#include "controls/picturebox/region_overlay.h"

#include <algorithm>

#include "platform/text.h"

namespace controls {

using platform::Canvas;
using platform::Point;
using platform::Rect;

namespace {

constexpr platform::Colour white = 0xFFFFFF;
constexpr int handleDistance = 4;  // of a handle's centre from the frame
constexpr int handleHalf = 4;
constexpr int reach = handleDistance + handleHalf;  // of all that is drawn outside of a region

/// In control pixels, its edges in order. A region may have any edges of 32 bits; so far away from every
/// picture it is as good as anywhere else, and nobody's sums overflow.
Rect onControl(const RegionRecord& r, Point offset) {
    const auto near = [](std::int32_t edge, int shift) {
        constexpr int farAway = 1 << 28;
        return std::clamp(edge, -farAway, farAway) + std::clamp(shift, -farAway, farAway);
    };
    const auto [left, right] = std::minmax({near(r.Left, offset.x), near(r.Right, offset.x)});
    const auto [top, bottom] = std::minmax({near(r.Top, offset.y), near(r.Bottom, offset.y)});
    return {left, top, right, bottom};
}

/// Rounded in picture coordinates, so that a handle does not jump by a pixel when the picture is scrolled.
int middle(std::int32_t start, std::int32_t end, int shift) {
    return platform::text::roundHalfEven((static_cast<double>(start) + end) / 2) + shift;
}

}  // namespace

std::array<Rect, 8> handlesOf(const RegionRecord& region, Point offset) {
    const Rect r = onControl(region, offset);
    const int left = r.left - handleDistance;
    const int right = r.right + handleDistance;
    const int top = r.top - handleDistance;
    const int bottom = r.bottom + handleDistance;
    const int x = middle(r.left - offset.x, r.right - offset.x, offset.x);
    const int y = middle(r.top - offset.y, r.bottom - offset.y, offset.y);
    const std::array<Point, 8> centres{Point{left, top},    Point{x, top},        Point{right, top},
                                       Point{right, y},     Point{right, bottom}, Point{x, bottom},
                                       Point{left, bottom}, Point{left, y}};
    std::array<Rect, 8> handles;
    std::transform(centres.begin(), centres.end(), handles.begin(), [](Point c) {
        return Rect{c.x - handleHalf, c.y - handleHalf, c.x + handleHalf, c.y + handleHalf};
    });
    return handles;
}

std::array<Rect, 4> bandsOf(const RegionRecord& region, Point offset) {
    const Rect r = onControl(region, offset);
    const int top = r.top - reach;
    const int bottom = r.bottom + reach;
    return {Rect{r.left - reach, top, r.left + 1, bottom}, Rect{r.left, top, r.right, r.top + 1},
            Rect{r.right - 1, top, r.right + reach, bottom}, Rect{r.left, r.bottom - 1, r.right, bottom}};
}

void drawRegion(Canvas& canvas, const RegionRecord& region, Point offset) {
    canvas.frame(onControl(region, offset), white);
    if (!region.Selected) return;
    const platform::Colour inside = platform::systemColour(platform::SystemColour::infoBackground);
    for (const Rect& handle : handlesOf(region, offset)) canvas.rectangle(handle, white, inside);
}

void drawRegions(Canvas& canvas, const RegionList& regions, Point offset) {
    for (const RegionRecord& region : regions) drawRegion(canvas, region, offset);
    if (regions.has(regions.SelectedIndex)) drawRegion(canvas, regions.at(regions.SelectedIndex), offset);
}

}  // namespace controls
