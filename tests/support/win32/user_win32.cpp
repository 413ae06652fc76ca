#include <algorithm>
#include <chrono>
#include <cstring>
#include <stdexcept>
#include <utility>

#include "platform/win32/failure.h"
#include "platform/win32/form_window.h"
#include "platform/win32/loop.h"
#include "platform/win32/toolbar_window.h"
#include "platform/win32/wide.h"
#include "tests/support/user.h"
#include "tests/support/win32/input.h"

// After <windows.h>, which it needs.
#include <shlobj.h>

namespace user {

using namespace platform;
using input::focus;
using input::reach;
using input::require;
using win32::checkIndex;

namespace {

bool isReadOnly(const Control::Native& box) {
    return (GetWindowLongW(box.window, GWL_STYLE) & ES_READONLY) != 0;
}

void clickMiddle(const Control::Native& native) {
    RECT all{};
    GetClientRect(native.window, &all);
    input::click(native.window, input::centre(all));
}

/// What a scroll bar or slider tells its parent.
void scrollMessage(const Control::Native& bar, int code, int position = 0) {
    const bool upright = (GetWindowLongW(bar.window, GWL_STYLE) & SBS_VERT) != 0;  // TBS_VERT is another bit
    SendMessageW(bar.parent->window, upright ? WM_VSCROLL : WM_HSCROLL,
                 MAKEWPARAM(static_cast<WORD>(code), static_cast<WORD>(position)),
                 reinterpret_cast<LPARAM>(bar.window));
}

void repeat(ScrollBar& bar, int count, int back, int forth) {
    for (int i = 0; i < std::abs(count); ++i) {
        scrollMessage(focus(bar), count < 0 ? back : forth);
        scrollMessage(reach(bar), SB_ENDSCROLL);
    }
}

win32::ToolbarWindow& window(Toolbar& toolbar) {
    return static_cast<win32::ToolbarWindow&>(reach(toolbar));
}

int pressable(Toolbar& toolbar, const std::string& key) {
    const int index = toolbar.indexOf(key);
    reach(toolbar);
    require(index > 0 && toolbar.enabled(index), "no such button, or it is disabled");
    return index;
}

void sendMouse(const UserControl& control, UINT message, MouseButton held, int shift, Point point) {
    const HWND window = reach(control).window;
    const input::HeldKeys keys(shift);
    SendMessageW(window, message, input::mouseKeys(held, shift), input::packed(point));
}

}  // namespace

bool reachable(const Control& control) {
    const HWND top = control.native().form().window;
    return control.native().usable() && win32::takesInput(control.native()) && IsWindowEnabled(top) &&
           IsWindowVisible(top);
}

void press(Button& button) {
    clickMiddle(reach(button));
}

void check(CheckBox& box, bool on) {
    if (focus(box).control && box.checked() != on) clickMiddle(reach(box));
}

void type(TextBox& box, const std::string& text) {
    const Control::Native& native = focus(box);
    require(!isReadOnly(native), "the text box is read only");
    input::replaceText(native.window, text);
}

void type(ComboBox& box, const std::string& text) {
    const Control::Native& native = focus(box);
    require(native.keyWindow() != native.window, "the combo box takes no text");
    input::replaceText(native.keyWindow(), text);
}

void commit(TextBox& box) {
    input::key(focus(box).window, VK_RETURN, 0);
}

// By a click into the list that drops down.
void choose(ComboBox& box, int index) {
    const Control::Native& native = focus(box);
    checkIndex(index, 0, box.count() - 1);
    native.send(CB_SHOWDROPDOWN, TRUE);
    COMBOBOXINFO info{};
    info.cbSize = sizeof info;
    require(GetComboBoxInfo(native.window, &info) && info.hwndList, "the list does not drop down");
    const auto row = static_cast<WPARAM>(index);
    RECT area{};
    SendMessageW(info.hwndList, LB_GETITEMRECT, row, reinterpret_cast<LPARAM>(&area));
    RECT all{};
    GetClientRect(info.hwndList, &all);
    if (area.top < 0 || area.bottom > all.bottom) {
        SendMessageW(info.hwndList, LB_SETTOPINDEX, row, 0);
        SendMessageW(info.hwndList, LB_GETITEMRECT, row, reinterpret_cast<LPARAM>(&area));
    }
    input::click(info.hwndList, input::centre(area));
}

void selectTab(TabStrip& tabs, int index) {
    const Control::Native& native = reach(tabs);
    checkIndex(index, 1, tabs.count());
    RECT area{};
    native.send(TCM_GETITEMRECT, static_cast<WPARAM>(index - 1), &area);
    input::click(native.window, input::centre(area));
}

void scroll(ScrollBar& bar, int value) {
    require(value >= 0 && value <= 0xFFFF, "a message carries no such value");
    scrollMessage(reach(bar), SB_THUMBTRACK, value);
    scrollMessage(reach(bar), SB_THUMBPOSITION, value);
    scrollMessage(reach(bar), SB_ENDSCROLL);
}

void step(ScrollBar& bar, int count) {
    repeat(bar, count, SB_LINEUP, SB_LINEDOWN);
}

void page(ScrollBar& bar, int count) {
    repeat(bar, count, SB_PAGEUP, SB_PAGEDOWN);
}

void slide(Slider& slider, int value) {
    const Control::Native& native = focus(slider);
    native.send(TBM_SETPOS, TRUE, value);
    for (const int code : {TB_THUMBTRACK, TB_THUMBPOSITION, TB_ENDTRACK}) scrollMessage(native, code, value);
}

void press(Toolbar& toolbar, const std::string& key) {
    const RECT area = window(toolbar).buttonArea(pressable(toolbar, key));
    input::click(window(toolbar).window, {area.left + (area.bottom - area.top) / 2, input::centre(area).y});
}

// The menu has a message loop of its own, which finds the keys in the queue.
void chooseMenu(Toolbar& toolbar, const std::string& parentKey, const std::string& entryKey) {
    const int index = pressable(toolbar, parentKey);
    const auto& menu = toolbar.button(index).menu;
    const auto entry =
        std::find_if(menu.begin(), menu.end(), [&](const auto& e) { return e.key == entryKey; });
    require(entry != menu.end(), "no such menu entry");
    const HWND top = window(toolbar).form().window;
    for (auto i = entry - menu.begin(); i >= 0; --i) PostMessageW(top, WM_KEYDOWN, VK_DOWN, 1);
    PostMessageW(top, WM_KEYDOWN, VK_RETURN, 1);
    const RECT area = window(toolbar).buttonArea(index);
    input::click(window(toolbar).window, {area.right - 4, input::centre(area).y});
}

void mouseDown(UserControl& control, MouseButton button, int shift, Point point) {
    sendMouse(control, input::downMessage(button), button, shift, point);
}

void mouseMove(UserControl& control, MouseButton button, int shift, Point point) {
    sendMouse(control, WM_MOUSEMOVE, button, shift, point);
}

void mouseUp(UserControl& control, MouseButton button, int shift, Point point) {
    sendMouse(control, input::downMessage(button) + 1, MouseButton::none, shift, point);
}

void wheel(UserControl& control, int notches, int shift, Point point) {
    const HWND window = reach(control).window;
    POINT onScreen{point.x, point.y};
    ClientToScreen(window, &onScreen);
    const input::HeldKeys keys(shift);
    SendMessageW(
        window, WM_MOUSEWHEEL,
        MAKEWPARAM(static_cast<WORD>(input::mouseKeys(MouseButton::none, shift)), static_cast<WORD>(notches)),
        input::packed({onScreen.x, onScreen.y}));
}

void key(UserControl& control, int key, int shift) {
    input::key(focus(control).window, key, shift);
}

void key(Form& form, int key, int shift) {
    const HWND window = reach(form).window;
    const HWND focus = GetFocus();
    input::key(focus && IsChild(window, focus) ? focus : window, key, shift);
}

std::vector<std::string> mnemonics(const Control& control) {
    return control.native().mnemonics();
}

void takeCapture(UserControl& control) {
    if (GetCapture() == control.native().window) ReleaseCapture();
}

void resize(Form& form, Size client) {
    const Control::Native& native = reach(form);
    const Size now = form.clientSize();
    const Rect outer = form.bounds();
    // The window asks itself for its limits.
    SetWindowPos(native.window, nullptr, 0, 0, outer.width() + client.width - now.width,
                 outer.height() + client.height - now.height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

bool close(Form& form) {
    send(form, WM_CLOSE, 0, 0);
    return !form.loaded();
}

void drop(Form& form, const std::vector<std::string>& paths) {
    std::wstring names;
    for (const std::string& path : paths) names += wide(path) + L'\0';
    names += L'\0';
    const HGLOBAL memory =
        GlobalAlloc(GHND, sizeof(DROPFILES) + names.size() * sizeof(wchar_t));  // the window frees it
    auto* files = static_cast<DROPFILES*>(GlobalLock(memory));
    files->pFiles = sizeof(DROPFILES);
    files->fWide = TRUE;
    std::memcpy(files + 1, names.data(), names.size() * sizeof(wchar_t));
    GlobalUnlock(memory);
    require((GetWindowLongW(form.native().window, GWL_EXSTYLE) & WS_EX_ACCEPTFILES) != 0,
            "it takes no files");
    PostMessageW(form.native().window, WM_DROPFILES, reinterpret_cast<WPARAM>(memory), 0);
    pump();
}

void send(Form& form, std::uint32_t message, std::uintptr_t wParam, std::intptr_t lParam) {
    form.native().send(message, wParam, lParam);
}

void pump() {
    while (win32::handlePending()) {
    }
}

bool pumpUntil(const std::function<bool()>& condition, int milliseconds) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
    for (;;) {
        pump();
        if (condition()) return true;
        if (std::chrono::steady_clock::now() >= end) return false;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 5, QS_ALLINPUT);
    }
}

void tick(Timer& timer) {
    Timer::Native& native = timer.native();
    if (native.ticking()) native.form->send(WM_TIMER, reinterpret_cast<WPARAM>(&native));
}

std::vector<Control*> childrenOf(const Control& control) {
    std::vector<Control*> controls;
    for (const Control::Native* child : control.native().children) controls.push_back(child->control);
    return controls;
}

}  // namespace user
