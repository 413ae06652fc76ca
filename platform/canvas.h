#pragma once

#include <memory>
#include <string_view>

#include "platform/surface.h"

namespace platform {

enum class SystemColour { buttonFace, infoBackground, window, windowText, highlight, greyText };
Colour systemColour(SystemColour colour);

/// Something to draw on: a window's client area or a surface. Coordinates are pixels from its top left;
/// what lies outside is cut off.
class Canvas {
  public:
    /// Draws into the surface, which must outlive the canvas.
    explicit Canvas(Surface& surface);
    ~Canvas();
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    void fill(Rect area, Colour colour);
    /// A frame one pixel wide just inside the rectangle; what is in it stays.
    void frame(Rect area, Colour colour);
    /// A filled rectangle with a frame one pixel wide.
    void rectangle(Rect area, Colour frame, Colour inside);

    /// Copies pixels 1:1; `from` is the source's point that comes to the top left of `area`.
    void copy(Rect area, const Surface& source, Point from);
    /// Copies `from` enlarged or reduced onto `area`, dropping pixels rather than mixing them.
    void stretch(Rect area, const Surface& source, Rect from);

    /// The corner by which a window is sized (DFC_SCROLL, DFCS_SCROLLSIZEGRIP).
    void sizeGrip(Rect area);
    /// A sunken edge around the rectangle (EDGE_SUNKEN, BF_RECT).
    void sunkenEdge(Rect area);

    struct Native;
    explicit Canvas(std::unique_ptr<Native> native);   ///< by the platform, for a window
    Native& native() const { return *native_; }

  private:
    std::unique_ptr<Native> native_;
};

}  // namespace platform
