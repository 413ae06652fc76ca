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
    int count = 1;
};
constexpr FormKind kinds[] = {
    {L"ThunderRT6FormDC", L"compiled", 1}, {L"ThunderRT6FormDC", L"silent", 0},
    {L"ThunderRT6FormDC", L"busy", 1, 5},  {L"ThunderFormDC", L"developed", -1},
    {L"ThunderFormDC", L"silent", 0},      {L"ThunderFormDC", L"busy", 1, 5},
    {L"ThunderForm", L"stranger", 1},
};

void add(HWND form, const wchar_t* count, INT_PTR number) {
    const auto before = reinterpret_cast<INT_PTR>(::GetPropW(form, count));
    ::SetPropW(form, count, reinterpret_cast<HANDLE>(before + number));
}

/// A form with that property answers when the property is taken away, or after so long that whoever waits for
/// it has no limit worth the name.
void hang(HWND form) {
    for (int i = 0; i < 300; ++i) {
        if (::GetPropW(form, L"hangs") == nullptr) return;
        ::Sleep(100);
    }
    ::RemovePropW(form, L"hangs");
}

LRESULT CALLBACK procedure(HWND form, UINT message, WPARAM wParam, LPARAM lParam) {
    static const UINT registered =
        ::RegisterWindowMessageW(L"Veltor Messages F77BD810-5557-11d3-9B5B-16E619000000");
    const auto* kind = reinterpret_cast<const FormKind*>(::GetWindowLongPtrW(form, GWLP_USERDATA));
    if (kind != nullptr && message == registered) {
        hang(form);
        return wParam == 0 && lParam == 0 ? kind->answer : 0;
    }
    if (kind != nullptr && message == 1087) add(form, L"told", wParam == 0 && lParam == 0 ? 1 : 1000);
    return ::DefWindowProcW(form, message, wParam, lParam);
}

void registerClass(const wchar_t* name) {
    WNDCLASSW c{};
    c.lpfnWndProc = procedure;
    c.hInstance = ::GetModuleHandleW(nullptr);
    c.lpszClassName = name;
    ::RegisterClassW(&c);  // fails for the second form of a class, which is fine
}

void run(const FormKind& kind) {
    const HWND form = ::CreateWindowExW(0, kind.windowClass, kind.title, WS_OVERLAPPEDWINDOW, 0, 0, 10, 10,
                                        nullptr, nullptr, ::GetModuleHandleW(nullptr), nullptr);
    ::SetWindowLongPtrW(form, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&kind));
    ::SetPropW(form, L"ready", form);
    MSG message;
    while (::GetMessageW(&message, nullptr, 0, 0) > 0) ::DispatchMessageW(&message);
}

}  // namespace

int main() {
    for (const FormKind& kind : kinds) registerClass(kind.windowClass);
    std::vector<std::jthread> threads;
    for (const FormKind& kind : kinds)
        for (int i = 0; i < kind.count; ++i) threads.emplace_back(run, std::cref(kind));
}
