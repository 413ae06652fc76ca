#include "platform/win32/form_window.h"

#include <algorithm>
#include <utility>

#include "platform/win32/event.h"
#include "platform/win32/failure.h"
#include "platform/win32/fonts.h"
#include "platform/win32/keyboard.h"
#include "platform/win32/loop.h"
#include "platform/win32/wide.h"

namespace platform::win32 {

namespace {

constexpr UINT runPostedMessage = WM_APP + 1;

std::vector<FormWindow*>& modalForms() {
    static std::vector<FormWindow*> all;
    return all;
}

}  // namespace

FormWindow::FormWindow(const std::string& formName, const std::string& caption, const Form::Options& wanted)
    : ContainerWindow(nullptr, formName), options_(wanted) {
    visible = false;
    const DWORD dialogStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME;
    createOwn({.windowClass = formName,
               .style = options_.dialog ? dialogStyle : WS_OVERLAPPEDWINDOW,
               .extendedStyle = WS_EX_CONTROLPARENT |
                                static_cast<DWORD>(options_.dialog ? WS_EX_DLGMODALFRAME : WS_EX_ACCEPTFILES),
               .bounds = Rect::at(CW_USEDEFAULT, 0, 0, 0),
               .caption = caption,
               .owner = options_.owner ? options_.owner->native().window : nullptr});
    dpi_ = static_cast<int>(GetDpiForWindow(window));
    renewFont();
    sizeFor(options_.clientSize);
}

FormWindow::~FormWindow() {
    releaseOwner();
    std::erase(modalForms(), this);
    for (Subclassing::Native* subclassing : subclassings) subclassing->form = nullptr;
    for (Timer::Native* timer : timers) timer->form = nullptr;
    DestroyWindow(window);  // while it still answers as a form
}

FormWindow* FormWindow::ownerWindow() const {
    return options_.owner ? &static_cast<FormWindow&>(options_.owner->native()) : nullptr;
}

Handled FormWindow::handle(const Message& m) {
    static constexpr Route<FormWindow> routes[] = {
        on<WM_SIZE, &FormWindow::resized>(),
        on<WM_GETMINMAXINFO, &FormWindow::limitSize>(),
        on<WM_CLOSE, &FormWindow::closeRequested>(),
        on<WM_ACTIVATE, &FormWindow::activated>(),
        on<WM_SETFOCUS, &FormWindow::focused>(),
        on<WM_TIMER, &FormWindow::ticked>(),
        on<runPostedMessage, &FormWindow::runPosted>(),
        on<WM_DPICHANGED, &FormWindow::resolutionChanged>(),
        on<WM_SETTINGCHANGE, &FormWindow::settingsChanged>(),
        on<WM_THEMECHANGED, &FormWindow::settingsChanged>(),
        on<WM_SYSCOLORCHANGE, &FormWindow::coloursChanged>(),
        on<WM_QUERYENDSESSION, &FormWindow::sessionEndAsked>(),
        on<WM_ENDSESSION, &FormWindow::sessionEnded>(),
        on<WM_SETCURSOR, &FormWindow::choosePointer>(),
        on<WM_DROPFILES, &FormWindow::filesDropped>(),
    };
    if (!control) return std::nullopt;  // it is being made, or taken down
    Message seen = m;
    if (hooked(seen)) return done;
    if (const Handled result = dispatch(*this, routes, seen)) return result;
    if (const Handled result = ContainerWindow::handle(seen)) return result;
    if (seen.lParam != m.lParam) return passOn(seen);
    return std::nullopt;
}

bool FormWindow::takesKey(int key, KeyUse focus) {
    if (!control || !owner().onKeyDown) return false;
    constexpr bool unlessItFails = true;  // such a key is not to be handled a second time
    return ask(owner().onKeyDown, unlessItFails, key, shiftNow(), focus);
}

bool FormWindow::hooked(Message& m) {
    if (subclassings.empty()) return false;
    const auto watching = subclassings;  // a handler may add to them
    for (auto it = watching.rbegin(); it != watching.rend(); ++it) {
        if (std::find(subclassings.begin(), subclassings.end(), *it) == subclassings.end()) continue;
        if (!(*it)->watched.contains(m.id)) continue;
        std::int16_t handled = 0;
        auto lParam = static_cast<std::intptr_t>(m.lParam);
        raise((*it)->subclassing->onMessage, reinterpret_cast<std::intptr_t>(window),
              static_cast<std::uint32_t>(m.id), static_cast<std::uintptr_t>(m.wParam), lParam, handled);
        m.lParam = lParam;
        if (handled == -1) return true;
    }
    return false;
}

void FormWindow::resized(WPARAM kind, Size) {
    if (kind != SIZE_MINIMIZED) raise(owner().onResize);
}

void FormWindow::limitSize(MINMAXINFO& limits) {
    limits.ptMinTrackSize.x = std::max<LONG>(limits.ptMinTrackSize.x, minimum_.width);
    limits.ptMinTrackSize.y = std::max<LONG>(limits.ptMinTrackSize.y, minimum_.height);
}

Handled FormWindow::closeRequested() {
    // A message of another program reaches the window even while a dialog blocks it.
    if (IsWindowEnabled(window)) unload();
    return done;
}

void FormWindow::activated(bool active, bool minimised) {
    if (!active) {
        const HWND focus = GetFocus();
        if (focus && IsChild(window, focus)) focusAtActivation_ = focus;
    } else if (!minimised) {
        raise(owner().onActivate);
    }
}

Handled FormWindow::focused() {
    const Native* target = holding(focusAtActivation_);
    if (target && target->usable() && IsChild(window, focusAtActivation_))
        SetFocus(focusAtActivation_);
    else if (Native* first = keyboard::firstStop(*this))
        first->focus();
    return done;
}

Handled FormWindow::ticked(UINT_PTR id) {
    for (Timer::Native* timer : timers) {
        if (reinterpret_cast<UINT_PTR>(timer) != id) continue;
        if (timer->ticking()) raise(timer->timer->onTick);
        return done;
    }
    return std::nullopt;
}

void FormWindow::post(std::function<void()> action) {
    if (!loaded_) return;
    posted_.push_back(std::move(action));
    require(PostMessageW(window, runPostedMessage, 0, 0), "Nachricht senden");
}

Handled FormWindow::runPosted() {
    if (!posted_.empty()) {
        const std::function<void()> action = std::move(posted_.front());
        posted_.pop_front();
        raise(action);
    }
    return done;
}

// A session that ends asks like a click on the close box.
Handled FormWindow::sessionEndAsked() {
    return !loaded_ || !owner().onQueryUnload || ask(owner().onQueryUnload, false) ? TRUE : FALSE;
}

Handled FormWindow::sessionEnded(bool ends) {
    if (ends && loaded_) {
        loaded_ = false;
        raise(owner().onUnload);
    }
    return done;
}

Handled FormWindow::choosePointer(HWND, int hit) {
    if (!waiting() || hit != HTCLIENT) return std::nullopt;
    SetCursor(LoadCursorW(nullptr, IDC_WAIT));
    return TRUE;
}

Handled FormWindow::filesDropped(HDROP dropped) {
    std::vector<std::string> paths;
    const UINT count = DragQueryFileW(dropped, 0xFFFFFFFF, nullptr, 0);
    for (UINT i = 0; i < count; ++i) {
        std::wstring path(DragQueryFileW(dropped, i, nullptr, 0) + std::size_t{1}, L'\0');
        path.resize(DragQueryFileW(dropped, i, path.data(), static_cast<UINT>(path.size())));
        paths.push_back(narrow(path));
    }
    DragFinish(dropped);
    // It may have been dropped before a dialog came up.
    if (!IsWindowEnabled(window)) return done;
    SetForegroundWindow(
        window);  // a question that it asks stands over the window that they were dragged from
    raise(owner().onFilesDropped, paths);
    return done;
}

void FormWindow::setToolTip(const Native& target, const std::string& text) {
    if (!toolTips_) {
        toolTips_ = require(
            CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX,
                            0, 0, 0, 0, window, nullptr, GetModuleHandleW(nullptr), nullptr),
            "Hinweis anlegen");
    }
    TTTOOLINFOW tool{};
    tool.cbSize = sizeof tool;
    tool.uFlags = TTF_IDISHWND;
    tool.hwnd = window;
    tool.uId = reinterpret_cast<UINT_PTR>(target.window);
    SendMessageW(toolTips_, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    if (text.empty()) return;
    std::wstring shown = wide(text);
    tool.lpszText = shown.data();
    require(SendMessageW(toolTips_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool)), "Hinweis anlegen");
}

// The hints could watch their controls themselves, but each message to such a control would cost more then.
void FormWindow::relayToToolTips(const MSG& mouse) const {
    if (!toolTips_) return;
    MSG message = mouse;
    SendMessageW(toolTips_, TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&message));
}

FormWindow* FormWindow::topModal() {
    return modalForms().empty() ? nullptr : modalForms().back();
}

void FormWindow::showModal() {
    modalForms().push_back(this);
    blockOwner();
    show();
    runWhile([this] { return visible && loaded_; });
    hide();  // when the program is told to quit meanwhile
    releaseOwner();
    std::erase(modalForms(), this);
}

void FormWindow::blockOwner() {
    FormWindow* below = ownerWindow();
    if (!below || blocksOwner_) return;
    blocksOwner_ = true;
    ++below->modalAbove_;
    EnableWindow(below->window, FALSE);
}

void FormWindow::releaseOwner() {
    if (!std::exchange(blocksOwner_, false)) return;
    FormWindow* below = ownerWindow();
    if (--below->modalAbove_ == 0) EnableWindow(below->window, below->enabled);
}

}  // namespace platform::win32
