#pragma once

#include <algorithm>
#include <functional>
#include <limits>
#include <optional>
#include <string>

#include "platform/user_control.h"

namespace platform {

/// A bar between two panes that the user drags with the mouse or moves with the arrow keys. Its value is
/// its distance from the left or top edge of the area that it divides, in pixels at 96 dots per inch, so
/// that it means the same on another monitor. The holder lays the panes out from it and sets its bounds.
class SplitterBar {
  public:
    enum class Direction { vertical, horizontal };   ///< the bar's own: a vertical one moves sideways
    SplitterBar(Container& parent, const std::string& name, Direction direction);

    /// Within the limits.
    int position() const { return std::max(least_, std::min(position_, most_)); }
    /// Raises nothing. It stands there as soon as the limits allow it.
    void setPosition(int at96) { position_ = at96; }
    /// What the holder's size allows now; the lower one counts when there is too little room for both.
    void setLimits(int least, int most) { least_ = least, most_ = most; }
    UserControl& control() { return control_; }

    std::function<void()> onMove;   ///< the user moved it; the position is the new one already

  private:
    struct Grab {
        int mouse;      // in the parent, pixels along the way that the bar moves
        int position;   // before
    };
    int along(Point point) const;
    void grab(Point point);
    void drag(Point point);
    void release();
    bool press(int key);
    void moveTo(int position);

    UserControl control_;
    Direction direction_;
    int position_ = 0;              // where it was put
    int least_ = 0;
    int most_ = std::numeric_limits<int>::max();
    std::optional<Grab> grabbed_;   // while it is dragged
};

}  // namespace platform
