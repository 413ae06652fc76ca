#include "platform/win32/user_control_window.h"

#include <utility>

#include "platform/win32/accessible.h"
#include "platform/win32/canvas_dc.h"
#include "platform/win32/event.h"
#include "platform/win32/loop.h"
#include "res/resource.h"

namespace platform::win32 {

namespace {

HCURSOR systemCursor(const wchar_t* name) {
    return LoadCursorW(nullptr, name);
}

HCURSOR cursorFor(Pointer pointer) {
    switch (pointer) {
        case Pointer::sizeNESW:
            return systemCursor(IDC_SIZENESW);
        case Pointer::sizeNS:
            return systemCursor(IDC_SIZENS);
        case Pointer::sizeNWSE:
            return systemCursor(IDC_SIZENWSE);
        case Pointer::sizeWE:
            return systemCursor(IDC_SIZEWE);
        case Pointer::hourglass:
            return systemCursor(IDC_WAIT);
        case Pointer::move:
            return LoadCursorW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDC_MOVE));
        default:
            return systemCursor(IDC_ARROW);
    }
}

}  // namespace

UserControlWindow::UserControlWindow(Native* parentWindow, const std::string& controlName,
                                     const std::string& windowClass)
    : ContainerWindow(parentWindow, controlName) {
    createOwn({.windowClass = windowClass,
               .classStyle = CS_OWNDC | CS_HREDRAW | CS_VREDRAW,
               .extendedStyle = WS_EX_CONTROLPARENT});
    dc_ = GetDC(window);  // of a class with CS_OWNDC: goes with the window
}

Handled UserControlWindow::handle(const Message& m) {
    static constexpr Route<UserControlWindow> routes[] = {
        on<WM_PAINT, &UserControlWindow::paint>(),
        on<WM_PRINTCLIENT, &UserControlWindow::print>(),
        on<WM_ERASEBKGND, &UserControlWindow::erase>(),
        on<WM_SIZE, &UserControlWindow::resized>(),
        on<WM_LBUTTONDOWN, &UserControlWindow::buttonDown>(),
        on<WM_RBUTTONDOWN, &UserControlWindow::buttonDown>(),
        on<WM_MBUTTONDOWN, &UserControlWindow::buttonDown>(),
        on<WM_LBUTTONUP, &UserControlWindow::buttonUp>(),
        on<WM_RBUTTONUP, &UserControlWindow::buttonUp>(),
        on<WM_MBUTTONUP, &UserControlWindow::buttonUp>(),
        on<WM_MOUSEMOVE, &UserControlWindow::mouseMoved>(),
        on<WM_MOUSEWHEEL, &UserControlWindow::wheelTurned>(),
        on<WM_CAPTURECHANGED, &UserControlWindow::captureChanged>(),
        on<WM_KEYDOWN, &UserControlWindow::keyDown>(),
        on<WM_GETDLGCODE, &UserControlWindow::wantedKeys>(),
        on<WM_SETFOCUS, &UserControlWindow::focused>(),
        on<WM_KILLFOCUS, &UserControlWindow::unfocused>(),
        raw<WM_UPDATEUISTATE, &UserControlWindow::marksChanged>(),
        on<WM_SETCURSOR, &UserControlWindow::choosePointer>(),
    };
    if (!control) return std::nullopt;  // it is being made, or taken down
    const Handled result = dispatch(*this, routes, m);
    return result ? result : ContainerWindow::handle(m);
}

void UserControlWindow::paintOn(HDC target) {
    Canvas canvas(std::make_unique<Canvas::Native>(Canvas::Native{target}));
    raise(user().onPaint, canvas);
}

Handled UserControlWindow::paint() {
    PAINTSTRUCT painting{};
    if (!BeginPaint(window, &painting)) return done;
    paintOn(painting.hdc);  // does not throw
    EndPaint(window, &painting);
    return done;
}

