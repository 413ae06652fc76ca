#pragma once

#include <optional>

#include "controls/picturebox/hit_test.h"
#include "controls/picturebox/region_list.h"
#include "platform/geometry.h"

/// What becomes of a region that is moved or sized by mouse or keys. Pure arithmetic in picture pixels.
namespace controls {

/// The region as it was when it was grabbed at `code`, after the mouse went that way: the edges that the code
/// moves are kept inside the picture, a handle that was pulled across the opposite edge has changed places
/// with it, and a region that is moved keeps its size as long as the picture has room for it.
RegionRecord dragged(const RegionRecord& start, HitCode code, platform::Point way, platform::Size picture);

/// The region after an arrow key: moved by 10 pixels, by 1 with Ctrl; with Shift its right or bottom edge
/// moves instead, up to the last pixel of its extent. Stays inside the picture. Empty for every other key.
std::optional<RegionRecord> nudged(const RegionRecord& region, int key, int shift, platform::Size picture);

}  // namespace controls
