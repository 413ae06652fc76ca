#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/surface.h"

/// Picture files for tests, as bytes to be written where a test wants them.
namespace support {

/// The colour of the pixel in column x and row y from the top left.
using Pattern = std::function<platform::Colour(int x, int y)>;

/// A pattern in which every pixel of a small picture has another colour.
platform::Colour distinctColour(int x, int y);

enum class RowOrder { bottomUp, topDown };

/// An uncompressed bitmap of 24 or 32 bits a pixel.
std::string trueColourBitmap(platform::Size size, const Pattern& pattern, int bitsPerPixel = 24,
                             RowOrder order = RowOrder::bottomUp);

/// An uncompressed bitmap of 1, 4 or 8 bits a pixel; `index` answers a place in the palette.
std::string paletteBitmap(platform::Size size, const std::vector<platform::Colour>& palette,
                          const std::function<int(int x, int y)>& index, int bitsPerPixel = 8,
                          RowOrder order = RowOrder::bottomUp);

/// The path of a file that these tests keep.
std::string golden(const std::string& name);

/// A whole JPEG file, 24 x 16 pixels: the left half dark red, the right half light green.
std::string smallJpeg();
inline constexpr platform::Size smallJpegSize{24, 16};

/// The headers of a JPEG of that size and nothing behind them: enough to ask for the size.
std::string jpegHeader(platform::Size size);

}  // namespace support
