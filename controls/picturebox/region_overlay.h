#pragma once

#include <array>

#include "controls/picturebox/region_list.h"
#include "platform/canvas.h"

/// How regions look on the picture. Rectangles and points are in control pixels: `offset` is where the
/// picture's top left stands in the control.
namespace controls {

/// The eight handles, clockwise from the top left one; they stand outside of the frame.
std::array<platform::Rect, 8> handlesOf(const RegionRecord& region, platform::Point offset);

/// The four bands, left, top, right and bottom, in which everything lies that is drawn of a region.
std::array<platform::Rect, 4> bandsOf(const RegionRecord& region, platform::Point offset);

/// The frame, and the handles when the region is selected.
void drawRegion(platform::Canvas& canvas, const RegionRecord& region, platform::Point offset);

/// All of them in index order, the active one once more on top.
void drawRegions(platform::Canvas& canvas, const RegionList& regions, platform::Point offset);

}  // namespace controls
