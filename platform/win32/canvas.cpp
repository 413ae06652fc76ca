#include "platform/canvas.h"

#include <array>

#include "platform/win32/canvas_dc.h"
#include "platform/win32/surface_bitmap.h"

namespace platform {

using win32::toRect;

namespace {

/// Windows has red in the lowest byte.
COLORREF windowsColour(Colour colour) {
    return RGB((colour >> 16) & 0xFF, (colour >> 8) & 0xFF, colour & 0xFF);
}

/// The stock brush whose colour belongs to the device context.
HBRUSH brushOf(HDC dc, Colour colour) {
    SetDCBrushColor(dc, windowsColour(colour));
    return static_cast<HBRUSH>(GetStockObject(DC_BRUSH));
}

}  // namespace

Colour systemColour(SystemColour colour) {
    static constexpr std::array indices{COLOR_BTNFACE,    COLOR_INFOBK,    COLOR_WINDOW,
                                        COLOR_WINDOWTEXT, COLOR_HIGHLIGHT, COLOR_GRAYTEXT};
    const COLORREF found = GetSysColor(indices.at(static_cast<std::size_t>(colour)));
    return static_cast<Colour>(GetRValue(found) << 16 | GetGValue(found) << 8 | GetBValue(found));
}

Canvas::Canvas(Surface& surface)
    : native_(std::make_unique<Native>(Native{surface.native().bitmap.dc(), true})) {}

Canvas::Canvas(std::unique_ptr<Native> native) : native_(std::move(native)) {}

Canvas::~Canvas() {
    if (native_->flush) GdiFlush();
}

void Canvas::fill(Rect area, Colour colour) {
    if (area.empty()) return;
    const RECT r = toRect(area);
    FillRect(native_->dc, &r, brushOf(native_->dc, colour));
}

void Canvas::frame(Rect area, Colour colour) {
    if (area.empty()) return;
    const RECT r = toRect(area);
    FrameRect(native_->dc, &r, brushOf(native_->dc, colour));
}

void Canvas::rectangle(Rect area, Colour frameColour, Colour inside) {
    fill(area, inside);
    frame(area, frameColour);
}

void Canvas::copy(Rect area, const Surface& source, Point from) {
    const Size size = source.size();
    const Rect covered = Rect::at(area.left - from.x, area.top - from.y, size.width, size.height);
    const Rect visible = intersect(area, covered);  // beyond its edge a source has no pixels
    if (visible.empty()) return;
    BitBlt(native_->dc, visible.left, visible.top, visible.width(), visible.height(),
           source.native().bitmap.dc(), from.x + visible.left - area.left, from.y + visible.top - area.top,
           SRCCOPY);
}

void Canvas::stretch(Rect area, const Surface& source, Rect from) {
    if (area.empty() || from.empty()) return;
    SetStretchBltMode(native_->dc, COLORONCOLOR);
    StretchBlt(native_->dc, area.left, area.top, area.width(), area.height(), source.native().bitmap.dc(),
               from.left, from.top, from.width(), from.height(), SRCCOPY);
}

void Canvas::sizeGrip(Rect area) {
    RECT r = toRect(area);
    DrawFrameControl(native_->dc, &r, DFC_SCROLL, DFCS_SCROLLSIZEGRIP);
}

void Canvas::sunkenEdge(Rect area) {
    RECT r = toRect(area);
    DrawEdge(native_->dc, &r, EDGE_SUNKEN, BF_RECT);
}

}  // namespace platform
