#include "platform/user_control.h"

#include <algorithm>
#include <utility>

#include "platform/headless/desk.h"
#include "platform/headless/event.h"
#include "platform/headless/user_control_window.h"

namespace platform {

using headless::Desk;
using headless::UserControlWindow;

namespace headless {

namespace {

constexpr std::size_t mostParts = 16;  // of what is to be painted; more are painted as one

Rect around(const Rect& a, const Rect& b) {
    return {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
            std::max(a.bottom, b.bottom)};
}

}  // namespace

void UserControlWindow::resized() {
    screen_ = Surface(clientSize());
    invalidateAll();
    raise(userControl().onResize);
}

void UserControlWindow::captureLost() {
    pressed_ = false;
    raise(userControl().onCaptureLost);
}

void UserControlWindow::showFocus(bool on) {
    if (std::exchange(showsFocus, on) != on && tabStop) invalidateAll();
}

void UserControlWindow::key(int key, int shift) {
    ask(userControl().onKeyDown, false, key, shift);
}

void UserControlWindow::invalidateAll() {
    invalid_.clear();
    invalidate(client());
}

void UserControlWindow::invalidate(Rect area) {
    area = intersect(area, client());
    if (area.empty()) return;
    for (const Rect& part : invalid_)
        if (intersect(part, area) == area) return;
    invalid_.push_back(area);
    if (invalid_.size() > mostParts) {
        for (const Rect& part : invalid_) area = around(area, part);
        invalid_.assign(1, area);
    }
    queuePaint();
}

void UserControlWindow::paint() {
    if (invalid_.empty() || !seen()) return;
    Canvas canvas(
        std::make_unique<Canvas::Native>(Canvas::Native{screen_.native(), std::exchange(invalid_, {})}));
    raise(userControl().onPaint, canvas);
}

void UserControlWindow::mouseDown(MouseButton button, int shift, Point point) {
    focusByMouse_ = true;
    if (tabStop) focus();
    focusByMouse_ = false;
    pressed_ = button == MouseButton::left;
    raise(userControl().onMouseDown, button, shift, point);
}

void UserControlWindow::mouseUp(MouseButton button, int shift, Point point) {
    const bool clicked =
        button == MouseButton::left && std::exchange(pressed_, false) && client().contains(point);
    raise(userControl().onMouseUp, button, shift, point);
    if (clicked) raise(userControl().onClick);
}

}  // namespace headless

namespace {

UserControlWindow& window(const UserControl& control) {
    return static_cast<UserControlWindow&>(control.native());
}

}  // namespace

// Windows in memory have no classes.
UserControl::UserControl(Container& parent, const std::string& name, const std::string&)
    : Container(std::make_unique<UserControlWindow>(&parent.native(), name)) {}

void UserControl::invalidate() {
    window(*this).invalidateAll();
}

void UserControl::invalidate(Rect area) {
    window(*this).invalidate(area);
}

void UserControl::draw(const std::function<void(Canvas&)>& drawing) {
    UserControlWindow& self = window(*this);
    std::vector<Rect> parts;
    if (self.seen()) parts.push_back(self.client());
    Canvas canvas(std::make_unique<Canvas::Native>(Canvas::Native{self.screen().native(), std::move(parts)}));
    drawing(canvas);
}

void UserControl::setPointer(Pointer pointer) {
    window(*this).pointer = pointer;
}

Pointer UserControl::pointer() const {
    return window(*this).pointer;
}

void UserControl::setCapture(bool capture) {
    if (capture)
        Desk::instance().setCapture(native_.get());
    else if (Desk::instance().capture() == native_.get())
        Desk::instance().releaseCapture();
}

void UserControl::setTabStop(bool tabStop) {
    window(*this).tabStop = tabStop;
}

bool UserControl::showsFocus() const {
    return window(*this).showsFocus;
}

// Nobody listens to a window in memory.
void UserControl::setRole(Role) {}

std::intptr_t UserControl::hWnd() const {
    return reinterpret_cast<std::intptr_t>(native_.get());
}

std::intptr_t UserControl::hDC() const {
    return reinterpret_cast<std::intptr_t>(native_.get()) + 1;
}

}  // namespace platform
