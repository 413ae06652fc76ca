#include "editor/drawing.h"

#include <cmath>
#include <numbers>

namespace editor {

namespace {

bool insidePolygon(const std::vector<Drawing::Corner>& corners, double x, double y) {
    bool inside = false;
    for (std::size_t i = 0, j = corners.size() - 1; i < corners.size(); j = i++) {
        const auto& a = corners[i];
        const auto& b = corners[j];
        const bool crosses = (a.y > y) != (b.y > y);
        if (crosses && x < (b.x - a.x) * (y - a.y) / (b.y - a.y) + a.x) inside = !inside;
    }
    return inside;
}

}  // namespace

Drawing::Drawing(int size)
    : size_(size),
      grid_(static_cast<std::size_t>(size * samples) * static_cast<std::size_t>(size * samples)) {}

template <class Inside>
Drawing& Drawing::fill(Inside inside, std::uint32_t colour) {
    const int side = size_ * samples;
    for (int row = 0; row < side; ++row) {
        for (int column = 0; column < side; ++column) {
            if (inside((column + 0.5) * 16 / side, (row + 0.5) * 16 / side)) {
                grid_[static_cast<std::size_t>(row * side + column)] = 0xFF000000u | colour;
            }
        }
    }
    return *this;
}

Drawing& Drawing::polygon(const std::vector<Corner>& corners, std::uint32_t colour) {
    return fill([&](double x, double y) { return insidePolygon(corners, x, y); }, colour);
}

Drawing& Drawing::box(double left, double top, double right, double bottom, std::uint32_t colour) {
    return fill([=](double x, double y) { return x >= left && x < right && y >= top && y < bottom; }, colour);
}

Drawing& Drawing::disc(double x, double y, double radius, std::uint32_t colour) {
    return fill([=](double px, double py) { return std::hypot(px - x, py - y) <= radius; }, colour);
}

Drawing& Drawing::arc(double x, double y, double radius, double width, double from, double to,
                      std::uint32_t colour) {
    return fill(
        [=](double px, double py) {
            const double distance = std::hypot(px - x, py - y);
            if (std::abs(distance - radius) > width / 2) return false;
            const double angle = std::atan2(py - y, px - x) * 180 / std::numbers::pi;
            const double turned = std::fmod(angle - from + 720, 360);
            return turned <= to - from;
        },
        colour);
}

platform::IconImage Drawing::image() const {
    platform::IconImage result{size_, {}};
    result.pixels.reserve(static_cast<std::size_t>(size_) * static_cast<std::size_t>(size_));
    const int side = size_ * samples;
    for (int y = 0; y < size_; ++y) {
        for (int x = 0; x < size_; ++x) {
            std::uint32_t covered = 0, red = 0, green = 0, blue = 0;
            for (int sample = 0; sample < samples * samples; ++sample) {
                const int row = y * samples + sample / samples;
                const int column = x * samples + sample % samples;
                const std::uint32_t colour = grid_[static_cast<std::size_t>(row * side + column)];
                if (colour == 0) continue;
                ++covered;
                red += colour >> 16 & 0xFF;
                green += colour >> 8 & 0xFF;
                blue += colour & 0xFF;
            }
            const std::uint32_t alpha = covered * 255 / (samples * samples);
            const auto mean = [&](std::uint32_t sum) { return covered == 0 ? 0 : sum / covered; };
            result.pixels.push_back(alpha << 24 | mean(red) << 16 | mean(green) << 8 | mean(blue));
        }
    }
    return result;
}

}  // namespace editor
