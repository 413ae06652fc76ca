#pragma once

#include <array>
#include <optional>

#include "platform/geometry.h"

/// Where the picture stands in the control. Pure arithmetic, in pixels; halves round to the even number.
namespace controls {

/// One direction of the 1:1 view.
struct AxisView {
    bool scrollable = false;
    int offset = 0;  ///< of the picture's edge: centred, or the negated scroll position
    // Of the scroll bar, when there is something to scroll; its minimum is 0.
    int maximum = 0;
    int smallChange = 1;
    int largeChange = 1;
};

/// `inner` is the control's own extent, `bar` that of the scroll bar of the other direction, which always
/// keeps its place, and `offset` the one so far.
AxisView viewAxis(int picture, int inner, int bar, int offset);

/// The picture stretched to the control.
struct StretchView {
    platform::Rect picture;
    std::array<platform::Rect, 2> bands;  ///< what is left over at both sides
};

/// As large as it fits with its aspect ratio kept. Empty when the control or the picture has no height.
std::optional<StretchView> viewStretched(platform::Size inner, platform::Size picture);

}  // namespace controls
