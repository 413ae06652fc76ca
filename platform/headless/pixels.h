#pragma once

#include <cstddef>
#include <vector>

#include "platform/canvas.h"
#include "platform/surface.h"

namespace platform {

struct Surface::Native {
    std::uint32_t* row(int y) {
        return pixels.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(size.width);
    }

    Size size;
    std::vector<std::uint32_t> pixels;
};

/// What may be drawn on: parts of a surface. They may overlap, for whatever is drawn covers what was there.
struct Canvas::Native {
    Surface::Native& surface;
    std::vector<Rect> parts;
};

}  // namespace platform
