#include "platform/metrics.h"

#include <string>

#include "platform/win32/failure.h"
#include "platform/win32/fonts.h"
#include "platform/win32/form_window.h"
#include "platform/win32/wide.h"

namespace platform {

namespace win32 {

namespace {

/// A control that lives only to be measured.
class Specimen {
  public:
    Specimen(const FormWindow& form, const wchar_t* windowClass, DWORD style)
        : window_(require(CreateWindowExW(0, windowClass, L"", WS_CHILD | style, 0, 0, 200, 200, form.window,
                                          nullptr, GetModuleHandleW(nullptr), nullptr),
                          "Steuerelement messen")) {
        SendMessageW(window_, WM_SETFONT, reinterpret_cast<WPARAM>(form.windowFont()), FALSE);
    }
    ~Specimen() { DestroyWindow(window_); }
    Specimen(const Specimen&) = delete;
    Specimen& operator=(const Specimen&) = delete;
    HWND window() const { return window_; }

  private:
    HWND window_;
};

int comboHeight(const FormWindow& form) {
    const Specimen combo(form, L"COMBOBOX", CBS_DROPDOWNLIST);
    RECT r{};
    GetWindowRect(combo.window(), &r);
    return r.bottom - r.top;
}

int tabHeight(const FormWindow& form) {
    const Specimen tabs(form, WC_TABCONTROLW, 0);
    wchar_t text[] = L"X";
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = text;
    SendMessageW(tabs.window(), TCM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
    RECT r{0, 0, 200, 200};
    SendMessageW(tabs.window(), TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&r));
    return r.top;
}

/// The average of all letters of both cases, as dialogs are measured.
int averageWidth(HFONT font) {
    const std::wstring letters = L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    const int count = static_cast<int>(letters.size());
    return (static_cast<int>(textExtent(font, letters).cx) + count / 2) / count;
}

}  // namespace

const Metrics& FormWindow::metrics() {
    if (!metrics_) {
        const auto resolutionNow = static_cast<UINT>(dpi_);
        Metrics m;
        m.dpi = dpi_;
        m.charWidth = averageWidth(windowFont());
        m.lineHeight = static_cast<int>(textMetrics(windowFont()).tmHeight);
        m.vScrollWidth = GetSystemMetricsForDpi(SM_CXVSCROLL, resolutionNow);
        m.hScrollHeight = GetSystemMetricsForDpi(SM_CYHSCROLL, resolutionNow);
        m.iconSize = GetSystemMetricsForDpi(SM_CXSMICON, resolutionNow);
        m.comboHeight = comboHeight(*this);
        m.tabHeight = tabHeight(*this);
        metrics_ = m;
    }
    return *metrics_;
}

}  // namespace win32

Metrics metricsOf(const Control& control) {
    return control.native().form().metrics();
}

int textWidth(const Control& control, std::string_view text) {
    return static_cast<int>(win32::textExtent(control.native().fontHandle(), wide(text)).cx);
}

}  // namespace platform
