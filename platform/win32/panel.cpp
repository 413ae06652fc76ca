#include <algorithm>

#include "platform/form.h"
#include "platform/win32/container_window.h"
#include "platform/win32/event.h"
#include "platform/win32/failure.h"
#include "platform/win32/surface_bitmap.h"

// After <windows.h>, which they need.
#include <uxtheme.h>
#include <vsstyle.h>

namespace platform {

namespace win32 {

namespace {

struct CloseTheme {
    void operator()(HTHEME theme) const { CloseThemeData(theme); }
};

/// The colour of a tab's page. The themes name none that can be asked for, so it is looked at.
COLORREF pageColour(HWND window) {
    const Unique<HTHEME, CloseTheme> theme(OpenThemeData(window, L"TAB"));
    if (!theme) return GetSysColor(COLOR_BTNFACE);
    constexpr int side = 16;
    const BitmapDc canvas({side, side});
    const RECT all{0, 0, side, side};
    FillRect(canvas.dc(), &all, GetSysColorBrush(COLOR_BTNFACE));
    DrawThemeBackground(theme.get(), canvas.dc(), TABP_BODY, 0, &all, nullptr);
    return GetPixel(canvas.dc(), side / 2, side / 2);
}

}  // namespace

PanelWindow::PanelWindow(Native* parentWindow, std::string controlName)
    : ContainerWindow(parentWindow, std::move(controlName)) {
    createOwn({.windowClass = "fraPanel", .extendedStyle = WS_EX_CONTROLPARENT});
    // Above the tab control whose page it is, which was made before.
    SetWindowPos(window, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

Handled PanelWindow::handle(const Message& m) {
    static constexpr Route<PanelWindow> routes[] = {
        on<WM_SIZE, &PanelWindow::resized>(),
        on<WM_ERASEBKGND, &PanelWindow::paintBackground>(),
        on<WM_PRINTCLIENT, &PanelWindow::paintBackground>(),
    };
    const Handled result = dispatch(*this, routes, m);
    return result ? result : ContainerWindow::handle(m);
}

HBRUSH PanelWindow::background() {
    const auto& beside = parent->children;
    const bool isPage = std::any_of(beside.begin(), beside.end(), [this](const Native* other) {
        return other->hasPages() && intersect(other->bounds(), bounds()) == bounds();
    });
    if (!isPage) return ContainerWindow::background();
    if (!page_) page_ = UniqueBrush(require(CreateSolidBrush(pageColour(window)), "Hintergrund malen"));
    return page_.get();
}

void PanelWindow::fontChanged() {
    page_.reset();  // the theme may be another one
}

void PanelWindow::resized(WPARAM, Size) {
    if (control) raise(static_cast<Panel*>(control)->onResize);
}

Handled PanelWindow::paintBackground(HDC dc) {
    RECT all{};
    GetClientRect(window, &all);
    FillRect(dc, &all, background());
    return 1;
}

}  // namespace win32

Panel::Panel(Container& parent, const std::string& name)
    : Container(std::make_unique<win32::PanelWindow>(&parent.native(), name)) {}

}  // namespace platform
