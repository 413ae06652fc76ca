// Any region, picture and mouse: the arithmetic of regions answers what walking there pixel by pixel gives.
#include <utility>

#include "controls/picturebox/region_drag.h"
#include "fuzz.h"
#include "platform/errors.h"
#include "platform/list_view.h"

namespace {

using namespace controls;
using platform::Point;
using platform::Size;

/// Small numbers, so that edges meet; or `wide` ones of 32 bits, which shall only do no harm.
struct Input {
    int byte() { return left == 0 ? 0 : (--left, *data++); }
    int number() {
        if (!wide) return byte() - 128;
        std::uint32_t bits = 0;
        for (int i = 0; i < 4; ++i) bits = bits << 8 | static_cast<std::uint32_t>(byte());
        return static_cast<int>(bits);
    }
    Point point() {
        const int x = number();
        return {x, number()};
    }
    const std::uint8_t* data;
    std::size_t left;
    bool wide = byte() % 4 == 0;
};

int slowHit(const RegionRecord& r, int x, int y) {
    if (x > r.Left && x < r.Right && y > r.Top && y < r.Bottom) return 9;
    if (!r.Selected) return 0;
    const auto middle = [](int sum) {
        int half = -200;
        while (half * 2 < sum - 1) ++half;
        return half * 2 != sum && half % 2 != 0 ? half + 1 : half;
    };
    const int columns[] = {r.Left - 4, middle(r.Left + r.Right), r.Right + 4};
    const int rows[] = {r.Top - 4, middle(r.Top + r.Bottom), r.Bottom + 4};
    constexpr int codes[3][3] = {{1, 2, 3}, {8, 0, 4}, {7, 6, 5}};
    int hit = 0;
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 3; ++column)
            for (int dy = -3; dy <= 3; ++dy)
                for (int dx = -3; dx <= 3; ++dx)
                    if (columns[column] + dx == x && rows[row] + dy == y && codes[row][column] > hit)
                        hit = codes[row][column];
    return hit;
}

void slowDrag(int& start, int& end, bool movesStart, bool movesEnd, int way, int extent) {
    const auto walk = [&](int& edge) {
        edge += way;
        while (edge > extent) --edge;
        while (edge < 0) ++edge;
    };
    if (movesStart && movesEnd) {
        while (start + way < 0) ++way;
        while (end + way > extent) --way;
    }
    if (movesStart) walk(start);
    if (movesEnd) walk(end);
    if (start > end) std::swap(start, end);
}

RegionRecord slowDrag(RegionRecord r, int code, Point way, Size picture) {
    const bool left[] = {0, 1, 0, 0, 0, 0, 0, 1, 1, 1}, right[] = {0, 0, 0, 1, 1, 1, 0, 0, 0, 1};
    const bool top[] = {0, 1, 1, 1, 0, 0, 0, 0, 0, 1}, bottom[] = {0, 0, 0, 0, 0, 1, 1, 1, 0, 1};
    slowDrag(r.Left, r.Right, left[code], right[code], way.x, picture.width);
    slowDrag(r.Top, r.Bottom, top[code], bottom[code], way.y, picture.height);
    return r;
}

void slowFit(Size picture, const RegionRecord& r, int& X, int& Y, int& dX, int& dY) {
    const auto walk = [](int& start, int extent, int limit) {
        while (start + extent > limit) --start;
        while (start < 0) ++start;
    };
    if (r.Left != X) walk(X, dX, picture.width);
    if (r.Top != Y) walk(Y, dY, picture.height);
    if (r.Right != X + dX)
        while (X + dX > picture.width) --dX;
    if (r.Bottom > Y + dY)
        while (Y + dY > picture.height) --dY;
}

void slowBringIn(int& start, int& end, int limit, int newEnd) {
    if (end <= limit) return;
    for (; end > newEnd; --end) --start;
    for (; end < newEnd; ++end) ++start;
    while (start < 0) ++start;
}

bool isInside(const RegionRecord& r, Size picture) {
    return 0 <= r.Left && r.Left <= r.Right && r.Right <= picture.width && 0 <= r.Top && r.Top <= r.Bottom &&
           r.Bottom <= picture.height;
}

void checkNudge(const RegionRecord& r, int key, int shift, Size picture) {
    const auto after = nudged(r, key, shift, picture);
    require(after && isInside(*after, picture));
    if (!isInside(r, picture) || r.dX() == 0 || r.dY() == 0) return;
    if ((shift & platform::shiftKey::shift) != 0)
        require(after->Left == r.Left && after->Top == r.Top && after->dX() > 0 && after->dY() > 0);
    else
        require(after->dX() == r.dX() && after->dY() == r.dY());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input{data, size};
    const auto [left, top] = input.point();
    const auto [right, bottom] = input.point();
    const RegionRecord region{left, top, right, bottom, input.byte() % 2 == 1};
    const Point at = input.point(), other = input.point();
    const Size picture{input.byte() % 128, input.byte() % 128};
    const int code = input.byte() % 10;

    const HitCode hit = HitTestRegion(region, other, at);
    const RegionRecord moved = dragged(region, static_cast<HitCode>(code), at, picture);
    checkNudge(region, platform::keyCode::left + input.byte() % 4, input.byte() % 4, picture);
    RegionRecord brought = region, walked = region;
    bringInto(picture, brought);
    RegionRecord fitted{at.x, at.y, other.x, other.y}, walkedThere = fitted;  // X, Y, dX, dY
    try {
        fitMove(picture, region, fitted.Left, fitted.Top, fitted.Right, fitted.Bottom);
    } catch (const platform::RuntimeError&) {
        require(input.wide);
    }
    if (input.wide) return 0;

    require(static_cast<int>(hit) == slowHit(region, at.x - other.x, at.y - other.y));
    require(moved == slowDrag(region, code, at, picture));
    slowBringIn(walked.Left, walked.Right, picture.width, picture.height);
    slowBringIn(walked.Top, walked.Bottom, picture.height, picture.height);
    require(brought == walked);
    slowFit(picture, region, walkedThere.Left, walkedThere.Top, walkedThere.Right, walkedThere.Bottom);
    require(fitted == walkedThere);
    return 0;
}
