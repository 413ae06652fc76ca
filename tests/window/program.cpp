#include "program.h"

#include <gtest/gtest.h>

#include <commctrl.h>

#include <chrono>
#include <iterator>
#include <thread>
#include <type_traits>

#include "model/kvTamSampleSet.h"
#include "platform/files.h"
#include "platform/path.h"
#include "platform/registry.h"
#include "platform/win32/control_ids.h"
#include "platform/win32/wide.h"
#include "tests/support/pictures.h"
#include "tests/support/win32/input.h"

namespace {

using namespace std::chrono_literals;
using platform::narrow;
using platform::wide;

constexpr auto patience = 60s;

}  // namespace

bool waitFor(const std::function<bool()>& condition) {
    for (const auto end = std::chrono::steady_clock::now() + patience; !condition();) {
        if (std::chrono::steady_clock::now() > end) return false;
        std::this_thread::sleep_for(10ms);
    }
    return true;
}

ProgramFolder::ProgramFolder(int pictures, platform::Size size, const std::vector<std::string>& classes) {
    ::CopyFileW(wide(platform::files::fullPath(STICH_EXE)).c_str(), wide(program()).c_str(), FALSE);
    model::kvTamSampleSet set;
    set.AppPath(path());
    for (const std::string& name : classes) set.kvtamClasses().Add(name);
    const std::string bitmap =
        support::paletteBitmap(size, {0x404040, 0xC0C0C0}, [](int x, int y) { return (x / 8 + y / 8) % 2; });
    for (int number = 1; number <= pictures; ++number) {
        const std::string file = write("Picture\\" + picture(number), bitmap);
        set.kvtamSamples().Add(file, "").ItemClasses.push_back(1);
    }
    EXPECT_TRUE(set.Save(setFile()));
}

ProgramFolder::~ProgramFolder() {
    platform::Registry("Software\\Veltor2").removeAll();
}

namespace {

struct Search {
    DWORD process;
    std::wstring windowClass;
    HWND found = nullptr;
};

BOOL CALLBACK inspect(HWND window, LPARAM parameter) {
    auto& search = *reinterpret_cast<Search*>(parameter);
    DWORD process = 0;
    ::GetWindowThreadProcessId(window, &process);
    wchar_t name[64];
    ::GetClassNameW(window, name, 64);
    if (process != search.process || search.windowClass != name || !::IsWindowVisible(window)) return TRUE;
    search.found = window;
    return FALSE;
}

// A control reads and writes its own process' memory. `prepare` gets the address that the data has there.
template <class Data>
void askWith(HANDLE process, HWND window, UINT message, WPARAM wParam, Data& data,
             const std::type_identity_t<std::function<void(Data*)>>& prepare) {
    auto* there =
        static_cast<Data*>(::VirtualAllocEx(process, nullptr, sizeof data, MEM_COMMIT, PAGE_READWRITE));
    prepare(there);
    ::WriteProcessMemory(process, there, &data, sizeof data, nullptr);
    ::SendMessageW(window, message, wParam, reinterpret_cast<LPARAM>(there));
    ::ReadProcessMemory(process, there, &data, sizeof data, nullptr);
    ::VirtualFreeEx(process, there, 0, MEM_RELEASE);
}

}  // namespace

Program::Program(const std::string& executable, const std::vector<std::string>& arguments) {
    // What it keeps for the user lies beside the program, away from what others keep.
    ::SetEnvironmentVariableW(L"LOCALAPPDATA", wide(platform::path::directory(executable)).c_str());
    std::wstring line = L"\"" + wide(executable) + L"\"";
    for (const std::string& argument : arguments) line += L" \"" + wide(argument) + L"\"";
    STARTUPINFOW start{};
    start.cb = sizeof start;
    EXPECT_TRUE(::CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                                 &process_));
}

bool Program::opens() {
    window_ = waitForWindow(L"frmStich");
    return window_ != nullptr;
}

Program::~Program() {
    if (process_.hProcess == nullptr) return;
    ::TerminateProcess(process_.hProcess, 99);
    ::CloseHandle(process_.hThread);
    ::CloseHandle(process_.hProcess);
}

void Program::kill() const {
    ::TerminateProcess(process_.hProcess, 99);
    ::WaitForSingleObject(process_.hProcess, INFINITE);
}

HWND Program::waitForWindow(const wchar_t* windowClass) const {
    Search search{process_.dwProcessId, windowClass};
    waitFor([&] {
        ::EnumWindows(inspect, reinterpret_cast<LPARAM>(&search));
        return search.found != nullptr || ::WaitForSingleObject(process_.hProcess, 0) == WAIT_OBJECT_0;
    });
    return search.found;
}

HWND Program::control(const char* name, HWND form) const {
    struct Wanted {
        int id;
        HWND found = nullptr;
    } wanted{platform::win32::controlId(name)};
    ::EnumChildWindows(
        form != nullptr ? form : window_,
        [](HWND child, LPARAM parameter) -> BOOL {
            auto& w = *reinterpret_cast<Wanted*>(parameter);
            if (::GetDlgCtrlID(child) == w.id) w.found = child;
            return w.found == nullptr;
        },
        reinterpret_cast<LPARAM>(&wanted));
    return wanted.found;
}

