#pragma once

#include "platform/control.h"
#include "platform/list_view.h"
#include "platform/win32/native.h"

/// Mouse and keys as messages to real windows.
namespace user::input {

/// std::logic_error unless a person could act on it.
platform::Control::Native& reach(const platform::Control& control);
/// The same, after giving it the focus as a click or the Tab key does.
platform::Control::Native& focus(const platform::Control& control);
void require(bool possible, const char* what);

/// The keys of a `shift` argument are held down as long as it lives.
class HeldKeys {
  public:
    explicit HeldKeys(int shift);
    ~HeldKeys();
    HeldKeys(const HeldKeys&) = delete;
    HeldKeys& operator=(const HeldKeys&) = delete;
};

LPARAM packed(platform::Point point);
/// MK_ bits for held keys and a held button.
WPARAM mouseKeys(platform::MouseButton button, int shift);
/// WM_LBUTTONDOWN and its like; the messages for up and double click are 1 and 2 more.
UINT downMessage(platform::MouseButton button);

/// A whole click. Real controls follow the mouse inside the message of the press until they see the release,
/// so that is in the queue first.
void click(HWND window, platform::Point point, platform::MouseButton button = platform::MouseButton::left,
           int shift = 0, bool second = false);
void key(HWND window, int key, int shift);
/// The whole text of an edit field, as pasting over it does.
void replaceText(HWND field, const std::string& text);
platform::Point centre(const RECT& area);

}  // namespace user::input
