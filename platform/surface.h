#pragma once

#include <cstdint>
#include <memory>

#include "platform/geometry.h"

namespace platform {

/// 0x00RRGGBB.
using Colour = std::uint32_t;

/// A bitmap of 32 bits a pixel in memory that a canvas can copy from without converting it.
class Surface {
  public:
    Surface();
    /// RuntimeError badPicture when there is not the memory for it.
    explicit Surface(Size size);
    ~Surface();
    Surface(Surface&&) noexcept;
    Surface& operator=(Surface&&) noexcept;

    Size size() const;
    /// Pixels of row y from the top, 0x00RRGGBB each.
    std::uint32_t* row(int y);
    const std::uint32_t* row(int y) const;
    void fill(Colour colour);

    struct Native;
    Native& native() const { return *native_; }

  private:
    std::unique_ptr<Native> native_;
};

}  // namespace platform
