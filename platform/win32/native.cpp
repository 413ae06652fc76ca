#include "platform/win32/native.h"

#include <algorithm>
#include <set>
#include <unordered_map>
#include <utility>

#include "platform/win32/accessible.h"
#include "platform/win32/control_ids.h"
#include "platform/win32/event.h"
#include "platform/win32/failure.h"
#include "platform/win32/fonts.h"
#include "platform/win32/form_window.h"
#include "platform/win32/keyboard.h"
#include "platform/win32/loop.h"
#include "platform/win32/report.h"
#include "platform/win32/wide.h"
#include "res/resource.h"

namespace platform {

using win32::require;

namespace {

std::unordered_map<HWND, Control::Native*>& windows() {
    static std::unordered_map<HWND, Control::Native*> all;
    return all;
}

}  // namespace

Control::Native::Native(Native* parentWindow, std::string controlName)
    : parent(parentWindow), name(std::move(controlName)) {
    if (parent) parent->children.push_back(this);
}

Control::Native::~Native() {
    if (parent) std::erase(parent->children, this);
    for (Native* child : children) child->parent = nullptr;
    if (window) DestroyWindow(window);
}

Control::Native* Control::Native::of(HWND window) {
    const auto found = windows().find(window);
    return found == windows().end() ? nullptr : found->second;
}

Control::Native* Control::Native::holding(HWND window) {
    while (window) {
        if (Native* native = of(window)) return native;
        window = GetAncestor(window, GA_PARENT);
    }
    return nullptr;
}

void Control::Native::attach(HWND created) {
    window = created;
    windows()[created] = this;
    win32::countHandles(1);
}

void Control::Native::detach() {
    windows().erase(window);
    win32::countHandles(-1);
    window = nullptr;
}

void Control::Native::createControl(const wchar_t* windowClass, DWORD style, DWORD extendedStyle) {
    const auto id = static_cast<INT_PTR>(win32::controlId(name));
    const HWND created = CreateWindowExW(
        extendedStyle, windowClass, L"", style | WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS, 0, 0, 0, 0,
        parent->window, reinterpret_cast<HMENU>(id), GetModuleHandleW(nullptr), nullptr);
    attach(require(created, "Steuerelement anlegen"));
    // Not by the subclassing of the common controls: it looks up a property of the window twice for each
    // message, and where that is a question to another process it is most of what a message costs.
    former_ = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(controlProcedure)));
    require(former_, "Steuerelement anlegen");
    applyFont();
}

const wchar_t* Control::Native::registered(const std::string& name, UINT style) {
    static std::set<std::wstring> names;
    const auto [entry, isNew] = names.insert(wide(name));
    if (isNew) {
        WNDCLASSEXW description{};
        description.cbSize = sizeof description;
        description.style = style;
        description.lpfnWndProc = ownProcedure;
        description.hInstance = GetModuleHandleW(nullptr);
        description.hIcon = LoadIconW(description.hInstance, MAKEINTRESOURCEW(IDI_STICH));
        description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
        description.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
        description.lpszClassName = entry->c_str();
        require(RegisterClassExW(&description), "Fensterklasse anmelden");
    }
    return entry->c_str();
}

void Control::Native::createOwn(const OwnWindow& wanted) {
    isOwn_ = true;
    const bool isChild = parent != nullptr;
    const auto id = isChild ? static_cast<INT_PTR>(win32::controlId(name)) : 0;
    const DWORD style = wanted.style | (isChild ? WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS : 0U);
    const HWND created = CreateWindowExW(
        wanted.extendedStyle, registered(wanted.windowClass, wanted.classStyle), wide(wanted.caption).c_str(),
        style | WS_CLIPCHILDREN, wanted.bounds.left, wanted.bounds.top, wanted.bounds.width(),
        wanted.bounds.height(), isChild ? parent->window : wanted.owner, reinterpret_cast<HMENU>(id),
        GetModuleHandleW(nullptr), this);
    require(created, "Fenster anlegen");
}

LRESULT CALLBACK Control::Native::ownProcedure(HWND window, UINT id, WPARAM wParam, LPARAM lParam) {
    if (id == WM_NCCREATE)
        static_cast<Native*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams)->attach(window);
    Native* native = of(window);
    if (!native) return DefWindowProcW(window, id, wParam, lParam);
    if (id == WM_NCDESTROY) {
        native->detach();
        return DefWindowProcW(window, id, wParam, lParam);
    }
    return native->receive({id, wParam, lParam});
}

