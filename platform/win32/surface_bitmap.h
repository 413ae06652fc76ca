#pragma once

#include <cstdint>

#include "platform/surface.h"
#include "platform/win32/handle.h"

namespace platform {

namespace win32 {

/// A bitmap in memory, rows from the top, 32 bits a pixel, selected into a device context of its own.
class BitmapDc {
  public:
    BitmapDc() = default;
    /// RuntimeError badPicture when there is not the memory for it.
    explicit BitmapDc(Size size);
    ~BitmapDc();
    BitmapDc(BitmapDc&& other) noexcept;
    BitmapDc& operator=(BitmapDc&&) = delete;

    Size size() const { return size_; }
    HDC dc() const { return dc_.get(); }
    HBITMAP bitmap() const { return bitmap_.get(); }
    std::uint32_t* row(int y) const { return pixels_ + static_cast<std::ptrdiff_t>(y) * size_.width; }

  private:
    Size size_{};
    UniqueDc dc_;
    UniqueBitmap bitmap_;
    HGDIOBJ before_ = nullptr;
    std::uint32_t* pixels_ = nullptr;
};

}  // namespace win32

struct Surface::Native {
    win32::BitmapDc bitmap;
};

}  // namespace platform
