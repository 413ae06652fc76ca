// What stands on the screen, drawn on any canvas: nothing is erased before, so every pixel is covered here.
#include "controls/picturebox/kvPictureBox.h"
#include "controls/picturebox/region_overlay.h"
#include "controls/picturebox/view_geometry.h"

namespace controls {

using platform::Canvas;
using platform::Rect;

namespace {

platform::Colour background() {
    return platform::systemColour(platform::SystemColour::buttonFace);
}

void fillAround(Canvas& canvas, Rect whole, Rect kept) {
    kept = intersect(whole, kept);
    if (kept.empty()) return canvas.fill(whole, background());
    for (const Rect& part : {Rect{whole.left, whole.top, whole.right, kept.top},
                             Rect{whole.left, kept.bottom, whole.right, whole.bottom},
                             Rect{whole.left, kept.top, kept.left, kept.bottom},
                             Rect{kept.right, kept.top, whole.right, kept.bottom}})
        if (!part.empty()) canvas.fill(part, background());
}

}  // namespace

void kvPictureBox::paint(Canvas& canvas) const {
    if (stretch_)
        paintStretched(canvas);
    else
        paintOneToOne(canvas);
    if (showsFocus()) paintFocus(canvas);
}

// At the edge of the view, dark beside light so that it stands out from every picture.
void kvPictureBox::paintFocus(Canvas& canvas) const {
    const Rect view = stretch_ ? inner() : Rect{0, 0, viewWidth(), viewHeight()};
    canvas.frame(view, platform::systemColour(platform::SystemColour::highlight));
    canvas.frame({view.left + 1, view.top + 1, view.right - 1, view.bottom - 1},
                 platform::systemColour(platform::SystemColour::window));
}

void kvPictureBox::paintStretched(Canvas& canvas) const {
    const auto view = viewStretched(clientSize(), buffer_.picture());
    if (!view || view->picture.empty()) return canvas.fill(inner(), background());
    const Rect source = Rect::at(PictureBuffer::margin, PictureBuffer::margin, PicWidth(), PicHeight());
    canvas.stretch(view->picture, buffer_.surface(), source);
    for (const Rect& band : view->bands)
        if (!band.empty()) canvas.fill(band, background());
}

void kvPictureBox::paintOneToOne(Canvas& canvas) const {
    const Rect picture = Rect::at(OffsetX_, OffsetY_, PicWidth(), PicHeight());
    fillAround(canvas, inner(), picture);
    // Scrolled pictures reach far beyond the control; only what is in it is copied.
    const Rect seen = intersect(inner(), picture);
    if (!seen.empty())
        canvas.copy(
            seen, buffer_.surface(),
            {seen.left - OffsetX_ + PictureBuffer::margin, seen.top - OffsetY_ + PictureBuffer::margin});
    const Rect corner{viewWidth(), viewHeight(), inner().right, inner().bottom};
    if (sizeGrip_)
        canvas.sizeGrip(corner);
    else
        canvas.fill(corner, background());
    if (showROIs_) drawRegions(canvas, regions_, offset());
}

}  // namespace controls
