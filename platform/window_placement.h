#pragma once

#include <optional>
#include <string>

#include "platform/geometry.h"

namespace platform {

/// Where a window stood, as one line of text: left, top, width and height of its restored state, the
/// resolution of its monitor in dots per inch, and 1 when it was maximised.
struct WindowPlacement {
    Rect restored;
    int resolution = 0;   ///< 0 when it is not known: former versions did not store it
    bool maximised = false;

    std::string text() const;
    /// Empty for a text that is none.
    static std::optional<WindowPlacement> parse(const std::string& text);
};

}  // namespace platform
