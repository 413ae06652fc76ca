#pragma once

#include <vector>

#include "editor/open_set.h"
#include "platform/geometry.h"

namespace editor {

/// The rectangle of a new region: a quarter of the picture wide and high (at least 16 pixels where the
/// picture is that large), in the middle of `seen`, the part of the picture that is in view, and moved on a
/// little for as long as it lies exactly on another one. In picture pixels.
RegionRect newRegion(platform::Size picture, platform::Rect seen, const std::vector<RegionRect>& others);

}  // namespace editor
