#pragma once

#include <cstdint>
#include <string>

#include "platform/surface.h"

namespace controls {

/// The control's own copy of the picture, from which the screen is painted. The picture stands in it with a
/// margin around, so that what regions draw beyond the picture's edges can be taken back from it as well.
/// A file is decoded straight into it, once; there is no second copy.
class PictureBuffer {
  public:
    static constexpr int margin = 8;    ///< before the picture
    static constexpr int margins = 24;  ///< before and behind it, together
    /// Larger buffers are refused: a gigabyte, where memory bitmaps end.
    static constexpr std::int64_t mostPixels = std::int64_t{1} << 28;

    PictureBuffer();

    /// Memory that a picture of that size takes, in bytes.
    static std::int64_t bytesOf(platform::Size picture) {
        return (std::int64_t{picture.width} + margins) * (std::int64_t{picture.height} + margins) * 4;
    }
    std::int64_t bytes() const { return bytesOf(picture_); }

    platform::Size picture() const { return picture_; }
    const platform::Surface& surface() const { return surface_; }
    /// Whether the last file that was to be decoded could be.
    bool holdsPicture() const { return holdsPicture_; }

    /// Makes room for a picture of that size. RuntimeError badPicture when it is too large or the memory does
    /// not suffice; the buffer is then as it was. The pixels are anything until they are decoded.
    void resize(platform::Size picture);

    /// Decodes the file into the picture's place. What it does not cover shows the background. RuntimeError
    /// badPicture; the whole buffer shows the background then.
    void decode(const std::string& fileName);

    /// Puts a finished picture, or none, at the buffer's top left on plain background.
    void assign(const platform::Surface* picture);

  private:
    void clearAround(platform::Rect kept);

    platform::Size picture_;
    platform::Surface surface_;
    bool holdsPicture_ = false;
};

}  // namespace controls
