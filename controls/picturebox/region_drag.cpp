#include "controls/picturebox/region_drag.h"

#include <algorithm>
#include <cstdint>
#include <initializer_list>

#include "platform/list_view.h"

namespace controls {

using platform::Point;
using platform::Size;

namespace {

constexpr int step = 10;
constexpr int fineStep = 1;

/// How far a whole region can go: not over the far edge, and else not over the near one.
std::int64_t fitted(std::int64_t way, std::int32_t start, std::int32_t end, int extent) {
    return std::min(std::max(way, -std::int64_t{start}), std::int64_t{extent} - end);
}

std::int32_t shifted(std::int32_t edge, std::int64_t way, int extent) {
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(edge + way, 0, extent));
}

std::optional<Point> direction(int key) {
    switch (key) {
        case platform::keyCode::left:
            return Point{-1, 0};
        case platform::keyCode::right:
            return Point{1, 0};
        case platform::keyCode::up:
            return Point{0, -1};
        case platform::keyCode::down:
            return Point{0, 1};
        default:
            return std::nullopt;
    }
}

}  // namespace

RegionRecord dragged(const RegionRecord& start, HitCode code, Point way, Size picture) {
    const auto holds = [code](std::initializer_list<HitCode> codes) {
        return code == HitCode::inside || std::find(codes.begin(), codes.end(), code) != codes.end();
    };
    std::int64_t x = way.x;
    std::int64_t y = way.y;
    if (code == HitCode::inside) {
        x = fitted(x, start.Left, start.Right, picture.width);
        y = fitted(y, start.Top, start.Bottom, picture.height);
    }
    using enum HitCode;
    RegionRecord region = start;
    if (holds({topLeft, bottomLeft, left})) region.Left = shifted(start.Left, x, picture.width);
    if (holds({topLeft, top, topRight})) region.Top = shifted(start.Top, y, picture.height);
    if (holds({topRight, right, bottomRight})) region.Right = shifted(start.Right, x, picture.width);
    if (holds({bottomRight, bottom, bottomLeft})) region.Bottom = shifted(start.Bottom, y, picture.height);
    region.putInOrder();
    return region;
}

std::optional<RegionRecord> nudged(const RegionRecord& region, int key, int shift, Size picture) {
    const auto towards = direction(key);
    if (!towards || (shift & platform::shiftKey::alt) != 0) return std::nullopt;
    const int pixels = (shift & platform::shiftKey::control) != 0 ? fineStep : step;
    const Point way{towards->x * pixels, towards->y * pixels};
    if ((shift & platform::shiftKey::shift) == 0) return dragged(region, HitCode::inside, way, picture);
    const RegionRecord start = dragged(region, HitCode::inside, {}, picture);
    if (towards->x != 0) return dragged(start, HitCode::right, {std::max(way.x, 1 - start.dX()), 0}, picture);
    return dragged(start, HitCode::bottom, {0, std::max(way.y, 1 - start.dY())}, picture);
}

}  // namespace controls