Handled UserControlWindow::print(HDC target) {
    paintOn(target);
    return done;
}

void UserControlWindow::resized(WPARAM, Size) {
    raise(user().onResize);
}

Handled UserControlWindow::buttonDown(MouseButton button, int shift, Point point) {
    focusByMouse_ = true;
    if (tabStop()) SetFocus(window);
    focusByMouse_ = false;
    pressed_ = button == MouseButton::left;
    raise(user().onMouseDown, button, shift, point);
    return done;
}

Handled UserControlWindow::buttonUp(MouseButton button, int shift, Point point) {
    const Size size = clientSize();
    const bool inside = Rect::at(0, 0, size.width, size.height).contains(point);
    const bool clicked = button == MouseButton::left && std::exchange(pressed_, false) && inside;
    raise(user().onMouseUp, button, shift, point);
    if (clicked) raise(user().onClick);
    return done;
}

Handled UserControlWindow::mouseMoved(MouseButton button, int shift, Point point) {
    raise(user().onMouseMove, button, shift, point);
    return done;
}

Handled UserControlWindow::wheelTurned(int distance, int shift, Point onScreen) {
    if (!user().onWheel) return std::nullopt;  // its parent may want it
    POINT point{onScreen.x, onScreen.y};
    ScreenToClient(window, &point);
    raise(user().onWheel, distance, shift, Point{point.x, point.y});
    return done;
}

void UserControlWindow::setCapture(bool on) {
    if (on) {
        captured_ = true;
        SetCapture(window);
    } else if (std::exchange(captured_, false) && GetCapture() == window) {
        ReleaseCapture();
    }
}

void UserControlWindow::captureChanged(HWND now) {
    if (now == window || !std::exchange(captured_, false)) return;
    pressed_ = false;
    raise(user().onCaptureLost);
}

Handled UserControlWindow::keyDown(int key, int shift) {
    return ask(user().onKeyDown, false, key, shift) ? done : std::nullopt;
}

Handled UserControlWindow::wantedKeys() {
    return user().onKeyDown ? DLGC_WANTARROWS : 0;
}

void UserControlWindow::focused() {
    showFocus(!focusByMouse_ && (send(WM_QUERYUISTATE) & UISF_HIDEFOCUS) == 0);
}

void UserControlWindow::unfocused() {
    showFocus(false);
}

// By the first use of the keyboard, perhaps while it has the focus.
Handled UserControlWindow::marksChanged(const Message& m) {
    const LRESULT result = passOn(m);
    if (GetFocus() == window) focused();
    return result;
}

void UserControlWindow::showFocus(bool on) {
    if (showsFocus_ == on) return;
    showsFocus_ = on;
    if (tabStop()) InvalidateRect(window, nullptr, FALSE);
}

Handled UserControlWindow::choosePointer(HWND below, int hit) {
    if (below != window || hit != HTCLIENT) return std::nullopt;
    SetCursor(waiting() ? systemCursor(IDC_WAIT) : cursorFor(pointer_));
    return TRUE;
}

void UserControlWindow::setPointer(Pointer pointer) {
    if (pointer == pointer_) return;
    pointer_ = pointer;
    // Without a movement the system would not ask again.
    POINT at{};
    if (!waiting() && GetCursorPos(&at) && WindowFromPoint(at) == window) SetCursor(cursorFor(pointer_));
}

void UserControlWindow::setRole(UserControl::Role wanted) {
    role_ = wanted == UserControl::Role::graphic    ? role::graphic
            : wanted == UserControl::Role::grouping ? role::grouping
                                                    : role::separator;
    setAccessibleRole(*this, role_);
}

void UserControlWindow::setTabStop(bool on) {
    const LONG style = GetWindowLongW(window, GWL_STYLE);
    SetWindowLongW(window, GWL_STYLE, on ? style | WS_TABSTOP : style & ~WS_TABSTOP);
}

}  // namespace platform::win32
