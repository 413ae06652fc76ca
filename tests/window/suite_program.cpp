// In the place of the suite's other programs: their forms, each in a thread of its own, so that one can hang
// alone. What a form was sent is counted in properties of its window, where another process can read it.
#include <functional>
#include <thread>
#include <vector>

#include "platform/win32/windows.h"

namespace {

struct FormKind {
    const wchar_t* windowClass;
    const wchar_t* title;
    LRESULT answer;  // to the suite's registered message
};
constexpr FormKind kinds[] = {
    {L"ThunderRT6FormDC", L"compiled", 1}, {L"ThunderRT6FormDC", L"silent", 0},
    {L"ThunderRT6FormDC", L"hangs 1", 1},  {L"ThunderFormDC", L"developed", -1},
    {L"ThunderFormDC", L"silent", 0},      {L"ThunderFormDC", L"hangs 2", 1},
    {L"ThunderFormDC", L"hangs 3", 1},     {L"ThunderForm", L"stranger", 1},
};

void add(HWND form, const wchar_t* count, INT_PTR number) {
    const auto before = reinterpret_cast<INT_PTR>(::GetPropW(form, count));
    ::SetPropW(form, count, reinterpret_cast<HANDLE>(before + number));
}

/// Until the property is taken away, or for so long that somebody must have waited for it.
void hang(HWND form) {
    ::SetPropW(form, L"hangs", form);
    for (int i = 0; i < 200; ++i) {
        if (::GetPropW(form, L"hangs") == nullptr) return;
        ::Sleep(100);
    }
    ::RemovePropW(form, L"hangs");
}

LRESULT CALLBACK procedure(HWND form, UINT message, WPARAM wParam, LPARAM lParam) {
    static const UINT registered =
        ::RegisterWindowMessageW(L"Veltor Messages F77BD810-5557-11d3-9B5B-16E619000000");
    const auto* kind = reinterpret_cast<const FormKind*>(::GetWindowLongPtrW(form, GWLP_USERDATA));
    if (kind != nullptr && message == registered) return wParam == 0 && lParam == 0 ? kind->answer : 0;
    if (kind != nullptr && message == 1087) add(form, L"told", wParam == 0 && lParam == 0 ? 1 : 1000);
    if (kind != nullptr && message == WM_APP) hang(form);
    return ::DefWindowProcW(form, message, wParam, lParam);
}

void run(const FormKind& kind) {
    WNDCLASSW c{};
    c.lpfnWndProc = procedure;
    c.hInstance = ::GetModuleHandleW(nullptr);
    c.lpszClassName = kind.windowClass;
    ::RegisterClassW(&c);  // fails for the second form of a class, which is fine
    const HWND form = ::CreateWindowExW(0, kind.windowClass, kind.title, WS_OVERLAPPEDWINDOW, 0, 0, 10, 10,
                                        nullptr, nullptr, c.hInstance, nullptr);
    ::SetWindowLongPtrW(form, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&kind));
    ::SetPropW(form, L"ready", form);
    MSG message;
    while (::GetMessageW(&message, nullptr, 0, 0) > 0) ::DispatchMessageW(&message);
}

}  // namespace

int main() {
    std::vector<std::jthread> threads;
    for (const FormKind& kind : kinds) threads.emplace_back(run, std::cref(kind));
}
