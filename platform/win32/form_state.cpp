#include <algorithm>
#include <utility>

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
    placeOnMonitor(Rect::at(bounds().left, bounds().top, r.right - r.left, r.bottom - r.top));
}

// There, but wholly on one monitor, however small that is.
void FormWindow::placeOnMonitor(Rect wanted) {
    const RECT place{wanted.left, wanted.top, wanted.right, wanted.bottom};
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    if (GetMonitorInfoW(MonitorFromRect(&place, MONITOR_DEFAULTTONEAREST), &monitor)) {
        const RECT& work = monitor.rcWork;
        const int width = std::min(wanted.width(), static_cast<int>(work.right - work.left));
        const int height = std::min(wanted.height(), static_cast<int>(work.bottom - work.top));
        wanted = Rect::at(std::max(static_cast<int>(work.left),
                                   std::min(wanted.left, static_cast<int>(work.right) - width)),
                          std::max(static_cast<int>(work.top),
                                   std::min(wanted.top, static_cast<int>(work.bottom) - height)),
                          width, height);
    }
    SetWindowPos(window, nullptr, wanted.left, wanted.top, wanted.width(), wanted.height(),
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
        ShowWindow(window, std::exchange(maximise_, false) ? SW_SHOWMAXIMIZED : SW_SHOW);
        arriving_.reset();
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
    const bool maximised =
        maximise_ || IsZoomed(window) || (IsIconic(window) && (place.flags & WPF_RESTORETOMAXIMIZED) != 0);
    return WindowPlacement{{r.left, r.top, r.right, r.bottom}, dpi_, maximised}.text();
}

void FormWindow::setPlacement(const std::string& text) {
    arriving_ = WindowPlacement::parse(text);
    if (!arriving_) return;
    if (arriving_->resolution == 0) arriving_->resolution = dpi_;
    const Rect& r = arriving_->restored;
    WINDOWPLACEMENT place{};
    place.length = sizeof place;
    place.showCmd = visible ? SW_SHOWNORMAL : SW_HIDE;
    place.rcNormalPosition = {r.left, r.top, r.right, r.bottom};
    placed_ = SetWindowPlacement(window, &place) != 0;
    maximise_ = placed_ && arriving_->maximised && !options_.dialog;
    if (placed_) takeStoredSize();
    if (visible || !placed_) arriving_.reset();
}

// A size was stored in the pixels of some monitor. On another one the system would scale it once more, and
// that once for each start.
void FormWindow::takeStoredSize() {
    if (IsZoomed(window)) return;
    const auto scaled = [this](int size) { return MulDiv(size, dpi_, arriving_->resolution); };
    placeOnMonitor(Rect::at(bounds().left, bounds().top, scaled(arriving_->restored.width()),
                            scaled(arriving_->restored.height())));
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
    if (arriving_)
        takeStoredSize();
    else
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
