#include "platform/application.h"

#include <array>
#include <cstdio>
#include <new>
#include <string>

#include "platform/dialogs.h"
#include "platform/errors.h"
#include "platform/path.h"
#include "platform/win32/failure.h"
#include "platform/win32/form_window.h"
#include "platform/win32/loop.h"
#include "platform/win32/report.h"
#include "platform/win32/wide.h"

// After <windows.h>, which it needs.
#include <shellapi.h>

namespace platform {

namespace win32 {

namespace {

int waitCursors = 0;

std::string reasonOfCurrentException() {
    try {
        throw;
    } catch (const std::bad_alloc&) {
        return "Der Arbeitsspeicher reicht nicht aus.";
    } catch (const std::exception& error) {
        return error.what();
    } catch (...) {
        return "Unbekannter Fehler.";
    }
}

}  // namespace

void reportError() {
    const Control::Native* active = Control::Native::of(GetActiveWindow());
    const std::string title = active ? narrow(active->text()) : std::string();
    showMessage(nullptr, {reasonOfCurrentException(), message::exclamation, title});
}

bool waiting() {
    return waitCursors > 0;
}

}  // namespace win32

namespace application {

int run(Form& form) {
    win32::runWhile([&form] { return form.loaded(); });
    return 0;
}

void doEvents() {
    win32::handlePending();
}

bool doEventsFor(Container& only) {
    return win32::handlePendingFor(only.native());
}

void guard(const std::function<void()>& handler) {
    try {
        handler();
    } catch (...) {
        win32::reportError();
    }
}

void post(Form& form, std::function<void()> action) {
    static_cast<win32::FormWindow&>(form.native()).post(std::move(action));
}

// As the environment tells it, which the system sets for every program of the user.
std::string userFolder() {
    std::wstring folder(32768, L'\0');  // no variable is longer
    folder.resize(GetEnvironmentVariableW(L"LOCALAPPDATA", folder.data(), static_cast<DWORD>(folder.size())));
    return folder.empty() ? std::string() : path::normalise(narrow(folder));
}

void start(const std::string& program) {
    const std::wstring path = wide(program);
    std::wstring commandLine = L'"' + path + L'"';
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESHOWWINDOW;
    startup.wShowWindow = SW_SHOWNORMAL;
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(path.c_str(), commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                        &startup, &process)) {
        const DWORD code = GetLastError();
        if (code == ERROR_FILE_NOT_FOUND || code == ERROR_PATH_NOT_FOUND)
            throw RuntimeError(error::fileNotFound, "Datei nicht gefunden: " + program);
        throw RuntimeError(error::fileError, "Das Programm " + program +
                                                 " kann nicht gestartet werden: " + lastErrorText(code));
    }
    AllowSetForegroundWindow(process.dwProcessId);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
}

void open(const std::string& file) {
    const std::wstring path = wide(file);
    SHELLEXECUTEINFOW wanted{};
    wanted.cbSize = sizeof wanted;
    wanted.fMask = SEE_MASK_FLAG_NO_UI;
    wanted.lpFile = path.c_str();
    wanted.nShow = SW_SHOWNORMAL;
    if (ShellExecuteExW(&wanted)) return;
    const DWORD code = GetLastError();
    if (code == ERROR_FILE_NOT_FOUND || code == ERROR_PATH_NOT_FOUND)
        throw RuntimeError(error::fileNotFound, "Datei nicht gefunden: " + file);
    throw RuntimeError(error::fileError,
                       "Die Datei " + file + " kann nicht geöffnet werden: " + lastErrorText(code));
}

void beep() {
    MessageBeep(MB_OK);
}

WaitCursor::WaitCursor() {
    if (win32::waitCursors++ == 0) SetCursor(LoadCursorW(nullptr, IDC_WAIT));
}

WaitCursor::~WaitCursor() {
    if (--win32::waitCursors > 0) return;
    // The window below the mouse shows its own pointer again.
    POINT at{};
    const HWND below = GetCursorPos(&at) ? WindowFromPoint(at) : nullptr;
    if (!Control::Native::holding(below)) return;
    const LRESULT part = SendMessageW(below, WM_NCHITTEST, 0, MAKELPARAM(at.x, at.y));
    SendMessageW(below, WM_SETCURSOR, reinterpret_cast<WPARAM>(below), MAKELPARAM(part, WM_MOUSEMOVE));
}

}  // namespace application

std::string formatNumber(double value, int digits) {
    std::array<char, 400> buffer{};  // the longest double has 309 digits before the decimal sign
    std::snprintf(buffer.data(), buffer.size(), "%.*f", digits, value);
    std::string text = buffer.data();
    std::array<wchar_t, 8> sign{L',', L'\0'};
    GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, LOCALE_SDECIMAL, sign.data(), static_cast<int>(sign.size()));
    if (const auto point = text.find('.'); point != std::string::npos)
        text.replace(point, 1, narrow(sign.data()));
    return text;
}

}  // namespace platform
