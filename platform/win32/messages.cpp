#include "platform/win32/messages.h"

namespace platform::win32 {

namespace {

int altNow() {
    return GetKeyState(VK_MENU) < 0 ? shiftKey::alt : 0;
}

}  // namespace

int shiftNow() {
    return (GetKeyState(VK_SHIFT) < 0 ? shiftKey::shift : 0) |
           (GetKeyState(VK_CONTROL) < 0 ? shiftKey::control : 0) | altNow();
}

int shiftOf(WPARAM mouseKeys) {
    return ((mouseKeys & MK_SHIFT) ? shiftKey::shift : 0) |
           ((mouseKeys & MK_CONTROL) ? shiftKey::control : 0) | altNow();
}

}  // namespace platform::win32
