#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "editor/notify_suite.h"
#include "platform/win32/windows.h"

namespace {

/// A form of another program: whether it answers the suite's registered message, and what it was sent.
struct SuiteForm {
    SuiteForm(const wchar_t* windowClass, bool answers) : answers_(answers) {
        WNDCLASSW c{};
        c.lpfnWndProc = procedure;
        c.hInstance = ::GetModuleHandleW(nullptr);
        c.lpszClassName = windowClass;
        ::RegisterClassW(&c);  // fails for the second form of a class, which is fine
        window_ = ::CreateWindowExW(0, windowClass, L"", WS_OVERLAPPEDWINDOW, 0, 0, 10, 10, nullptr, nullptr,
                                    c.hInstance, nullptr);
        ::SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    }
    ~SuiteForm() { ::DestroyWindow(window_); }
    SuiteForm(const SuiteForm&) = delete;
    SuiteForm& operator=(const SuiteForm&) = delete;

    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        auto* form = reinterpret_cast<SuiteForm*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
        static const UINT registered =
            ::RegisterWindowMessageW(L"Veltor Messages F77BD810-5557-11d3-9B5B-16E619000000");
        if (form != nullptr && message == registered) return form->answers_ ? 1 : 0;
        if (form != nullptr && message == 1087) form->told_.push_back({wParam, static_cast<WPARAM>(lParam)});
        return ::DefWindowProcW(window, message, wParam, lParam);
    }

    HWND window_ = nullptr;
    bool answers_;
    std::vector<std::array<WPARAM, 2>> told_;
};

TEST(NotifySuite, TellsTheFormsThatTakePartOnceEach) {
    SuiteForm compiled(L"ThunderRT6FormDC", true);
    SuiteForm silent(L"ThunderRT6FormDC", false);
    SuiteForm developed(L"ThunderFormDC", true);
    SuiteForm stranger(L"ThunderForm", true);
    EXPECT_EQ(editor::NotifySuite(), 0);
    const std::vector<std::array<WPARAM, 2>> once{{0, 0}};
    EXPECT_EQ(compiled.told_, once);
    EXPECT_EQ(developed.told_, once);
    EXPECT_TRUE(silent.told_.empty());
    EXPECT_TRUE(stranger.told_.empty());
}

}  // namespace
