#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/geometry.h"
#include "platform/win32/windows.h"
#include "tests/support/temp_folder.h"

/// Asks again and again until the condition holds; false when it did not for a long time.
bool waitFor(const std::function<bool()>& condition);

/// A folder with a program of its own, which is a copy, and a set of bitmaps "Bild 1.bmp", ... that are all
/// of the first class. The settings of the user go with it.
class ProgramFolder : public support::TempFolder {
  public:
    ProgramFolder(int pictures, platform::Size size, const std::vector<std::string>& classes);
    ~ProgramFolder();

    std::string program() const { return file("Stich.exe"); }
    std::string setFile() const { return file("TestSets\\Probe.kvs"); }
    static std::string picture(int number) { return "Bild " + std::to_string(number) + ".bmp"; }
};

/// The real program in a process of its own, driven from outside as a screen reader or a script would.
class Program {
  public:
    explicit Program(const std::string& executable, const std::vector<std::string>& arguments = {});
    /// Ends the process if it still runs.
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    /// Waits for the editor's window; false when none comes.
    bool opens();
    HWND window() const { return window_; }
    /// The control of that name, at whatever depth; null when there is none.
    HWND control(const char* name, HWND form = nullptr) const;
    static std::string text(HWND window);

    /// Presses a button and returns at once, as it may open a message box.
    void press(const char* button, HWND form = nullptr) const;
    /// Waits until the picture of that name is shown.
    bool shows(const std::string& picture) const;
    /// Writes into a text box or the edit field of a chooser, as typing does.
    void typeInto(const char* box, const std::string& text) const;
    void choose(const char* chooser, int index) const;
    void selectTab(int index) const;  ///< from 0
    /// Waits for a message box, checks that its text holds `part`, and presses a button (IDOK, IDYES, ...).
    bool answer(const std::string& part, int button) const;
    /// Waits for the system's dialog for a file or a folder, writes a path into it and presses OK.
    bool choosePath(const std::string& path) const;
    /// Waits for a window of that class of the program.
    HWND waitForWindow(const wchar_t* windowClass) const;
    /// The number of rows, and the first selected one (from 1), of a list.
    int rows(const char* list, HWND form = nullptr) const;
    int selectedRow(const char* list) const;
    /// The texts of a list's column (from 0), from the first row to the last.
    std::vector<std::string> column(const char* list, int column, HWND form = nullptr) const;
    /// Waits until a text of that list is being edited, replaces it and presses Enter.
    bool nameRow(const char* list, const std::string& name) const;

    void close() const;
    void kill() const;  ///< as a crash or the task manager does
    /// Waits for the end of the process; its exit code, or -1 when it does not end.
    int exitCode() const;

  private:
    struct ItemRequest;
    void ask(HWND list, UINT message, int row, ItemRequest& request) const;

    PROCESS_INFORMATION process_{};
    HWND window_ = nullptr;
};
