#pragma once

#include <cstdint>
#include <vector>

namespace platform {

/// A square picture with transparency: rows from the top, 0xAARRGGBB, not premultiplied.
struct IconImage {
    int size = 0;   ///< pixels each way
    std::vector<std::uint32_t> pixels;
};

}  // namespace platform
