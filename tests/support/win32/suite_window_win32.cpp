#include <utility>

#include "editor/notify_suite.h"
#include "platform/win32/wide.h"
#include "platform/win32/windows.h"
#include "tests/support/suite_window.h"

namespace support {

namespace {

LRESULT CALLBACK take(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    static const UINT areYouThere = RegisterWindowMessageW(platform::wide(editor::suiteMessages).c_str());
    if (message == areYouThere) return 1;
    if (message == SuiteWindow::setChanged)
        SetWindowLongPtrW(window, GWLP_USERDATA, GetWindowLongPtrW(window, GWLP_USERDATA) + 1);
    return DefWindowProcW(window, message, wParam, lParam);
}

}  // namespace

struct SuiteWindow::Native {
    HWND window;
};

SuiteWindow::SuiteWindow() {
    const std::wstring name = platform::wide(windowClass);
    WNDCLASSW kind{};
    kind.lpfnWndProc = take;
    kind.hInstance = GetModuleHandleW(nullptr);
    kind.lpszClassName = name.c_str();
    RegisterClassW(&kind);  // the second time it is there already
    native_ = std::make_unique<Native>(Native{CreateWindowExW(0, name.c_str(), L"", WS_POPUP, 0, 0, 1, 1,
                                                              nullptr, nullptr, kind.hInstance, nullptr)});
}

SuiteWindow::~SuiteWindow() {
    DestroyWindow(native_->window);
}

int SuiteWindow::told() {
    return static_cast<int>(SetWindowLongPtrW(native_->window, GWLP_USERDATA, 0));
}

}  // namespace support
