#include "platform/suite.h"

#include "platform/win32/wide.h"
#include "platform/win32/windows.h"

namespace platform::suite {

namespace {

// A window that hangs must not hold the editor up for longer than this.
constexpr UINT patience = 200;  // milliseconds

bool takesPart(HWND window, UINT message) {
    DWORD_PTR answer = 0;
    return ::SendMessageTimeoutW(window, message, 0, 0, SMTO_ABORTIFHUNG, patience, &answer) != 0 &&
           answer != 0;
}

}  // namespace

void findWindows(const std::string& messageName, const std::string& windowClass,
                 std::vector<std::intptr_t>& found, std::int16_t) {
    const UINT message = ::RegisterWindowMessageW(wide(messageName).c_str());
    if (message == 0) return;
    const std::wstring name = wide(windowClass);
    // The list is complete before a window is asked: what a window does when asked must not disturb the
    // search.
    std::vector<HWND> windows;
    for (HWND window = nullptr;
         (window = ::FindWindowExW(nullptr, window, name.c_str(), nullptr)) != nullptr;) {
        windows.push_back(window);
    }
    for (const HWND window : windows) {
        if (takesPart(window, message)) found.push_back(reinterpret_cast<std::intptr_t>(window));
    }
}

void send(std::intptr_t window, std::uint32_t message) {
    ::SendMessageW(reinterpret_cast<HWND>(window), message, 0, 0);
}

}  // namespace platform::suite
