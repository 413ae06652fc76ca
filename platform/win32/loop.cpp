#include "platform/win32/loop.h"

#include "platform/win32/keyboard.h"

namespace platform::win32 {

void dispatch(const MSG& message) {
    if (keyboard::translate(message)) return;
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

bool handlePending() {
    bool any = false;
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(message.wParam));
            break;
        }
        dispatch(message);
        any = true;
    }
    return any;
}

}  // namespace platform::win32
