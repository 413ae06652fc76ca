#include "platform/splitter_bar.h"

#include <algorithm>

#include "platform/metrics.h"

namespace platform {

namespace {
constexpr int keyStep = 8;  // at 96 dots per inch
}

SplitterBar::SplitterBar(Container& parent, const std::string& name, Direction direction)
    : control_(parent, name, "kvSplitterBar"), direction_(direction) {
    const bool sideways = direction_ == Direction::vertical;
    control_.setPointer(sideways ? Pointer::sizeWE : Pointer::sizeNS);
    control_.setTabStop(true);
    control_.setRole(UserControl::Role::separator);
    control_.setAccessibleName(sideways ? "Teiler links und rechts" : "Teiler oben und unten");
    control_.onPaint = [this](Canvas& canvas) {
        const Size size = control_.clientSize();
        const Rect all = Rect::at(0, 0, size.width, size.height);
        canvas.fill(all, systemColour(SystemColour::buttonFace));
        if (control_.showsFocus()) canvas.frame(all, systemColour(SystemColour::greyText));
    };
    control_.onMouseDown = [this](MouseButton button, int, Point point) {
        if (button == MouseButton::left) grab(point);
    };
    control_.onMouseMove = [this](MouseButton, int, Point point) { drag(point); };
    control_.onMouseUp = [this](MouseButton button, int, Point) {
        if (button == MouseButton::left) release();
    };
    control_.onCaptureLost = [this] { grabbed_.reset(); };
    control_.onKeyDown = [this](int key, int) { return press(key); };
}

int SplitterBar::along(Point point) const {
    const Rect bounds = control_.bounds();
    return direction_ == Direction::vertical ? bounds.left + point.x : bounds.top + point.y;
}

void SplitterBar::grab(Point point) {
    grabbed_ = Grab{along(point), position()};
    control_.setCapture(true);
}

// From where it was grabbed, not from step to step: a holder that keeps the bar within limits would let it
// drift away from the mouse.
void SplitterBar::drag(Point point) {
    if (!grabbed_) return;
    const Metrics m = metricsOf(control_);
    const int way = (along(point) - grabbed_->mouse) * 96 / m.dpi;
    moveTo(grabbed_->position + way);
}

void SplitterBar::release() {
    if (!grabbed_) return;
    grabbed_.reset();
    control_.setCapture(false);
}

bool SplitterBar::press(int key) {
    if (key == keyCode::escape && grabbed_) {
        const int before = grabbed_->position;
        release();
        moveTo(before);
        return true;
    }
    const bool sideways = direction_ == Direction::vertical;
    if (key == (sideways ? keyCode::left : keyCode::up)) {
        moveTo(position() - keyStep);
        return true;
    }
    if (key == (sideways ? keyCode::right : keyCode::down)) {
        moveTo(position() + keyStep);
        return true;
    }
    return false;
}

void SplitterBar::moveTo(int position) {
    const int before = SplitterBar::position();
    position_ = std::max(0, position);
    position_ = SplitterBar::position();
    if (position_ == before) return;
    if (onMove) onMove();
}

}  // namespace platform
