// What the user does to regions and picture with the mouse, and to the selected region with the arrow keys.
#include <array>

#include "controls/picturebox/kvPictureBox.h"
#include "controls/picturebox/region_drag.h"

namespace controls {

using platform::MouseButton;
using platform::Point;
using platform::Pointer;

namespace {

Pointer pointerFor(HitCode code) {
    static constexpr std::array pointers{
        Pointer::arrow,    Pointer::sizeNWSE, Pointer::sizeNS,   Pointer::sizeNESW, Pointer::sizeWE,
        Pointer::sizeNWSE, Pointer::sizeNS,   Pointer::sizeNESW, Pointer::sizeWE,   Pointer::arrow};
    return pointers.at(static_cast<std::size_t>(code));
}

}  // namespace

bool kvPictureBox::onView(Point at) const {
    return !stretch_ && at.x <= viewWidth() && at.y <= viewHeight();
}

HitCode kvPictureBox::hit(int index, Point at) const {
    return regions_.has(index) ? HitTestRegion(regions_.at(index), offset(), at) : HitCode::none;
}

void kvPictureBox::mouseDown(MouseButton button, Point at) {
    if (!onView(at)) return;
    const int selected = regions_.lastSelected();
    const HitCode code = hit(selected, at);
    drag_ = {.Dragging = true, .start = at, .last = at, .offset = offset()};
    regions_.SelectedIndex = 0;
    setCapture(true);
    int chosen = 0;
    const bool grabs = code != HitCode::none && (button == MouseButton::left ||
                                                 (button == MouseButton::right && code != HitCode::inside));
    if (showROIs_ && allowROImove_ && grabs) {
        BeginDrag(selected, code);
        chosen = selected;
        if (code == HitCode::inside) setPointer(Pointer::move);
    } else if (showROIs_) {
        chosen = pick(at, selected, code);
    }
    const bool anotherOne = chosen != 0 && chosen != selected;
    if (code != HitCode::inside && !anotherOne) setPointer(Pointer::move);
    Refresh();
    regions_.CurrentIndex = chosen;
    raiseROIselect(chosen);
}

/// The selected region yields to any other one at that point. Of several the last is taken, and those before
/// it stay selected until the next press.
int kvPictureBox::pick(Point at, int selected, HitCode selectedCode) {
    int chosen = 0;
    for (int i = 1; i <= regions_.count(); ++i) {
        if (i == selected) continue;
        if (hit(i, at) != HitCode::inside) {
            regions_.at(i).Selected = false;
            continue;
        }
        if (selected != 0) regions_.at(selected).Selected = false;
        BeginDrag(i, HitCode::inside);
        chosen = i;
    }
    if (chosen != 0 || selectedCode == HitCode::none) return chosen;
    BeginDrag(selected, selectedCode);
    return selected;
}

void kvPictureBox::BeginDrag(int index, HitCode code) {
    regions_.at(index).Selected = true;
    regions_.at(0) = regions_.at(index);
    regions_.SelectedIndex = index;
    drag_.code = code;
}

void kvPictureBox::mouseMove(MouseButton held, Point at) {
    if (held == MouseButton::none) endDrag();  // someone else saw the release
    if (!drag_.Dragging) return setPointer(hoverPointer(at));
    // The system tells of moves where nothing moved, and a click must not count as a change.
    if (!onView(at) || at == drag_.last) return;
    drag_.last = at;
    const Point way{at.x - drag_.start.x, at.y - drag_.start.y};
    if (drag_.code == HitCode::none)
        scrollTo({drag_.offset.x + way.x, drag_.offset.y + way.y});
    else if (allowROImove_ && regions_.has(regions_.SelectedIndex))
        reshape(regions_.SelectedIndex, dragged(regions_.at(0), drag_.code, way, buffer_.picture()));
}

Pointer kvPictureBox::hoverPointer(Point at) const {
    if (!onView(at) || !allowROImove_ || !showROIs_) return Pointer::arrow;
    HitCode code = hit(regions_.SelectedIndex, at);
    for (int i = 1; i <= regions_.count() && code == HitCode::none; ++i) code = hit(i, at);
    return pointerFor(code);
}

void kvPictureBox::endDrag() {
    if (!drag_.Dragging) return;
    drag_.Dragging = false;
    if (regions_.has(regions_.SelectedIndex)) regions_.at(regions_.SelectedIndex).putInOrder();
    setPointer(Pointer::arrow);
    setCapture(false);
}

void kvPictureBox::takeBack() {
    endDrag();
    if (drag_.code == HitCode::none) return scrollTo(drag_.offset);
    const int index = regions_.SelectedIndex;
    const RegionRecord before = regions_.at(0);
    if (regions_.has(index) && regions_.at(index) != before) reshape(index, before);
}

bool kvPictureBox::keyDown(int key, int shift) {
    if (drag_.Dragging) {
        if (key == platform::keyCode::escape) takeBack();
        return key == platform::keyCode::escape;
    }
    const int index = regions_.lastSelected();
    // After a press beside all regions one may still have its handles, but the host was told of none.
    const bool told = index == regions_.CurrentIndex || index == regions_.SelectedIndex;
    if (index == 0 || !told || stretch_ || !showROIs_ || !allowROImove_) return false;
    const RegionRecord before = regions_.at(index);
    const auto after = nudged(before, key, shift, buffer_.picture());
    if (!after) return false;
    if (*after == before) return true;
    setEdges(index, *after);
    scrollAlong(before, *after);
    update();
    raise(ROImove, index, index - 1);
    return true;
}

void kvPictureBox::reshape(int index, const RegionRecord& edges) {
    setEdges(index, edges);
    update();  // in the bands around it, and nowhere else
    raise(ROImove, index, index - 1);
}

}  // namespace controls
