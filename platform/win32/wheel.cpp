#include "platform/win32/wheel.h"

#include "platform/win32/native.h"

namespace platform::win32::wheel {

namespace {

using Native = Control::Native;

/// The window that has the mouse, or the one under the pointer.
HWND target(POINT onScreen) {
    const HWND captor = GetCapture();
    return captor ? captor : WindowFromPoint(onScreen);
}

}  // namespace

bool aim(MSG& message) {
    if (message.message != WM_MOUSEWHEEL && message.message != WM_MOUSEHWHEEL) return true;
    const Native* focused = Native::holding(GetFocus());
    if (focused && focused->wheelUse() == Use::keeps) return true;

    const HWND window = target({GET_X_LPARAM(message.lParam), GET_Y_LPARAM(message.lParam)});
    const Native* native = Native::holding(window);
    if (!native || native->wheelUse() == Use::ignores || !IsWindowEnabled(GetAncestor(window, GA_ROOT)))
        return false;
    // With the Ctrl key other programs enlarge their pictures; here it is no way to scroll either.
    const WORD keys = GET_KEYSTATE_WPARAM(message.wParam);
    if (keys & MK_CONTROL) return false;
    if (message.message == WM_MOUSEHWHEEL) {
        const auto back = static_cast<WORD>(-GET_WHEEL_DELTA_WPARAM(message.wParam));  // to the right is on
        message.wParam = MAKEWPARAM(keys | MK_SHIFT, back);
        message.message = WM_MOUSEWHEEL;
    }
    message.hwnd = window;
    return true;
}

}  // namespace platform::win32::wheel
