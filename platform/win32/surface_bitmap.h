#pragma once

#include <cstdint>

#include "platform/surface.h"
#include "platform/win32/handle.h"

namespace platform {

namespace win32 {

/// A bitmap in memory, rows from the top, 32 bits a pixel, and a device context of its own to draw with, made
/// when it is first asked for: it is gone with the thread that made it, which may have done no more than
/// decode the picture.
class BitmapDc {
  public:
    BitmapDc() = default;
    /// RuntimeError badPicture when there is not the memory for it.
    explicit BitmapDc(Size size);
    ~BitmapDc();
    BitmapDc(BitmapDc&& other) noexcept;
    BitmapDc& operator=(BitmapDc&&) = delete;

    Size size() const { return size_; }
    HDC dc() const;
    /// Before another thread goes on with it.
    void giveDcBack() const;
    HBITMAP bitmap() const { return bitmap_.get(); }
    std::uint32_t* row(int y) const { return pixels_ + static_cast<std::ptrdiff_t>(y) * size_.width; }

  private:
    Size size_{};
    UniqueBitmap bitmap_;
    mutable UniqueDc dc_;
    mutable HGDIOBJ before_ = nullptr;
    std::uint32_t* pixels_ = nullptr;
};

}  // namespace win32

struct Surface::Native {
    win32::BitmapDc bitmap;
};

}  // namespace platform
