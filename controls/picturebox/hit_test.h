#pragma once

#include <array>

#include "controls/picturebox/region_list.h"
#include "platform/geometry.h"

/// What of a region is at a point.
namespace controls {

/// The handles are numbered clockwise from the top left one.
enum class HitCode { none, topLeft, top, topRight, right, bottomRight, bottom, bottomLeft, left, inside };

/// Half a handle's side, and the distance of its centre from the frame that it stands outside of.
inline constexpr int handleHalf = 4;

/// In picture pixels, from the top left one on. Edges beyond `farAway` count as being there.
std::array<platform::Point, 8> handleCentres(const RegionRecord& region);

/// The point is in control pixels; the frame itself is not hit. Only a selected region has handles.
HitCode HitTestRegion(const RegionRecord& region, platform::Point offset, platform::Point point);

}  // namespace controls
