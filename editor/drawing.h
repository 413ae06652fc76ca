#pragma once

#include <cstdint>
#include <vector>

#include "platform/icon_image.h"

namespace editor {

/// Draws icons from shapes, so that they are sharp at every resolution. Coordinates are sixteenths of the
/// icon's side: (0, 0) is its top left, (16, 16) its bottom right. Colours are 0xRRGGBB.
class Drawing {
  public:
    struct Corner {
        double x, y;
    };

    explicit Drawing(int size);

    Drawing& polygon(const std::vector<Corner>& corners, std::uint32_t colour);
    Drawing& box(double left, double top, double right, double bottom, std::uint32_t colour);
    Drawing& disc(double x, double y, double radius, std::uint32_t colour);
    /// The part of a ring between two angles (degrees, clockwise from the right).
    Drawing& arc(double x, double y, double radius, double width, double from, double to,
                 std::uint32_t colour);

    platform::IconImage image() const;

  private:
    static constexpr int samples = 4;  // each way within a pixel
    template <class Inside>
    Drawing& fill(Inside inside, std::uint32_t colour);

    int size_;
    std::vector<std::uint32_t> grid_;  // 0 where nothing was drawn, else 0xFFRRGGBB
};

}  // namespace editor
