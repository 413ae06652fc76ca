#include "platform/user_control.h"

#include "platform/win32/canvas_dc.h"
#include "platform/win32/user_control_window.h"

namespace platform {

using win32::UserControlWindow;

namespace {

UserControlWindow& window(const UserControl& control) {
    return static_cast<UserControlWindow&>(control.native());
}

}  // namespace

UserControl::UserControl(Container& parent, const std::string& name, const std::string& windowClass)
    : Container(std::make_unique<UserControlWindow>(&parent.native(), name, windowClass)) {}

void UserControl::invalidate() {
    InvalidateRect(native_->window, nullptr, FALSE);
}

void UserControl::invalidate(Rect area) {
    const RECT r = win32::toRect(area);
    InvalidateRect(native_->window, &r, FALSE);
}

void UserControl::draw(const std::function<void(Canvas&)>& drawing) {
    Canvas canvas(std::make_unique<Canvas::Native>(Canvas::Native{window(*this).dc()}));
    drawing(canvas);
}

void UserControl::setPointer(Pointer pointer) {
    window(*this).setPointer(pointer);
}

Pointer UserControl::pointer() const {
    return window(*this).pointer();
}

void UserControl::setCapture(bool capture) {
    window(*this).setCapture(capture);
}

void UserControl::setTabStop(bool tabStop) {
    window(*this).setTabStop(tabStop);
}

bool UserControl::showsFocus() const {
    return window(*this).showsFocus();
}

void UserControl::setRole(Role role) {
    window(*this).setRole(role);
}

std::intptr_t UserControl::hWnd() const {
    return reinterpret_cast<std::intptr_t>(native_->window);
}

std::intptr_t UserControl::hDC() const {
    return reinterpret_cast<std::intptr_t>(window(*this).dc());
}

}  // namespace platform