std::string Program::text(HWND window) {
    std::wstring buffer(1024, L'\0');
    const auto length =
        ::SendMessageW(window, WM_GETTEXT, buffer.size(), reinterpret_cast<LPARAM>(buffer.data()));
    return narrow(std::wstring_view(buffer).substr(0, static_cast<std::size_t>(length)));
}

// As the button tells its parent: a click itself would be lost in a window that is not the active one.
void Program::press(const char* name, HWND form) const {
    const HWND button = control(name, form);
    const auto id = static_cast<WORD>(::GetDlgCtrlID(button));
    ::PostMessageW(::GetParent(button), WM_COMMAND, MAKEWPARAM(id, BN_CLICKED),
                   reinterpret_cast<LPARAM>(button));
}

// A press before the picture is on the screen would label nothing.
bool Program::shows(const std::string& picture) const {
    return waitFor([&] { return text(control("txtInfo")).ends_with(picture); });
}

void Program::typeInto(const char* name, const std::string& text) const {
    const HWND box = control(name);
    const HWND field = ::GetWindow(box, GW_CHILD);
    user::input::replaceText(field != nullptr ? field : box, text);
}

void Program::choose(const char* chooser, int index) const {
    const HWND box = control(chooser);
    ::SendMessageW(box, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
    ::PostMessageW(::GetParent(box), WM_COMMAND,
                   MAKEWPARAM(static_cast<WORD>(::GetDlgCtrlID(box)), CBN_SELCHANGE),
                   reinterpret_cast<LPARAM>(box));
}

void Program::selectTab(int index) const {
    ::SendMessageW(control("TabStrip1"), TCM_SETCURFOCUS, static_cast<WPARAM>(index), 0);
}

bool Program::answer(const std::string& part, int button) const {
    const HWND box = waitForWindow(L"#32770");
    if (box == nullptr) return false;
    std::string all;
    ::EnumChildWindows(
        box,
        [](HWND child, LPARAM parameter) -> BOOL {
            *reinterpret_cast<std::string*>(parameter) += Program::text(child) + "\n";
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&all));
    EXPECT_NE(all.find(part), std::string::npos) << all;
    ::PostMessageW(box, WM_COMMAND, static_cast<WPARAM>(button), 0);
    return waitFor([&] { return !::IsWindow(box); });
}

bool Program::choosePath(const std::string& path) const {
    constexpr int nameField = 0x480, nameBox = 0x47C;  // as the common dialogs number them
    const HWND dialog = waitForWindow(L"#32770");
    HWND field = nullptr;
    const bool ready = waitFor([&] {
        field = ::GetDlgItem(dialog, nameField);
        if (field == nullptr) field = ::GetDlgItem(dialog, nameBox);
        return field != nullptr;
    });
    if (!ready) return false;
    ::SendMessageW(field, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(wide(path).c_str()));
    ::PostMessageW(dialog, WM_COMMAND, IDOK, 0);
    return waitFor([&] { return !::IsWindow(dialog); });
}

int Program::rows(const char* list, HWND form) const {
    return static_cast<int>(::SendMessageW(control(list, form), LVM_GETITEMCOUNT, 0, 0));
}

int Program::selectedRow(const char* list) const {
    return static_cast<int>(
               ::SendMessageW(control(list), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED)) +
           1;
}

/// What a list is told or asked of an item, in one piece that can be copied.
struct Program::ItemRequest {
    LVITEMW item{};
    wchar_t text[512]{};
};

void Program::ask(HWND list, UINT message, int row, ItemRequest& request) const {
    askWith(process_.hProcess, list, message, static_cast<WPARAM>(row - 1), request, [&](ItemRequest* there) {
        request.item.pszText = there->text;
        request.item.cchTextMax = static_cast<int>(std::size(request.text));
    });
}

std::vector<std::string> Program::column(const char* list, int column, HWND form) const {
    std::vector<std::string> texts;
    for (int row = 1; row <= rows(list, form); ++row) {
        ItemRequest request;
        request.item.iSubItem = column;
        ask(control(list, form), LVM_GETITEMTEXTW, row, request);
        texts.push_back(narrow(request.text));
    }
    return texts;
}

bool Program::nameRow(const char* list, const std::string& name) const {
    const auto field = [&] {
        return reinterpret_cast<HWND>(::SendMessageW(control(list), LVM_GETEDITCONTROL, 0, 0));
    };
    if (!waitFor([&] { return field() != nullptr; })) return false;
    const HWND edit = field();
    user::input::replaceText(edit, name);
    ::PostMessageW(edit, WM_KEYDOWN, VK_RETURN, 1);
    return waitFor([&] { return field() == nullptr; });
}

void Program::close() const {
    ::PostMessageW(window_, WM_CLOSE, 0, 0);
}

int Program::exitCode() const {
    DWORD code = static_cast<DWORD>(-1);
    if (::WaitForSingleObject(process_.hProcess,
                              static_cast<DWORD>(std::chrono::milliseconds(patience).count())) ==
        WAIT_OBJECT_0) {
        ::GetExitCodeProcess(process_.hProcess, &code);
    }
    return static_cast<int>(code);
}
