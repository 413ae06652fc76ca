#include <algorithm>
#include <sstream>

#include "platform/win32/event.h"
#include "platform/win32/failure.h"
#include "platform/win32/fonts.h"
#include "platform/win32/form_window.h"
#include "platform/win32/image_list.h"
#include "platform/win32/keyboard.h"

/// Where a form stands, how large it is, and whether it is there at all.
namespace platform::win32 {

void FormWindow::sizeFor(Size clientAt96) {
    const Metrics scale{.dpi = dpi_};
    RECT r{0, 0, scale.px(clientAt96.width), scale.px(clientAt96.height)};
    const auto style = static_cast<DWORD>(GetWindowLongW(window, GWL_STYLE));
    const auto extended = static_cast<DWORD>(GetWindowLongW(window, GWL_EXSTYLE));
    require(AdjustWindowRectExForDpi(&r, style, FALSE, extended, static_cast<UINT>(dpi_)), "Fenster anlegen");
    placeOnMonitor({r.right - r.left, r.bottom - r.top});
}

// Where the system put it, but wholly on its monitor, however small that is.
void FormWindow::placeOnMonitor(Size outer) {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    Rect place = Rect::at(bounds().left, bounds().top, outer.width, outer.height);
    if (GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor)) {
        const RECT& work = monitor.rcWork;
        const int width = std::min(outer.width, static_cast<int>(work.right - work.left));
        const int height = std::min(outer.height, static_cast<int>(work.bottom - work.top));
        place = Rect::at(
            std::max(static_cast<int>(work.left), std::min(place.left, static_cast<int>(work.right) - width)),
            std::max(static_cast<int>(work.top), std::min(place.top, static_cast<int>(work.bottom) - height)),
            width, height);
    }
    SetWindowPos(window, nullptr, place.left, place.top, place.width(), place.height(),
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

void FormWindow::centreOverOwner() {
    const Rect own = bounds();
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    const FormWindow* below = ownerWindow();
    const HWND reference = below ? below->window : window;
    if (!GetMonitorInfoW(MonitorFromWindow(reference, MONITOR_DEFAULTTONEAREST), &monitor)) return;
    const RECT& work = monitor.rcWork;
    const Rect over = below && below->visible && !IsIconic(below->window)
                          ? below->bounds()
                          : Rect{work.left, work.top, work.right, work.bottom};
    const auto fitted = [](int centre, int size, LONG least, LONG most) {
        return std::max(static_cast<int>(least), std::min(centre - size / 2, static_cast<int>(most) - size));
    };
    const int x = fitted((over.left + over.right) / 2, own.width(), work.left, work.right);
    const int y = fitted((over.top + over.bottom) / 2, own.height(), work.top, work.bottom);
    SetWindowPos(window, nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void FormWindow::setVisible(bool on) {
    if (on)
        show();
    else
        hide();
}

void FormWindow::setEnabled(bool on) {
    enabled = on;
    EnableWindow(window, enabled && modalAbove_ == 0);
}

void FormWindow::setIcon(const IconImage& image) {
    UniqueIcon icon = makeIcon(image);
    send(WM_SETICON, ICON_SMALL, icon.get());
    send(WM_SETICON, ICON_BIG, icon.get());
    icon_ = std::move(icon);
}

void FormWindow::show() {
    if (!loaded_) return;
    if (!visible) {
        visible = true;
        send(WM_CHANGEUISTATE, MAKEWPARAM(UIS_INITIALIZE, 0));
        if (options_.dialog && !placed_) centreOverOwner();
        raise(owner().onResize);  // once it can be seen, every move of a control costs a repaint
        ShowWindow(window, SW_SHOW);
    } else if (IsIconic(window)) {
        ShowWindow(window, SW_RESTORE);
    }
    SetForegroundWindow(window);
    RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

void FormWindow::hide() {
    if (!visible) return;
    visible = false;
    releaseOwner();  // first, or the system activates another program's window
    const bool wasActive = GetActiveWindow() == window;
    ShowWindow(window, SW_HIDE);
    const FormWindow* below = ownerWindow();
    if (wasActive && below && below->usable() && below->modalAbove_ == 0) SetActiveWindow(below->window);
    PostMessageW(window, WM_NULL, 0, 0);  // a loop that waits for this looks again
}

bool FormWindow::unload() {
    if (!loaded_) return true;
    if (unloading_) return false;
    unloading_ = true;
    // A handler that failed has not agreed: the window stays, and so does what it holds.
    if (owner().onQueryUnload && !ask(owner().onQueryUnload, false)) {
        unloading_ = false;
        return false;
    }
    raise(owner().onUnload);
    hide();
    loaded_ = false;
    unloading_ = false;
    posted_.clear();
    PostMessageW(window, WM_NULL, 0, 0);
    return true;
}

std::string FormWindow::placement() const {
    WINDOWPLACEMENT place{};
    place.length = sizeof place;
    require(GetWindowPlacement(window, &place), "Lage des Fensters ermitteln");
    const RECT& r = place.rcNormalPosition;
    std::ostringstream text;
    text << r.left << ' ' << r.top << ' ' << r.right - r.left << ' ' << r.bottom - r.top;
    return text.str();
}

void FormWindow::setPlacement(const std::string& text) {
    std::istringstream numbers(text);
    int left, top, width, height;
    if (!(numbers >> left >> top >> width >> height) || width <= 0 || height <= 0) return;
    if (!(numbers >> std::ws).eof()) return;
    const Rect r = Rect::at(left, top, width, height);
    WINDOWPLACEMENT place{};
    place.length = sizeof place;
    place.showCmd = visible ? SW_SHOWNORMAL : SW_HIDE;
    place.rcNormalPosition = {r.left, r.top, r.right, r.bottom};
    if (!MonitorFromRect(&place.rcNormalPosition, MONITOR_DEFAULTTONULL)) return;
    placed_ = SetWindowPlacement(window, &place) != 0;
}

void FormWindow::renewFont() {
    const UniqueFont before = std::move(font_);  // until no control has it any more
    fontName_ = messageFont();
    font_ = makeFont(fontName_, dpi_);
    metrics_.reset();
    refreshFont();
}

Handled FormWindow::resolutionChanged(int dpi, const RECT& suggested) {
    dpi_ = dpi;
    renewFont();
    SetWindowPos(window, nullptr, suggested.left, suggested.top, suggested.right - suggested.left,
                 suggested.bottom - suggested.top, SWP_NOZORDER | SWP_NOACTIVATE);
    raise(owner().onResize);
    return done;
}

void FormWindow::settingsChanged() {
    renewFont();
    raise(owner().onResize);
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

void FormWindow::coloursChanged() {
    // The common controls hear of it only through their parents.
    const std::function<void(const Native&)> tell = [&](const Native& native) {
        for (const Native* child : native.children) {
            child->send(WM_SYSCOLORCHANGE);
            tell(*child);
        }
    };
    tell(*this);
    settingsChanged();
}

}  // namespace platform::win32
