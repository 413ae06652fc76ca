#pragma once

#include <cstdint>
#include <optional>

#include "controls/picturebox/header_bytes.h"
#include "platform/geometry.h"

/// What picture files say of themselves in their headers. Asking a decoder for it would cost the decoding of
/// the whole picture.
namespace controls {

struct PictureHeader {
    platform::Size size;   ///< at least 1 x 1
    int bitsPerPixel = 0;  ///< bitmaps: as stored; JPEG: components x precision
};

/// Empty when the file is no JPEG or its size cannot be found: cut off or damaged before the frame header,
/// or a frame without width or height. Empty, too, for a large picture whose file is too short for it.
std::optional<PictureHeader> readJpegHeader(HeaderBytes& file);

/// Windows bitmaps of all header versions and those of OS/2, bottom up or top down. Empty when the file is
/// none of them, is cut off, or gives a width or height that no picture has, or a large one for which
/// the file is too short.
std::optional<PictureHeader> readBitmapHeader(HeaderBytes& file);

/// The kind is told by the file's first bytes, whatever its name says.
std::optional<PictureHeader> readPictureHeader(HeaderBytes& file);

struct HeaderWords {
    std::int16_t planes = 0;
    std::int16_t bitCount = 0;
};

/// The plane count and the bits per pixel as the information header of a Windows bitmap has them, taken from
/// the same place in a file of any kind; 0 where the file is too short.
HeaderWords ReadBitmapHeaderWords(HeaderBytes& file);

}  // namespace controls
