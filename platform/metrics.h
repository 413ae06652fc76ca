#pragma once

#include <string_view>

#include "platform/geometry.h"

namespace platform {

class Control;

/// Sizes by which a window is laid out, in pixels of the monitor it is on.
struct Metrics {
    int dpi = 96;
    int charWidth = 6;        ///< average width of a character of the window's font
    int lineHeight = 15;      ///< height of a line of text in that font
    int vScrollWidth = 17;    ///< SM_CXVSCROLL
    int hScrollHeight = 17;   ///< SM_CYHSCROLL
    int iconSize = 16;        ///< small icons
    int comboHeight = 23;     ///< a closed combo box
    int tabHeight = 22;       ///< the strip of a tab control

    /// Pixels for a length given for 96 dots per inch, rounded.
    constexpr int px(int at96) const {
        return static_cast<int>((static_cast<long long>(at96) * dpi + (at96 < 0 ? -48 : 48)) / 96);
    }
    /// The other way, rounded down.
    constexpr int at96(int pixels) const { return static_cast<int>(pixels * 96LL / dpi); }
};

Metrics metricsOf(const Control& control);
/// Width of the text in the control's font.
int textWidth(const Control& control, std::string_view text);

}  // namespace platform
