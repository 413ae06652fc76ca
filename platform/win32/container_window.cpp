#include "platform/win32/container_window.h"

#include <utility>

#include "platform/win32/loop.h"

namespace platform::win32 {

Handled ContainerWindow::handle(const Message& m) {
    static constexpr Route<ContainerWindow> routes[] = {
        raw<WM_COMMAND, &ContainerWindow::reflectCommand>(),
        raw<WM_NOTIFY, &ContainerWindow::reflectNotification>(),
        raw<WM_HSCROLL, &ContainerWindow::reflectScroll>(),
        raw<WM_VSCROLL, &ContainerWindow::reflectScroll>(),
        raw<WM_CTLCOLORSTATIC, &ContainerWindow::chooseGround>(),
        raw<WM_CTLCOLORBTN, &ContainerWindow::chooseGround>(),
    };
    return dispatch(*this, routes, m);
}

HBRUSH ContainerWindow::background() {
    return GetSysColorBrush(COLOR_BTNFACE);
}

Handled ContainerWindow::reflectCommand(const Message& m) {
    Native* child = of(reinterpret_cast<HWND>(m.lParam));
    if (!child) return std::nullopt;
    if (HIWORD(m.wParam) == BN_CLICKED && !takesInput(*child)) return done;
    child->command(LOWORD(m.wParam), HIWORD(m.wParam));
    return done;
}

Handled ContainerWindow::reflectNotification(const Message& m) {
    NMHDR& header = *reinterpret_cast<NMHDR*>(m.lParam);
    Native* child = of(header.hwndFrom);
    return child ? child->notify(header) : std::nullopt;
}

Handled ContainerWindow::reflectScroll(const Message& m) {
    Native* child = of(reinterpret_cast<HWND>(m.lParam));
    if (!child) return std::nullopt;
    child->scrolled(LOWORD(m.wParam), HIWORD(m.wParam));
    return done;
}

Handled ContainerWindow::chooseGround(const Message& m) {
    const Native* child = of(reinterpret_cast<HWND>(m.lParam));
    const HBRUSH brush = child ? child->ground(background()) : nullptr;
    if (!brush) return std::nullopt;
    passOn(m);  // chooses the colour of the text
    SetBkMode(reinterpret_cast<HDC>(m.wParam), TRANSPARENT);
    return reinterpret_cast<LRESULT>(brush);
}

}  // namespace platform::win32
