// A user's day with the real program: what is started here is the file that is shipped.
#include "program.h"

#include <gtest/gtest.h>

#include <commctrl.h>

#include <chrono>
#include <functional>
#include <thread>

#include "model/kvTamSampleSet.h"
#include "platform/document.h"
#include "platform/files.h"
#include "platform/path.h"
#include "platform/registry.h"
#include "platform/win32/control_ids.h"
#include "platform/win32/wide.h"
#include "tests/support/pictures.h"
#include "tests/support/temp_folder.h"

namespace {

using namespace std::chrono_literals;
using platform::narrow;
using platform::wide;

constexpr auto patience = 20s;

bool waitFor(const std::function<bool()>& condition) {
    for (const auto end = std::chrono::steady_clock::now() + patience; !condition();) {
        if (std::chrono::steady_clock::now() > end) return false;
        std::this_thread::sleep_for(10ms);
    }
    return true;
}

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

}  // namespace

Program::Program(const std::string& executable, const std::string& argument) {
    std::wstring line = L"\"" + wide(executable) + L"\"";
    if (!argument.empty()) line += L" \"" + wide(argument) + L"\"";
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

void Program::typeInto(const char* chooser, const std::string& text) const {
    const HWND edit = ::GetWindow(control(chooser), GW_CHILD);
    ::SendMessageW(edit, EM_SETSEL, 0, -1);
    ::SendMessageW(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(wide(text).c_str()));
}

void Program::choose(const char* chooser, int index) const {
    const HWND box = control(chooser);
    ::SendMessageW(box, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
    ::PostMessageW(::GetParent(box), WM_COMMAND,
                   MAKEWPARAM(static_cast<WORD>(::GetDlgCtrlID(box)), CBN_SELCHANGE),
                   reinterpret_cast<LPARAM>(box));
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

int Program::rows(const char* list) const {
    return static_cast<int>(::SendMessageW(control(list), LVM_GETITEMCOUNT, 0, 0));
}

int Program::selectedRow(const char* list) const {
    return static_cast<int>(
               ::SendMessageW(control(list), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED)) +
           1;
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

namespace {

class Day : public testing::Test {
  protected:
    Day() {
        ::CopyFileW(wide(platform::files::fullPath(STICH_EXE)).c_str(), wide(program()).c_str(), FALSE);
        set_.AppPath(folder_.path());
        for (const char* name : {"gut", "Riß", "Pore"}) set_.kvtamClasses().Add(name, "");
        for (int i = 1; i <= 4; ++i) {
            const bool bitmap = i % 2 == 1;
            const std::string name = "Picture\\Maß " + std::to_string(i) + (bitmap ? ".bmp" : ".JPG");
            const std::string file =
                folder_.write(name, bitmap ? support::trueColourBitmap({40, 30}, support::distinctColour)
                                           : support::smallJpeg());
            set_.kvtamSamples().Add(file, "", "").ItemClasses.push_back(1);
        }
        platform::files::createDirectories(folder_.file("TestSets"));
        EXPECT_TRUE(set_.Save(folder_.file("TestSets\\Köpfe.kvs")));
    }
    ~Day() override { platform::Registry("Software\\Veltor2").removeAll(); }

    std::string program() const { return folder_.file("Stich.exe"); }
    std::string label(const char* set, int item) const {
        const auto document =
            platform::ProfileDocument::load(folder_.file(std::string("TestSets\\") + set + ".kvs"));
        return std::string(document.findSection("ROI0")->find(std::to_string(item)).value_or("(absent)"));
    }

    support::TempFolder folder_;
    model::kvTamSampleSet set_;
};

TEST_F(Day, LabelsGivenByClicksAreInTheSavedFileAndTheEditorComesBackAsItWas) {
    {
        Program stich(program(), folder_.file("TestSets\\Köpfe.kvs"));
        ASSERT_TRUE(stich.opens());
        ASSERT_EQ(stich.rows("lvCItems"), 4);
        EXPECT_EQ(Program::text(stich.control("txtSize")), "40 x 30 Pixel, 24 Bit Farbtiefe");
        ASSERT_TRUE(stich.shows("Maß 1.bmp"));
        const std::pair<const char*, const char*> clicks[] = {
            {"Command1(1)", "Maß 2.JPG"}, {"Command1(2)", "Maß 3.bmp"}, {"Command1(1)", "Maß 4.JPG"}};
        for (const auto& [button, next] : clicks) {
            stich.press(button);
            ASSERT_TRUE(stich.shows(next));
        }
        EXPECT_EQ(stich.selectedRow("lvCItems"), 4);
        // A camera's spelling of the ending does not keep a picture from its own size.
        EXPECT_EQ(Program::text(stich.control("txtSize")), "24 x 16 Pixel, 24 Bit Farbtiefe");
        stich.press("btnSave");
        ASSERT_TRUE(stich.answer("Sie haben keinen Namen für die Stichprobe vergeben!", IDOK));
        stich.typeInto("cboSets", "Köpfe");
        stich.press("btnSave");
        ASSERT_TRUE(stich.answer("Vorhandene Datei überschreiben?", IDOK));
        ASSERT_TRUE(waitFor([&] { return label("Köpfe", 1) == "2"; }));
        EXPECT_EQ(label("Köpfe", 2), "3");
        EXPECT_EQ(label("Köpfe", 3), "2");
        EXPECT_EQ(label("Köpfe", 4), "1");
        stich.close();
        EXPECT_EQ(stich.exitCode(), 0) << "saved: nothing to ask";
    }
    Program again(program());
    ASSERT_TRUE(again.opens());
    EXPECT_EQ(Program::text(again.control("cboSets")), "");
    again.choose("cboSets", 0);
    ASSERT_TRUE(again.shows("Maß 1.bmp"));
    again.press("Command1(2)");
    ASSERT_TRUE(again.shows("Maß 2.JPG"));
    again.close();
    ASSERT_TRUE(again.answer("Änderungen speichern?", IDCANCEL));
    again.press("btnOK");
    ASSERT_TRUE(again.answer("Änderungen speichern?", IDNO));
    EXPECT_EQ(again.exitCode(), 0);
    EXPECT_EQ(label("Köpfe", 1), "2");
}

TEST_F(Day, MissingPicturesAreToldBeforeTheSetIsOpen) {
    platform::files::remove(folder_.file("Picture\\Maß 3.bmp"));
    Program stich(program());
    ASSERT_TRUE(stich.opens());
    stich.choose("cboSets", 0);
    const HWND dialog = stich.waitForWindow(L"frmError");
    ASSERT_NE(dialog, nullptr);
    stich.press("btnDel", dialog);
    ASSERT_TRUE(stich.answer("Sind Sie sicher, daß Sie die restlichen Dateien", IDYES));
    ASSERT_TRUE(waitFor([&] { return stich.rows("lvCItems") == 3; }));
    stich.press("btnAbbr");
    EXPECT_EQ(stich.exitCode(), 0);
}

TEST_F(Day, ASetThatCannotBeOpenedEndsTheProgram) {
    const std::string bad = folder_.write("kaputt.kvs", "[Common]\r\nClasses=1\r\nROIs=-1\r\nItems=1\r\n");
    Program stich(program(), bad);
    ASSERT_TRUE(stich.answer("Die Stichprobe kann nicht geöffnet werden.", IDOK));
    EXPECT_EQ(stich.exitCode(), 0);
}

}  // namespace
