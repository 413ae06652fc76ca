#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/surface.h"

namespace platform {

/// Decodes a bitmap or JPEG file straight into the surface: the picture's top left comes to the top left
/// of `area`, 1:1, and what does not fit into `area` is left out; what it does not cover stays as it was.
/// Returns the picture's own size. RuntimeError badPicture with the decoder's reason; the surface may then
/// hold a part of the picture.
Size decodePicture(std::string_view fileName, Surface& target, Rect area);

/// A picture's own pixels, as its file holds them.
struct Raster {
    /// Larger pictures are refused, so that a header alone cannot ask for more memory than this takes.
    static constexpr std::int64_t mostPixels = std::int64_t{1} << 28;

    Size size;
    int bitsPerPixel = 24;            ///< 24: blue, green, red; 8: places in the palette
    std::vector<Colour> palette;      ///< up to 256 colours, none for 24 bits
    std::vector<std::uint8_t> rows;   ///< from the top, without gaps between them

    std::size_t bytesPerRow() const {
        return static_cast<std::size_t>(size.width) * static_cast<std::size_t>(bitsPerPixel / 8);
    }
};

/// A picture of 8 bits with a palette keeps both, every other one becomes one of 24 bits of the same colours.
/// RuntimeError badPicture.
Raster readRaster(std::string_view fileName);

}  // namespace platform
