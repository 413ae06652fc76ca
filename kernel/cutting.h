#pragma once

#include <cstdint>
#include <string>

#include "platform/picture.h"

/// Parts of pictures, and bitmap files of them.
namespace kernel {

/// A rectangle by its corner and its size, in pixels; any numbers.
struct Area {
    std::int32_t X = 0;
    std::int32_t Y = 0;
    std::int32_t dX = 0;
    std::int32_t dY = 0;
};

/// What of the area lies in a picture of that size. RuntimeError subscriptOutOfRange when nothing does or the
/// area has no size.
platform::Rect clipped(const Area& area, platform::Size picture);

/// A bitmap file, rows from the bottom, of the pixels in `part`, which lies in the picture: 24 bits a pixel,
/// or 8 with the picture's palette.
std::string bitmapOf(const platform::Raster& picture, const platform::Rect& part);

}  // namespace kernel
