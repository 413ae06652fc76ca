#include "platform/surface.h"

#include <algorithm>
#include <cstddef>
#include <new>

#include "platform/errors.h"
#include "platform/headless/pixels.h"

namespace platform {

namespace {

// 2 GB. Asking for more would not fail at once, but end the process when the memory is used.
constexpr std::int64_t mostPixels = std::int64_t{1} << 29;

[[noreturn]] void refuse() {
    throw RuntimeError(error::badPicture, "Der Arbeitsspeicher reicht für das Bild nicht aus.");
}

}  // namespace

Surface::Surface() : Surface(Size{}) {}

Surface::Surface(Size size) : native_(std::make_unique<Native>()) {
    size = {std::max(0, size.width), std::max(0, size.height)};
    if (std::int64_t{size.width} * size.height > mostPixels) refuse();
    try {
        native_->pixels.resize(static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height));
    } catch (const std::bad_alloc&) {
        refuse();
    }
    native_->size = size;
}

Surface::~Surface() = default;
Surface::Surface(Surface&&) noexcept = default;
Surface& Surface::operator=(Surface&&) noexcept = default;

Size Surface::size() const {
    return native_->size;
}

std::uint32_t* Surface::row(int y) {
    return native_->row(y);
}

const std::uint32_t* Surface::row(int y) const {
    return native_->row(y);
}

void Surface::fill(Colour colour) {
    std::fill(native_->pixels.begin(), native_->pixels.end(), colour);
}

}  // namespace platform
