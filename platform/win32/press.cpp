#include "platform/win32/press.h"

#include <map>
#include <utility>

namespace platform {

namespace {

using application::Press;

std::optional<Press> current;
// A click or a key is told when it ends, but meant when it begins.
std::map<UINT, Press> mouseDown;  // by the message of the press
std::map<WPARAM, Press> keyDown;  // by the key

/// What was remembered for it, which is then forgotten; none of a press that nobody saw.
template <class Key>
std::optional<Press> ended(std::map<Key, Press>& presses, Key key) {
    const auto found = presses.find(key);
    if (found == presses.end()) return std::nullopt;
    const Press press = found->second;
    presses.erase(found);
    return press;
}

std::optional<Press> pressOf(const MSG& message) {
    switch (message.message) {
        case WM_LBUTTONDOWN:
        case WM_MBUTTONDOWN:
        case WM_RBUTTONDOWN:
            return mouseDown[message.message] = Press{message.time, Press::Kind::single, true};
        case WM_LBUTTONDBLCLK:
        case WM_MBUTTONDBLCLK:
        case WM_RBUTTONDBLCLK:
            // Two more than the message of a single press.
            return mouseDown[message.message - 2] = Press{message.time, Press::Kind::second, true};
        case WM_LBUTTONUP:
        case WM_MBUTTONUP:
        case WM_RBUTTONUP:
            return ended<UINT>(mouseDown, message.message - 1);
        case WM_KEYDOWN:
        case WM_SYSKEYDOWN: {
            constexpr LPARAM wasDownBefore = 1 << 30;
            if (message.lParam & wasDownBefore) return Press{message.time, Press::Kind::held};
            return keyDown[message.wParam] = Press{message.time, Press::Kind::single};
        }
        case WM_CHAR:
        case WM_SYSCHAR: {  // of the key message just before
            const bool wasDownBefore = (message.lParam & (1 << 30)) != 0;
            return Press{message.time, wasDownBefore ? Press::Kind::held : Press::Kind::single};
        }
        case WM_KEYUP:
        case WM_SYSKEYUP:
            return ended<WPARAM>(keyDown, message.wParam);
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
