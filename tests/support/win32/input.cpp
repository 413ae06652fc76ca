#include "tests/support/win32/input.h"

#include <array>
#include <stdexcept>
#include <string>

#include "platform/win32/wide.h"
#include "tests/support/user.h"

namespace user::input {

using namespace platform;

namespace {

void setKeys(int shift) {
    std::array<BYTE, 256> keys{};
    const auto hold = [&](int key, int bit) {
        keys[static_cast<std::size_t>(key)] = (shift & bit) ? 0x80 : 0;
    };
    GetKeyboardState(keys.data());
    hold(VK_SHIFT, shiftKey::shift);
    hold(VK_CONTROL, shiftKey::control);
    hold(VK_MENU, shiftKey::alt);
    SetKeyboardState(keys.data());
}

}  // namespace

void require(bool possible, const char* what) {
    if (!possible) throw std::logic_error(what);
}

Control::Native& reach(const Control& control) {
    if (!reachable(control)) throw std::logic_error("nobody can reach " + control.name());
    return control.native();
}

Control::Native& focus(const Control& control) {
    SetFocus(reach(control).keyWindow());
    return reach(control);  // who lost the focus may have changed it
}

HeldKeys::HeldKeys(int shift) {
    setKeys(shift);
}

HeldKeys::~HeldKeys() {
    setKeys(0);
}

LPARAM packed(Point point) {
    return MAKELPARAM(static_cast<WORD>(point.x), static_cast<WORD>(point.y));
}

WPARAM mouseKeys(MouseButton button, int shift) {
    WPARAM keys = 0;
    if (shift & shiftKey::shift) keys |= MK_SHIFT;
    if (shift & shiftKey::control) keys |= MK_CONTROL;
    if (button == MouseButton::left) keys |= MK_LBUTTON;
    if (button == MouseButton::right) keys |= MK_RBUTTON;
    if (button == MouseButton::middle) keys |= MK_MBUTTON;
    return keys;
}

UINT downMessage(MouseButton button) {
    return button == MouseButton::left    ? WM_LBUTTONDOWN
           : button == MouseButton::right ? WM_RBUTTONDOWN
                                          : WM_MBUTTONDOWN;
}

void click(HWND window, Point point, MouseButton button, int shift, bool second) {
    const HeldKeys held(shift);
    const UINT down = downMessage(button);
    PostMessageW(window, down + 1, mouseKeys(MouseButton::none, shift), packed(point));
    SendMessageW(window, second ? down + 2 : down, mouseKeys(button, shift), packed(point));
    pump();
}

void key(HWND window, int key, int shift) {
    const HeldKeys held(shift);
    const UINT place = MapVirtualKeyW(static_cast<UINT>(key), MAPVK_VK_TO_VSC) << 16;  // makes characters
    PostMessageW(window, WM_KEYDOWN, static_cast<WPARAM>(key), static_cast<LPARAM>(place | 1));
    PostMessageW(window, WM_KEYUP, static_cast<WPARAM>(key), static_cast<LPARAM>(place | 0xC0000001));
    pump();
}

void replaceText(HWND field, const std::string& text) {
    SendMessageW(field, EM_SETSEL, 0, -1);
    SendMessageW(field, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(wide(text).c_str()));
}

Point centre(const RECT& area) {
    return {(area.left + area.right) / 2, (area.top + area.bottom) / 2};
}

}  // namespace user::input
