#include "platform/win32/press.h"

#include <utility>

namespace platform {

namespace {

using application::Press;

std::optional<Press> current;
// A click or a key is told when it ends, but meant when it begins.
std::optional<Press> mouseDown;
std::optional<Press> keyDown;

std::optional<Press> pressOf(const MSG& message) {
    switch (message.message) {
        case WM_LBUTTONDOWN:
        case WM_MBUTTONDOWN:
        case WM_RBUTTONDOWN:
            return mouseDown = Press{message.time, Press::Kind::single};
        case WM_LBUTTONDBLCLK:
        case WM_MBUTTONDBLCLK:
        case WM_RBUTTONDBLCLK:
            return mouseDown = Press{message.time, Press::Kind::second};
        case WM_LBUTTONUP:
        case WM_MBUTTONUP:
        case WM_RBUTTONUP:
            return std::exchange(mouseDown, std::nullopt);
        case WM_KEYDOWN:
        case WM_SYSKEYDOWN: {
            constexpr LPARAM wasDownBefore = 1 << 30;
            if (message.lParam & wasDownBefore) return Press{message.time, Press::Kind::held};
            return keyDown = Press{message.time, Press::Kind::single};
        }
        case WM_CHAR:
        case WM_SYSCHAR:
            return (message.lParam & (1 << 30)) ? Press{message.time, Press::Kind::held} : keyDown;
        case WM_KEYUP:
        case WM_SYSKEYUP:
            return std::exchange(keyDown, std::nullopt);
        default:
            return std::nullopt;
    }
}

}  // namespace

namespace win32 {

PressScope::PressScope(const MSG& message) : before_(std::exchange(current, pressOf(message))) {}

PressScope::~PressScope() {
    current = before_;
}

}  // namespace win32

namespace application {

// What another program sends comes in between; it is none of the user's.
std::optional<Press> currentPress() {
    return InSendMessage() ? std::nullopt : current;
}

std::uint32_t inputTime() {
    return GetTickCount();
}

}  // namespace application

}  // namespace platform
