#include "platform/win32/keyboard.h"

#include <algorithm>
#include <string_view>

#include "platform/win32/loop.h"
#include "platform/win32/wide.h"

namespace platform::win32::keyboard {

namespace {

using Native = Control::Native;

void collect(Native& native, std::vector<Native*>& all) {
    for (Native* child : native.children) {
        if (!child->visible || !child->enabled) continue;
        if (takesInput(*child)) all.push_back(child);
        collect(*child, all);
    }
}

/// What can be used, in the order of the Tab key.
std::vector<Native*> usableControls(FormWindow& form) {
    std::vector<Native*> all;
    collect(form, all);
    return all;
}

/// The next one behind `from`, around the end, that satisfies the condition; `from` itself comes last.
template <class Condition>
Native* next(const std::vector<Native*>& all, const Native* from, bool backwards, Condition condition) {
    const std::size_t n = all.size();
    const auto found = static_cast<std::size_t>(std::find(all.begin(), all.end(), from) - all.begin());
    const std::size_t start = found < n ? found : (backwards ? 0 : n - 1);
    for (std::size_t step = 1; step <= n; ++step) {
        Native* candidate = all[(backwards ? start + n - step : start + step) % n];
        if (condition(*candidate)) return candidate;
    }
    return nullptr;
}

bool isStop(const Native& native) {
    return native.tabStop();
}

/// Where the system hides focus marks and access keys until someone uses the keyboard.
void showCues(const FormWindow& form, WORD cues) {
    form.send(WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, cues));
}

void give(Native& target) {
    target.focus();
    const HWND field = target.keyWindow();
    if (SendMessageW(field, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL) SendMessageW(field, EM_SETSEL, 0, -1);
}

void step(FormWindow& form, bool backwards) {
    showCues(form, UISF_HIDEFOCUS);
    if (Native* target = next(usableControls(form), Native::holding(GetFocus()), backwards, isStop))
        give(*target);
}

bool isPushButton(const Native& native) {
    return (native.send(WM_GETDLGCODE) & (DLGC_UNDEFPUSHBUTTON | DLGC_DEFPUSHBUTTON)) != 0;
}

/// From one button to the next of the same column or row.
bool stepAmongButtons(FormWindow& form, const Native& from, bool backwards) {
    if (!isPushButton(from)) return false;
    Native* target = next(usableControls(form), &from, backwards, [&](const Native& other) {
        return other.parent == from.parent && isPushButton(other);
    });
    if (!target || target == &from) return false;
    showCues(form, UISF_HIDEFOCUS);
    target->focus();
    return true;
}

/// The letter behind the single "&".
wchar_t accessLetter(const std::string& mnemonic) {
    const std::wstring text = wide(mnemonic);
    for (std::size_t i = 0; i + 1 < text.size(); ++i) {
        if (text[i] != L'&') continue;
        if (text[i + 1] != L'&') return text[i + 1];
        ++i;
    }
    return 0;
}

wchar_t upper(wchar_t letter) {
    CharUpperBuffW(&letter, 1);
    return letter;
}

/// Which of the control's texts has this access key.
std::optional<std::size_t> textWithKey(const Native& native, wchar_t letter) {
    const auto texts = native.mnemonics();
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const wchar_t own = accessLetter(texts[i]);
        if (own && upper(own) == upper(letter)) return i;
    }
    return std::nullopt;
}

bool pressAccessKey(FormWindow& form, wchar_t letter) {
    const auto all = usableControls(form);
    Native* target = next(all, Native::holding(GetFocus()), false,
                          [&](const Native& native) { return textWithKey(native, letter).has_value(); });
    if (!target) return false;
    showCues(form, UISF_HIDEFOCUS | UISF_HIDEACCEL);
    if (target->tabStop()) {
        target->focus();
        target->access(*textWithKey(*target, letter));
    } else if (Native* labelled = next(all, target, false, isStop)) {
        give(*labelled);
    }
    return true;
}

bool pressEnter(const Native& focused) {
    if (!isPushButton(focused)) return false;
    focused.send(BM_CLICK);
    return true;
}

bool pressEscape(const FormWindow& form) {
    if (!form.isDialog()) return false;  // the main window is not to be closed by a slip
    PostMessageW(form.window, WM_CLOSE, 0, 0);
    return true;
}

bool keyDown(FormWindow& form, const Native& focused, const MSG& message) {
    if (form.takesKey(static_cast<int>(message.wParam), focused.keyUse())) return true;
    const LRESULT wants =
        SendMessageW(message.hwnd, WM_GETDLGCODE, message.wParam, reinterpret_cast<LPARAM>(&message));
    if (wants & DLGC_WANTALLKEYS) return false;
    switch (message.wParam) {
        case VK_TAB:
            if ((wants & DLGC_WANTTAB) || GetKeyState(VK_CONTROL) < 0) return false;
            step(form, GetKeyState(VK_SHIFT) < 0);
            return true;
        case VK_RETURN:
            return pressEnter(focused);
        case VK_ESCAPE:
            return pressEscape(form);
        case VK_UP:
        case VK_LEFT:
            return !(wants & DLGC_WANTARROWS) && stepAmongButtons(form, focused, true);
        case VK_DOWN:
        case VK_RIGHT:
            return !(wants & DLGC_WANTARROWS) && stepAmongButtons(form, focused, false);
        default:
            return false;
    }
}

}  // namespace

bool translate(const MSG& message) {
    if (message.message != WM_KEYDOWN && message.message != WM_SYSKEYDOWN && message.message != WM_SYSCHAR)
        return false;
    const Native* focused = Native::holding(message.hwnd);
    if (!focused) return false;
    FormWindow& form = focused->form();
    switch (message.message) {
        case WM_KEYDOWN:
            return keyDown(form, *focused, message);
        case WM_SYSKEYDOWN:
            if (message.wParam == VK_MENU) showCues(form, UISF_HIDEFOCUS | UISF_HIDEACCEL);
            return false;
        default:
            return pressAccessKey(form, static_cast<wchar_t>(message.wParam));
    }
}

Native* firstStop(FormWindow& form) {
    return next(usableControls(form), nullptr, false, isStop);
}

void leave(Native& native) {
    if (!native.window || !native.form().visible) return;
    const HWND mouse = GetCapture();
    if (mouse && (mouse == native.window || IsChild(native.window, mouse))) ReleaseCapture();
    if (!native.hasFocus()) return;
    if (const HWND before = focusBefore(native)) {
        SetFocus(before);
        return;
    }
    Native* target = next(usableControls(native.form()), &native, false, [&](const Native& other) {
        return isStop(other) && &other != &native && !IsChild(native.window, other.window);
    });
    SetFocus(target ? target->keyWindow() : nullptr);
}

}  // namespace platform::win32::keyboard
