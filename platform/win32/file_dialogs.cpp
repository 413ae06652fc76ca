#include "platform/win32/file_dialogs.h"

#include <algorithm>
#include <vector>

#include "platform/win32/failure.h"
#include "platform/win32/handle.h"
#include "platform/win32/wide.h"

// After <windows.h>, which they need.
#include <cderr.h>
#include <commdlg.h>
#include <shobjidl.h>

namespace platform::win32 {

namespace {

constexpr std::size_t longestPath = 32768;

/// A text that the system allocated.
struct FreeText {
    void operator()(wchar_t* text) const { CoTaskMemFree(text); }
};

/// "Text (*.x)|*.x" as the dialog wants it: every part ends in a zero, and the last in two.
std::wstring filterText(const std::string& filter) {
    std::wstring text = wide(filter);
    std::replace(text.begin(), text.end(), L'|', L'\0');
    return text + L'\0';
}

UniqueCom<IShellItem> shellItem(const std::string& path) {
    IShellItem* item = nullptr;
    if (FAILED(SHCreateItemFromParsingName(wide(path).c_str(), nullptr, IID_IShellItem,
                                           reinterpret_cast<void**>(&item))))
        return {};
    return UniqueCom<IShellItem>(item);
}

std::string pathOf(IShellItem& item) {
    wchar_t* text = nullptr;
    requireOk(item.GetDisplayName(SIGDN_FILESYSPATH, &text), "Verzeichnis wählen");
    const Unique<wchar_t*, FreeText> path(text);
    return narrow(path.get());
}

void prepare(IFileOpenDialog& dialog, const std::string& title, const std::string& start) {
    FILEOPENDIALOGOPTIONS options{};
    requireOk(dialog.GetOptions(&options), "Verzeichnis wählen");
    requireOk(dialog.SetOptions(options | FOS_PICKFOLDERS | FOS_FORCEFILESYSTEM | FOS_PATHMUSTEXIST),
              "Verzeichnis wählen");
    requireOk(dialog.SetTitle(wide(title).c_str()), "Verzeichnis wählen");
    if (const auto folder = shellItem(start)) dialog.SetFolder(folder.get());  // gone: the system's choice
}

}  // namespace

std::string askForFile(HWND owner, const OpenFileRequest& request) {
    std::vector<wchar_t> path(longestPath);
    wide(request.fileName).copy(path.data(), path.size() - 1);
    const std::wstring filter = filterText(request.filter);
    const std::wstring title = wide(request.title);
    const std::wstring directory = wide(request.initialDirectory);
    OPENFILENAMEW dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = owner;
    dialog.lpstrFilter = filter.c_str();
    dialog.nFilterIndex = static_cast<DWORD>(request.filterIndex);
    dialog.lpstrFile = path.data();
    dialog.nMaxFile = static_cast<DWORD>(path.size());
    dialog.lpstrInitialDir = directory.empty() ? nullptr : directory.c_str();
    dialog.lpstrTitle = title.empty() ? nullptr : title.c_str();
    // The program's current directory stays its own.
    dialog.Flags = request.flags | OFN_EXPLORER | OFN_NOCHANGEDIR;
    if (GetOpenFileNameW(&dialog)) return narrow(path.data());
    if (CommDlgExtendedError() == FNERR_INVALIDFILENAME) {
        path.front() = L'\0';  // a name that no file of this system can have is not offered
        if (GetOpenFileNameW(&dialog)) return narrow(path.data());
    }
    if (const DWORD failed = CommDlgExtendedError())
        throw RuntimeError(systemError,
                           "Der Dateidialog kann nicht gezeigt werden (" + std::to_string(failed) + ").");
    return request.fileName;
}

std::string askForFolder(HWND owner, const std::string& title, const std::string& start) {
    IFileOpenDialog* made = nullptr;
    requireOk(CoCreateInstance(CLSID_FileOpenDialog, nullptr, CLSCTX_INPROC_SERVER, IID_IFileOpenDialog,
                               reinterpret_cast<void**>(&made)),
              "Verzeichnis wählen");
    const UniqueCom<IFileOpenDialog> dialog(made);
    prepare(*dialog.get(), title, start);
    const HRESULT shown = dialog.get()->Show(owner);
    if (shown == HRESULT_FROM_WIN32(ERROR_CANCELLED)) return {};
    requireOk(shown, "Verzeichnis wählen");
    IShellItem* result = nullptr;
    requireOk(dialog.get()->GetResult(&result), "Verzeichnis wählen");
    const UniqueCom<IShellItem> chosen(result);
    return pathOf(*chosen.get());
}

}  // namespace platform::win32
