#include <gtest/gtest.h>

#include <functional>

#include "platform/dialogs.h"
#include "platform/form.h"
#include "platform/win32/native.h"
#include "platform/win32/wide.h"
#include "tests/support/temp_folder.h"
#include "tests/support/user.h"

namespace {

using namespace platform;

/// Answers the system's dialog that comes up next.
class Answer {
  public:
    explicit Answer(std::function<bool(HWND dialog)> act) {
        act_ = std::move(act);
        timer_ = SetTimer(nullptr, 0, 20, look);
    }
    ~Answer() { KillTimer(nullptr, timer_); }
    Answer(const Answer&) = delete;
    Answer& operator=(const Answer&) = delete;

  private:
    static void CALLBACK look(HWND, UINT, UINT_PTR, DWORD) {
        const HWND dialog = FindWindowW(L"#32770", nullptr);  // all dialogs' class
        if (dialog && IsWindowVisible(dialog) && act_ && act_(dialog)) act_ = nullptr;
    }
    static inline std::function<bool(HWND)> act_;
    UINT_PTR timer_;
};

std::string textOf(HWND window) {
    std::wstring text(500, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return narrow(text);
}

/// Puts a path into the dialog's field and presses its OK button.
bool choosePath(HWND dialog, const std::string& path) {
    constexpr int nameField = 0x480, nameBox = 0x47C;  // as the common dialogs number them
    HWND field = GetDlgItem(dialog, nameField);
    if (!field) field = GetDlgItem(dialog, nameBox);
    if (!field) return false;
    SendMessageW(field, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(wide(path).c_str()));
    PostMessageW(dialog, WM_COMMAND, IDOK, 0);
    return true;
}

struct SystemDialogs : testing::Test {
    Form form{"frmDialogs", "Dialoge", {}};
    support::TempFolder folder;
    const MessageHandler before = setMessageHandler({});  // the system's own
    SystemDialogs() { form.show(); }
    ~SystemDialogs() override { setMessageHandler(before); }
};

TEST_F(SystemDialogs, AMessageShowsItsTextOverItsOwner) {
    std::string title;
    bool blocked = false;
    const Answer answer([&](HWND dialog) {
        title = textOf(dialog);
        blocked = !IsWindowEnabled(form.native().window);
        return PostMessageW(dialog, WM_COMMAND, IDNO, 0) != 0;
    });
    EXPECT_EQ(
        showMessage(&form, {"Änderungen speichern?", message::yesNoCancel | message::question, "Größe"}),
        message::no);
    EXPECT_EQ(title, "Größe");
    EXPECT_TRUE(blocked);
}

TEST_F(SystemDialogs, AFileIsChosenByItsName) {
    const std::string file = folder.write("Größe.txt", "x");
    OpenFileRequest request;
    request.title = "Datei";
    request.filter = "Text (*.txt)|*.txt|Alles|*.*";
    request.initialDirectory = folder.path();
    {
        const Answer answer([&](HWND dialog) { return choosePath(dialog, file); });
        EXPECT_EQ(showOpenFile(&form, request), file);
    }
    request.fileName = "angeboten.txt";
    const Answer answer([&](HWND dialog) { return PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0) != 0; });
    EXPECT_EQ(showOpenFile(&form, request), "angeboten.txt");
}

TEST_F(SystemDialogs, AFolderIsChosenOrNone) {
    {
        const Answer answer([&](HWND dialog) { return choosePath(dialog, folder.path()); });
        EXPECT_EQ(chooseFolder(&form, "Verzeichnis", "C:\\"), folder.path());
    }
    const Answer answer([&](HWND dialog) { return PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0) != 0; });
    EXPECT_EQ(chooseFolder(&form, "Verzeichnis", folder.path()), "");
}

}  // namespace
