#pragma once

namespace platform {

/// Pixels everywhere, unless a member says otherwise.
struct Point {
    int x = 0;
    int y = 0;
    friend bool operator==(const Point&, const Point&) = default;
};

struct Size {
    int width = 0;
    int height = 0;
    friend bool operator==(const Size&, const Size&) = default;
};

/// Left and top belong to the rectangle, right and bottom do not.
struct Rect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    static constexpr Rect at(int x, int y, int width, int height) { return {x, y, x + width, y + height}; }

    constexpr int width() const { return right - left; }
    constexpr int height() const { return bottom - top; }
    constexpr bool empty() const { return right <= left || bottom <= top; }
    constexpr bool contains(Point p) const { return p.x >= left && p.x < right && p.y >= top && p.y < bottom; }

    friend bool operator==(const Rect&, const Rect&) = default;
};

constexpr Rect intersect(const Rect& a, const Rect& b) {
    const Rect r{a.left > b.left ? a.left : b.left, a.top > b.top ? a.top : b.top,
                 a.right < b.right ? a.right : b.right, a.bottom < b.bottom ? a.bottom : b.bottom};
    return r.empty() ? Rect{} : r;
}

}  // namespace platform
