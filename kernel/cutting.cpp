#include "kernel/cutting.h"

#include <algorithm>
#include <cstddef>

#include "platform/errors.h"

namespace kernel {

namespace {

[[noreturn]] void refuse(const Area& area, const std::string& what) {
    throw platform::RuntimeError(platform::error::subscriptOutOfRange,
                                 "Der Bereich " + std::to_string(area.X) + ", " + std::to_string(area.Y) +
                                     " mit " + std::to_string(area.dX) + " x " + std::to_string(area.dY) +
                                     " Pixeln " + what);
}

/// `value` in `count` bytes, the lowest first.
void append(std::string& bytes, std::size_t value, int count) {
    for (int i = 0; i < count; ++i) bytes += static_cast<char>(value >> (8 * i));
}

}  // namespace

platform::Rect clipped(const Area& area, platform::Size picture) {
    if (area.dX <= 0 || area.dY <= 0) refuse(area, "hat keine Ausdehnung.");
    const auto edge = [](std::int64_t at, int extent) {
        return static_cast<int>(std::clamp<std::int64_t>(at, 0, extent));
    };
    const platform::Rect inside{edge(area.X, picture.width), edge(area.Y, picture.height),
                                edge(std::int64_t{area.X} + area.dX, picture.width),
                                edge(std::int64_t{area.Y} + area.dY, picture.height)};
    if (inside.empty()) refuse(area, "liegt außerhalb des Bildes.");
    return inside;
}

std::string bitmapOf(const platform::Raster& picture, const platform::Rect& part) {
    constexpr std::size_t fileHeader = 14, infoHeader = 40;
    const auto bytesPerPixel = static_cast<std::size_t>(picture.bitsPerPixel / 8);
    const auto width = static_cast<std::size_t>(part.width()),
               height = static_cast<std::size_t>(part.height());
    const std::size_t used = width * bytesPerPixel;
    const std::size_t stride = (used + 3) / 4 * 4;
    const std::size_t start = fileHeader + infoHeader + 4 * picture.palette.size();

    std::string file;
    file.reserve(start + stride * height);
    file += "BM";
    append(file, start + stride * height, 4);
    append(file, 0, 4);
    append(file, start, 4);
    append(file, infoHeader, 4);
    append(file, width, 4);
    append(file, height, 4);  // positive: from the bottom
    append(file, 1, 2);       // plane
    append(file, static_cast<std::size_t>(picture.bitsPerPixel), 2);
    append(file, 0, 4);  // not compressed
    append(file, stride * height, 4);
    append(file, 0, 8);  // resolution unknown
    append(file, picture.palette.size(), 4);
    append(file, 0, 4);  // all colours matter
    for (const platform::Colour colour : picture.palette) append(file, colour, 4);
    for (int y = part.bottom - 1; y >= part.top; --y) {
        const std::uint8_t* row = picture.rows.data() + static_cast<std::size_t>(y) * picture.bytesPerRow() +
                                  static_cast<std::size_t>(part.left) * bytesPerPixel;
        file.append(reinterpret_cast<const char*>(row), used);
        file.append(stride - used, '\0');
    }
    return file;
}

}  // namespace kernel
