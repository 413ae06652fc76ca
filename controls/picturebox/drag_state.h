#pragma once

#include "controls/picturebox/hit_test.h"
#include "platform/geometry.h"

namespace controls {

/// What goes on between the press of a mouse button and its release. The region that is dragged is the list's
/// `SelectedIndex`, and its element 0 is a copy of the region as it was when it was grabbed.
struct DragState {
    bool Dragging = false;
    HitCode code = HitCode::none;  ///< where the region was grabbed; none: the picture is what moves
    platform::Point start;         ///< of the mouse, in control pixels
    platform::Point last;          ///< where the mouse was told to be last
    platform::Point offset;        ///< of the picture at the start
};

}  // namespace controls
