#include "platform/canvas.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "platform/headless/pixels.h"

namespace platform {

namespace {

using Pixels = Surface::Native;

constexpr Colour edgeShadow = 0xA0A0A0;
constexpr Colour edgeDarkShadow = 0x696969;
constexpr Colour edgeLight = 0xE3E3E3;
constexpr Colour edgeHighlight = 0xFFFFFF;

/// The columns or rows of the source that a stretch takes for the `count` pixels of the target.
std::vector<int> takenFrom(int start, int extent, int count) {
    std::vector<int> taken(static_cast<std::size_t>(count));
    for (std::size_t i = 0; i < taken.size(); ++i)
        taken[i] = start + static_cast<int>(static_cast<std::int64_t>(i) * extent / count);
    return taken;
}

/// Rows are copied in the order that also suits a surface that is copied onto itself.
void copyRows(Pixels& target, Rect area, Pixels& source, Point from) {
    const bool downwards = from.y >= area.top;
    const std::size_t bytes = static_cast<std::size_t>(area.width()) * sizeof(Colour);
    for (int i = 0; i < area.height(); ++i) {
        const int y = downwards ? i : area.height() - 1 - i;
        std::memmove(target.row(area.top + y) + area.left, source.row(from.y + y) + from.x, bytes);
    }
}

}  // namespace

Colour systemColour(SystemColour colour) {
    static constexpr std::array<Colour, 6> colours{0xF0F0F0, 0xFFFFE1, 0xFFFFFF,
                                                   0x000000, 0x0078D7, 0x6D6D6D};
    return colours.at(static_cast<std::size_t>(colour));
}

Canvas::Canvas(Surface& surface)
    : native_(std::make_unique<Native>(
          Native{surface.native(), {Rect::at(0, 0, surface.size().width, surface.size().height)}})) {}

Canvas::Canvas(std::unique_ptr<Native> native) : native_(std::move(native)) {}

Canvas::~Canvas() = default;

void Canvas::fill(Rect area, Colour colour) {
    for (const Rect& part : native_->parts) {
        const Rect visible = intersect(area, part);
        for (int y = visible.top; y < visible.bottom; ++y)
            std::fill_n(native_->surface.row(y) + visible.left, visible.width(), colour);
    }
}

void Canvas::frame(Rect area, Colour colour) {
    if (area.empty()) return;
    fill({area.left, area.top, area.right, area.top + 1}, colour);
    fill({area.left, area.bottom - 1, area.right, area.bottom}, colour);
    fill({area.left, area.top, area.left + 1, area.bottom}, colour);
    fill({area.right - 1, area.top, area.right, area.bottom}, colour);
}

void Canvas::rectangle(Rect area, Colour frameColour, Colour inside) {
    fill(area, inside);
    frame(area, frameColour);
}

void Canvas::copy(Rect area, const Surface& source, Point from) {
    const Size size = source.size();
    const Rect covered = Rect::at(area.left - from.x, area.top - from.y, size.width, size.height);
    for (const Rect& part : native_->parts) {
        const Rect visible = intersect(intersect(area, covered), part);
        copyRows(native_->surface, visible, source.native(),
                 {from.x + visible.left - area.left, from.y + visible.top - area.top});
    }
}

void Canvas::stretch(Rect area, const Surface& source, Rect from) {
    if (area.empty() || from.empty()) return;
    const Size size = source.size();
    const std::vector<int> columns = takenFrom(from.left, from.width(), area.width());
    const std::vector<int> rows = takenFrom(from.top, from.height(), area.height());
    for (const Rect& part : native_->parts) {
        const Rect visible = intersect(area, part);
        for (int y = visible.top; y < visible.bottom; ++y) {
            const int sourceY = rows[static_cast<std::size_t>(y - area.top)];
            if (sourceY < 0 || sourceY >= size.height) continue;
            Colour* target = native_->surface.row(y);
            const Colour* taken = source.row(sourceY);
            for (int x = visible.left; x < visible.right; ++x) {
                const int sourceX = columns[static_cast<std::size_t>(x - area.left)];
                if (sourceX >= 0 && sourceX < size.width) target[x] = taken[sourceX];
            }
        }
    }
}

void Canvas::sizeGrip(Rect area) {
    fill(area, systemColour(SystemColour::buttonFace));
    // Three diagonals of dots in the lower right corner.
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j <= i; ++j) {
            const int x = area.right - 4 - 4 * j;
            const int y = area.bottom - 4 - 4 * (i - j);
            fill(intersect(area, Rect::at(x, y, 2, 2)), edgeShadow);
        }
}

void Canvas::sunkenEdge(Rect area) {
    const auto edge = [this](Rect r, Colour topLeft, Colour bottomRight) {
        fill({r.left, r.top, r.right - 1, r.top + 1}, topLeft);
        fill({r.left, r.top, r.left + 1, r.bottom - 1}, topLeft);
        fill({r.left, r.bottom - 1, r.right, r.bottom}, bottomRight);
        fill({r.right - 1, r.top, r.right, r.bottom}, bottomRight);
    };
    edge(area, edgeShadow, edgeHighlight);
    edge({area.left + 1, area.top + 1, area.right - 1, area.bottom - 1}, edgeDarkShadow, edgeLight);
}

}  // namespace platform
