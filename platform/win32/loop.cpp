#include "platform/win32/loop.h"

#include <utility>

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

bool isFrameInput(UINT id) {
    return id >= WM_NCMOUSEMOVE && id <= WM_NCXBUTTONDBLCLK;
}

bool isInput(UINT id) {
    const auto within = [id](UINT first, UINT last) { return id >= first && id <= last; };
    return within(WM_KEYFIRST, WM_KEYLAST) || within(WM_MOUSEFIRST, WM_MOUSELAST) || isFrameInput(id);
}

/// Alt+F4, and Alt with the blank, which opens the window's menu.
bool isFrameKey(const MSG& message) {
    return (message.message == WM_SYSKEYDOWN && (message.wParam == VK_F4 || message.wParam == VK_SPACE)) ||
           (message.message == WM_SYSCHAR && message.wParam == L' ');
}

/// What is done once and on purpose.
bool isPress(const MSG& message) {
    const bool again = (message.lParam & 1 << 30) != 0;
    const bool modifies = message.wParam == VK_SHIFT || message.wParam == VK_CONTROL;
    return message.message == WM_LBUTTONDOWN || message.message == WM_RBUTTONDOWN ||
           (message.message == WM_KEYDOWN && !again && !modifies && message.wParam != VK_ESCAPE);
}

const Control::Native* waitFrame = nullptr;
struct {
    const Control::Native* frame;  // to be compared only
    HWND focus;
} before{};

bool standsIn(const Control::Native& frame, HWND window) {
    return window == frame.window || IsChild(frame.window, window);
}

/// The time in which only `frame` takes input.
class WaitScope {
  public:
    explicit WaitScope(Control::Native& frame) : former_(std::exchange(waitFrame, &frame)) {
        const HWND focus = GetFocus();
        if (focus && !standsIn(frame, focus)) before = {&frame, focus};
        if (!IsWindowVisible(frame.window)) return;
        // A list that has dropped down would keep the mouse from it.
        if (Control::Native* focused = Control::Native::holding(focus)) focused->closePopup();
        const HWND mouse = GetCapture();
        if (mouse && !standsIn(frame, mouse)) ReleaseCapture();
    }
    ~WaitScope() { waitFrame = former_; }
    WaitScope(const WaitScope&) = delete;
    WaitScope& operator=(const WaitScope&) = delete;

  private:
    const Control::Native* former_;
};

}  // namespace

bool takesInput(const Control::Native& native) {
    if (!waitFrame || !native.parent) return true;
    const Control::Native* top = &native;
    for (; top->parent; top = top->parent)
        if (top == waitFrame) return true;
    return top != &waitFrame->form();
}

HWND focusBefore(const Control::Native& waitedWith) {
    if (before.frame != &waitedWith || !IsChild(waitedWith.form().window, before.focus)) return nullptr;
    const Control::Native* native = Control::Native::holding(before.focus);
    return native && native->usable() ? before.focus : nullptr;
}

bool handlePending() {
    bool any = false;
    takePending([&any](const MSG& message) {
        dispatch(message);
        any = true;
    });
    return any;
}

bool handlePendingFor(Control::Native& only) {
    const WaitScope scope(only);
    const HWND top = only.form().window;
    bool escape = false;
    takePending([&](const MSG& message) {
        if (message.message == WM_KEYDOWN && message.wParam == VK_ESCAPE) escape = true;
        MSG meant = message;
        if (!wheel::aim(meant)) return;
        const bool isOfFrame = meant.hwnd == top && isFrameInput(meant.message);
        if (isOfFrame || standsIn(only, meant.hwnd) || !isInput(meant.message)) {
            dispatch(meant);
        } else if (isFrameKey(meant) && IsChild(top, meant.hwnd)) {
            TranslateMessage(&meant);
            DefWindowProcW(top, meant.message, meant.wParam, meant.lParam);
        } else if (isPress(meant)) {
            MessageBeep(MB_OK);  // as for a click on a window that is blocked
        }
    });
    return escape;
}

}  // namespace platform::win32
