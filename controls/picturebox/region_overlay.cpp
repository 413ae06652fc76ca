#include "controls/picturebox/region_overlay.h"

#include <algorithm>

#include "controls/picturebox/hit_test.h"

namespace controls {

using platform::Canvas;
using platform::Point;
using platform::Rect;

namespace {

constexpr platform::Colour white = 0xFFFFFF;
constexpr platform::Colour black = 0x000000;  // beside the white, for white pictures
constexpr int reach = 2 * handleHalf;         // of all that is drawn outside of a region

int near(std::int32_t edge, int shift) {
    return std::clamp(edge, -farAway, farAway) + std::clamp(shift, -farAway, farAway);
}

/// In control pixels, its edges in order.
Rect onControl(const RegionRecord& r, Point offset) {
    const auto [left, right] = std::minmax({near(r.Left, offset.x), near(r.Right, offset.x)});
    const auto [top, bottom] = std::minmax({near(r.Top, offset.y), near(r.Bottom, offset.y)});
    return {left, top, right, bottom};
}

Rect grown(Rect r, int by) {
    return {r.left - by, r.top - by, r.right + by, r.bottom + by};
}

/// Its outline is all of the eight pixels that the bands leave for it, so the dark line runs inside of it.
void drawHandle(Canvas& canvas, Rect handle, platform::Colour inside) {
    canvas.rectangle(handle, white, black);
    canvas.fill(grown(handle, -2), inside);
}

}  // namespace

std::array<Rect, 8> handlesOf(const RegionRecord& region, Point offset) {
    const Rect r = onControl(region, {});
    std::array<Rect, 8> handles;
    // Their middles are rounded on the picture, so that no handle jumps by a pixel when it is scrolled.
    const auto centres = handleCentres({r.left, r.top, r.right, r.bottom});
    std::transform(centres.begin(), centres.end(), handles.begin(), [offset](Point c) {
        return Rect::at(near(c.x, offset.x) - handleHalf, near(c.y, offset.y) - handleHalf, 2 * handleHalf,
                        2 * handleHalf);
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
    const Rect frame = onControl(region, offset);
    canvas.frame(grown(frame, 1), black);
    canvas.frame(frame, white);
    if (!region.Selected) return;
    const platform::Colour inside = platform::systemColour(platform::SystemColour::infoBackground);
    for (const Rect& handle : handlesOf(region, offset)) drawHandle(canvas, handle, inside);
}

void drawRegions(Canvas& canvas, const RegionList& regions, Point offset) {
    for (const RegionRecord& region : regions) drawRegion(canvas, region, offset);
    if (regions.has(regions.SelectedIndex)) drawRegion(canvas, regions.at(regions.SelectedIndex), offset);
}

}  // namespace controls
