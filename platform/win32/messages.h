#pragma once

#include <array>
#include <optional>
#include <type_traits>

#include "platform/geometry.h"
#include "platform/list_view.h"
#include "platform/win32/windows.h"

// After <windows.h>, which it needs.
#include <commctrl.h>
#include <shellapi.h>
#include <windowsx.h>

/// Windows' messages as tables: each line names a message and the member function that gets what the message
/// carries, already taken apart. What a handler returns decides: `Handled` with a value is the message's
/// result, without one the message goes on to the system's own procedure. A handler that returns nothing
/// only watches: the message always goes on.
namespace platform::win32 {

struct Message {
    UINT id = 0;
    WPARAM wParam = 0;
    LPARAM lParam = 0;
};

using Handled = std::optional<LRESULT>;
inline constexpr Handled done{0};

/// Bits of `shiftKey` as they are now, and as a mouse message tells them.
int shiftNow();
int shiftOf(WPARAM mouseKeys);

namespace detail {

template <class>
struct Member;
template <class R, class W, class... P>
struct Member<R (W::*)(P...)> {
    using Window = W;
    using Result = R;
};

constexpr bool isButton(UINT id) {
    return id > WM_MOUSEMOVE && id <= WM_MBUTTONDBLCLK;
}

/// Left, right and middle button take three messages each: down, up, double click.
constexpr MouseButton buttonOf(UINT id) {
    constexpr std::array buttons{MouseButton::left, MouseButton::right, MouseButton::middle};
    return buttons[(id - WM_LBUTTONDOWN) / 3];
}

constexpr MouseButton heldButton(WPARAM keys) {
    return (keys & MK_LBUTTON)   ? MouseButton::left
           : (keys & MK_RBUTTON) ? MouseButton::right
           : (keys & MK_MBUTTON) ? MouseButton::middle
                                 : MouseButton::none;
}

inline Point pointOf(LPARAM lParam) {
    return {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
}

/// Calls `f` with what the message carries.
template <UINT Id, class F>
auto crack(const Message& m, F f) {
    if constexpr (isButton(Id))
        return f(buttonOf(Id), shiftOf(m.wParam), pointOf(m.lParam));
    else if constexpr (Id == WM_MOUSEMOVE)
        return f(heldButton(m.wParam), shiftOf(m.wParam), pointOf(m.lParam));
    else if constexpr (Id == WM_MOUSEWHEEL)  // the point is the screen's
        return f(GET_WHEEL_DELTA_WPARAM(m.wParam), shiftOf(GET_KEYSTATE_WPARAM(m.wParam)), pointOf(m.lParam));
    else if constexpr (Id == WM_KEYDOWN || Id == WM_KEYUP)
        return f(static_cast<int>(m.wParam), shiftNow());
    else if constexpr (Id == WM_SIZE)
        return f(m.wParam, Size{LOWORD(m.lParam), HIWORD(m.lParam)});
    else if constexpr (Id == WM_ERASEBKGND || Id == WM_PRINTCLIENT)
        return f(reinterpret_cast<HDC>(m.wParam));
    else if constexpr (Id == WM_GETMINMAXINFO)
        return f(*reinterpret_cast<MINMAXINFO*>(m.lParam));
    else if constexpr (Id == WM_DPICHANGED)
        return f(static_cast<int>(LOWORD(m.wParam)), *reinterpret_cast<const RECT*>(m.lParam));
    else if constexpr (Id == WM_ACTIVATE)
        return f(LOWORD(m.wParam) != WA_INACTIVE, HIWORD(m.wParam) != 0);
    else if constexpr (Id == WM_TIMER)
        return f(static_cast<UINT_PTR>(m.wParam));
    else if constexpr (Id == WM_CAPTURECHANGED)
        return f(reinterpret_cast<HWND>(m.lParam));
    else if constexpr (Id == WM_CHAR)
        return f(static_cast<wchar_t>(m.wParam));
    else if constexpr (Id == WM_SETCURSOR)
        return f(reinterpret_cast<HWND>(m.wParam), static_cast<int>(LOWORD(m.lParam)));  // below it, hit code
    else if constexpr (Id == WM_DROPFILES)
        return f(reinterpret_cast<HDROP>(m.wParam));
    else if constexpr (Id == WM_ENDSESSION)
        return f(m.wParam != 0);
    else
        return f();
}

/// A handler without a result answers "goes on".
template <class Result, class Call>
Handled answer(Call call) {
    if constexpr (std::is_void_v<Result>) {
        call();
        return std::nullopt;
    } else {
        return call();
    }
}

template <class>
struct Notification;
template <class R, class W, class N>
struct Notification<R (W::*)(N&)> {
    using Type = N;
};

}  // namespace detail

template <class Window>
struct Route {
    UINT id;
    Handled (*call)(Window&, const Message&);
};

/// A line of a table of messages.
template <UINT Id, auto Handler>
constexpr auto on() {
    using Member = detail::Member<decltype(Handler)>;
    using Window = typename Member::Window;
    return Route<Window>{
        Id, [](Window& window, const Message& m) {
            return detail::crack<Id>(m, [&](auto&&... values) {
                return detail::answer<typename Member::Result>([&] { return (window.*Handler)(values...); });
            });
        }};
}

/// The same for a message whose handler wants it as it is, to pass it on itself.
template <UINT Id, auto Handler>
constexpr auto raw() {
    using Window = typename detail::Member<decltype(Handler)>::Window;
    return Route<Window>{Id,
                         [](Window& window, const Message& m) -> Handled { return (window.*Handler)(m); }};
}

/// Calls the handler of a message, if the table has one.
template <class Window, std::size_t N>
Handled dispatch(Window& window, const Route<Window> (&routes)[N], const Message& m) {
    for (const Route<Window>& route : routes)
        if (route.id == m.id) return route.call(window, m);
    return std::nullopt;
}

/// A line of a table of notifications (WM_NOTIFY); the handler's parameter is the notification's record.
template <class Window>
struct NotifyRoute {
    UINT code;
    Handled (*call)(Window&, NMHDR&);
};

template <UINT Code, auto Handler>
constexpr auto onNotify() {
    using Member = detail::Member<decltype(Handler)>;
    using Window = typename Member::Window;
    using Record = typename detail::Notification<decltype(Handler)>::Type;
    return NotifyRoute<Window>{Code, [](Window& window, NMHDR& header) {
                                   return detail::answer<typename Member::Result>(
                                       [&] { return (window.*Handler)(reinterpret_cast<Record&>(header)); });
                               }};
}

template <class Window, std::size_t N>
Handled dispatch(Window& window, const NotifyRoute<Window> (&routes)[N], NMHDR& header) {
    for (const NotifyRoute<Window>& route : routes)
        if (route.code == header.code) return route.call(window, header);
    return std::nullopt;
}

}  // namespace platform::win32