LRESULT CALLBACK Control::Native::controlProcedure(HWND window, UINT id, WPARAM wParam, LPARAM lParam) {
    Native* native = of(window);
    if (!native) return DefWindowProcW(window, id, wParam, lParam);
    if (id == WM_NCDESTROY) {
        const WNDPROC former = native->former_;
        SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(former));
        native->detach();
        return CallWindowProcW(former, window, id, wParam, lParam);
    }
    return native->receive({id, wParam, lParam});
}

LRESULT Control::Native::receive(const Message& m) noexcept {
    try {
        if (m.id == WM_GETOBJECT) {
            if (const Handled object = win32::accessibleObject(*this, m)) return *object;
        }
        if (m.id == BM_CLICK && !win32::takesInput(*this)) return 0;  // from a screen reader
        if (const Handled result = handle(m)) return *result;
    } catch (...) {
        win32::reportError();
        return 0;
    }
    return passOn(m);
}

Control::Native::Handled Control::Native::handle(const Message&) {
    return std::nullopt;
}

LRESULT Control::Native::passOn(const Message& m) const {
    return isOwn_ ? DefWindowProcW(window, m.id, m.wParam, m.lParam)
                  : CallWindowProcW(former_, window, m.id, m.wParam, m.lParam);
}

LRESULT Control::Native::send(UINT id, WPARAM wParam, LPARAM lParam) const {
    return SendMessageW(window, id, wParam, lParam);
}

bool Control::Native::tabStop() const {
    return (GetWindowLongW(window, GWL_STYLE) & WS_TABSTOP) != 0;
}

void Control::Native::move(Rect wanted) {
    const Rect now = bounds();
    if (now == wanted) return;
    SetWindowPos(window, nullptr, wanted.left, wanted.top, std::max(0, wanted.width()),
                 std::max(0, wanted.height()), SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOOWNERZORDER);
}

Rect Control::Native::bounds() const {
    RECT r{};
    GetWindowRect(window, &r);
    if (parent) MapWindowPoints(nullptr, parent->window, reinterpret_cast<POINT*>(&r), 2);
    return {r.left, r.top, r.right, r.bottom};
}

void Control::Native::setVisible(bool on) {
    if (visible == on) return;
    if (!on) win32::keyboard::leave(*this);
    visible = on;
    ShowWindow(window, on ? SW_SHOWNA : SW_HIDE);
}

void Control::Native::setEnabled(bool on) {
    if (enabled == on) return;
    if (!on) win32::keyboard::leave(*this);
    enabled = on;
    EnableWindow(window, on);
}

bool Control::Native::usable() const {
    const Native* native = this;
    while (native->visible && native->enabled && native->parent) native = native->parent;
    return native->visible && native->enabled && !native->parent;
}

bool Control::Native::hasFocus() const {
    const HWND now = GetFocus();
    return window && now && (now == window || IsChild(window, now));
}

void Control::Native::focus() {
    if (usable())
        SetFocus(keyWindow());
    else if (!form().visible)
        form().focusLater(*this);
}

HFONT Control::Native::fontHandle() const {
    return ownFontHandle_ ? ownFontHandle_.get() : form().windowFont();
}

void Control::Native::setFont(const Font& wanted) {
    ownFont = wanted;
    refreshFont();
}

void Control::Native::refreshFont() {
    if (ownFont) ownFontHandle_ = win32::makeFont(*ownFont, dpi());
    applyFont();
    fontChanged();
    for (Native* child : children) child->refreshFont();
}

void Control::Native::applyFont() const {
    send(WM_SETFONT, reinterpret_cast<WPARAM>(fontHandle()), TRUE);
}

win32::FormWindow& Control::Native::form() const {
    const Native* native = this;
    while (native->parent) native = native->parent;
    return static_cast<win32::FormWindow&>(const_cast<Native&>(*native));
}

int Control::Native::dpi() const {
    return form().resolution();
}

Size Control::Native::clientSize() const {
    RECT r{};
    GetClientRect(window, &r);
    return {r.right, r.bottom};
}

std::wstring Control::Native::text() const {
    std::wstring result(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    const int length = GetWindowTextW(window, result.data(), static_cast<int>(result.size()));
    result.resize(static_cast<std::size_t>(length));
    return result;
}

void Control::Native::setText(const std::string& newText) const {
    require(SetWindowTextW(window, wide(newText).c_str()), "Text setzen");
}

Control::Native::NoRedraw::NoRedraw(const Native& native) : native_(native) {
    native_.send(WM_SETREDRAW, FALSE);
}

Control::Native::NoRedraw::~NoRedraw() {
    native_.send(WM_SETREDRAW, TRUE);
    // WM_SETREDRAW shows a hidden window again, in the system's eyes.
    if (!native_.visible) ShowWindow(native_.window, SW_HIDE);
    InvalidateRect(native_.window, nullptr, TRUE);
}

}  // namespace platform
