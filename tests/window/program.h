#pragma once

#include <string>
#include <vector>

#include "platform/win32/windows.h"

/// The real program in a process of its own, driven from outside as a screen reader or a script would.
class Program {
  public:
    explicit Program(const std::string& executable, const std::string& argument = {});
    /// Ends the process if it still runs.
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    /// Waits for the editor's window; false when none comes.
    bool opens();
    /// The control of that name, at whatever depth; null when there is none.
    HWND control(const char* name, HWND form = nullptr) const;
    static std::string text(HWND window);

    /// Presses a button and returns at once, as it may open a message box.
    void press(const char* button, HWND form = nullptr) const;
    /// Waits until the picture of that name is shown.
    bool shows(const std::string& picture) const;
    /// Writes into the edit field of a chooser, as typing does.
    void typeInto(const char* chooser, const std::string& text) const;
    void choose(const char* chooser, int index) const;
    /// Waits for a message box, checks that its text holds `part`, and presses a button (IDOK, IDYES, ...).
    bool answer(const std::string& part, int button) const;
    /// Waits for a window of that class of the program.
    HWND waitForWindow(const wchar_t* windowClass) const;
    /// The number of rows, and the first selected one (from 1), of a list.
    int rows(const char* list) const;
    int selectedRow(const char* list) const;

    void close() const;
    /// Waits for the end of the process; its exit code, or -1 when it does not end.
    int exitCode() const;

  private:
    PROCESS_INFORMATION process_{};
    HWND window_ = nullptr;
};
