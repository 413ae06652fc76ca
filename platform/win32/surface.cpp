#include "platform/surface.h"

#include <algorithm>
#include <utility>

#include "platform/errors.h"
#include "platform/win32/surface_bitmap.h"

namespace platform {

namespace win32 {

namespace {

[[noreturn]] void outOfMemory() {
    throw RuntimeError(error::badPicture, "Der Arbeitsspeicher reicht für das Bild nicht aus.");
}

}  // namespace

BitmapDc::BitmapDc(Size size) : size_{std::max(0, size.width), std::max(0, size.height)} {
    if (size_.width == 0 || size_.height == 0) return;
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = size_.width;
    info.bmiHeader.biHeight = -size_.height;  // rows from the top
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    // More than the system's 32-bit sizes can tell it would refuse less clearly.
    if (std::int64_t{size_.width} * size_.height > INT32_MAX / 4) outOfMemory();
    void* pixels = nullptr;
    bitmap_ = UniqueBitmap(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &pixels, nullptr, 0));
    if (!bitmap_) outOfMemory();
    pixels_ = static_cast<std::uint32_t*>(pixels);
}

BitmapDc::BitmapDc(BitmapDc&& other) noexcept
    : size_(std::exchange(other.size_, Size{})),
      bitmap_(std::move(other.bitmap_)),
      dc_(std::move(other.dc_)),
      before_(std::exchange(other.before_, nullptr)),
      pixels_(std::exchange(other.pixels_, nullptr)) {}

BitmapDc::~BitmapDc() {
    giveDcBack();
}

HDC BitmapDc::dc() const {
    if (!dc_ && bitmap_) {
        dc_ = UniqueDc(CreateCompatibleDC(nullptr));
        before_ = SelectObject(dc_.get(), bitmap_.get());
    }
    return dc_.get();
}

void BitmapDc::giveDcBack() const {
    if (dc_ && before_) SelectObject(dc_.get(), before_);
    dc_.reset();
}

}  // namespace win32

Surface::Surface() : Surface(Size{}) {}

Surface::Surface(Size size) : native_(std::make_unique<Native>(Native{win32::BitmapDc(size)})) {}

Surface::~Surface() = default;
Surface::Surface(Surface&&) noexcept = default;
Surface& Surface::operator=(Surface&&) noexcept = default;

Size Surface::size() const {
    return native_->bitmap.size();
}

std::uint32_t* Surface::row(int y) {
    return native_->bitmap.row(y);
}

const std::uint32_t* Surface::row(int y) const {
    return native_->bitmap.row(y);
}

void Surface::fill(Colour colour) {
    for (int y = 0; y < size().height; ++y) std::fill_n(row(y), size().width, colour);
}

}  // namespace platform
