#include "platform/win32/loop.h"

#include "platform/win32/form_window.h"
#include "platform/win32/keyboard.h"
#include "platform/win32/press.h"
#include "platform/win32/wheel.h"

namespace platform::win32 {

namespace {

void tellToolTips(const MSG& message) {
    if (message.message < WM_MOUSEFIRST || message.message > WM_MOUSELAST) return;
    if (const Control::Native* below = Control::Native::holding(message.hwnd))
        below->form().relayToToolTips(message);
}

}  // namespace

void dispatch(const MSG& received) {
    MSG message = received;
    if (!wheel::aim(message)) return;
    const PressScope press(message);
    if (keyboard::translate(message)) return;
    tellToolTips(message);
    TranslateMessage(&message);
    DispatchMessageW(&message);
}

void runWhile(const std::function<bool()>& condition) {
    MSG message{};
    while (condition()) {
        if (GetMessageW(&message, nullptr, 0, 0) <= 0) {
            PostQuitMessage(static_cast<int>(message.wParam));  // for the loop around this one
            return;
        }
        dispatch(message);
    }
}

namespace {

/// Takes what is in the queue, for `handler`.
template <class Handler>
void takePending(const Handler& handler) {
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(message.wParam));  // for the loop around this one
            return;
        }
        handler(message);
    }
}

bool isInput(UINT id) {
    const auto within = [id](UINT first, UINT last) { return id >= first && id <= last; };
    return within(WM_KEYFIRST, WM_KEYLAST) || within(WM_MOUSEFIRST, WM_MOUSELAST) ||
           within(WM_NCMOUSEMOVE, WM_NCXBUTTONDBLCLK);
}

}  // namespace

bool handlePending() {
    bool any = false;
    takePending([&any](const MSG& message) {
        dispatch(message);
        any = true;
    });
    return any;
}

bool handlePendingFor(HWND only) {
    bool escape = false;
    takePending([&](const MSG& message) {
        if (message.message == WM_KEYDOWN && message.wParam == VK_ESCAPE) escape = true;
        MSG meant = message;
        if (!wheel::aim(meant)) return;
        const bool isMeant = meant.hwnd == only || IsChild(only, meant.hwnd);
        if (isMeant || !isInput(meant.message)) dispatch(meant);
    });
    return escape;
}

}  // namespace platform::win32
