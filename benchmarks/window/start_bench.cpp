// From the start of a process to its window on the screen, and to the picture in it. The floor is a process
// of the same program whose window has the same controls at the same places, made by the system's functions
// alone.
#include <memory>
#include <sstream>

#include "benchmarks/window/editor.h"
#include "benchmarks/window/measure.h"
#include "benchmarks/window/process.h"
#include "platform/files.h"
#include "platform/registry.h"
#include "platform/win32/native.h"
#include "platform/win32/wide.h"
#include "tests/support/user.h"

namespace measure {

namespace {

constexpr const char* windowIsThere = "stich benchmark window";
constexpr const char* pictureIsThere = "stich benchmark picture";
constexpr int starts = 9;

std::string controlsFile(const std::string& folder) {
    return folder + "\\controls.txt";
}

/// A control as it stands in the editor's window; `parent` is its place in the list, -1 the window itself.
struct Recorded {
    int parent;
    std::string windowClass;
    DWORD style, extendedStyle;
    RECT place;
    int columns;
};

void record(const platform::Control& control, int parent, std::vector<Recorded>& all) {
    for (const platform::Control* child : user::childrenOf(control)) {
        const HWND window = child->native().window;
        wchar_t name[64];
        ::GetClassNameW(window, name, 64);
        Recorded one{parent,
                     platform::narrow(name),
                     static_cast<DWORD>(::GetWindowLongW(window, GWL_STYLE)),
                     static_cast<DWORD>(::GetWindowLongW(window, GWL_EXSTYLE)),
                     {},
                     0};
        ::GetWindowRect(window, &one.place);
        ::MapWindowPoints(nullptr, ::GetParent(window), reinterpret_cast<POINT*>(&one.place), 2);
        if (one.windowClass == "SysListView32") {
            const auto header = reinterpret_cast<HWND>(::SendMessageW(window, LVM_GETHEADER, 0, 0));
            one.columns = static_cast<int>(::SendMessageW(header, HDM_GETITEMCOUNT, 0, 0));
        }
        all.push_back(one);
        record(*child, static_cast<int>(all.size()) - 1, all);
    }
}

void recordControls(const std::string& folder) {
    Editor editor(folder);
    std::vector<Recorded> all;
    record(editor.window.form, -1, all);
    std::ostringstream text;
    for (const Recorded& one : all) {
        text << one.parent << ' ' << one.windowClass << ' ' << one.style << ' ' << one.extendedStyle << ' '
             << one.place.left << ' ' << one.place.top << ' ' << one.place.right - one.place.left << ' '
             << one.place.bottom - one.place.top << ' ' << one.columns << '\n';
    }
    platform::files::replace(controlsFile(folder), text.str());
}

constexpr const wchar_t* plainClass = L"frmPlain";  // also for the controls that we draw ourselves

HWND makePlain(const wchar_t* windowClass, DWORD style, DWORD extendedStyle, RECT place, HWND parent) {
    return ::CreateWindowExW(extendedStyle, windowClass, L"", style, place.left, place.top, place.right,
                             place.bottom, parent, nullptr, ::GetModuleHandleW(nullptr), nullptr);
}

HWND makeControl(std::istream& line, HWND window, std::vector<HWND>& all) {
    int parent, columns;
    std::string windowClass;
    DWORD style, extendedStyle;
    RECT place;  // left, top, width, height
    if (!(line >> parent >> windowClass >> style >> extendedStyle >> place.left >> place.top >> place.right >>
          place.bottom >> columns))
        return nullptr;
    const HWND in = parent < 0 ? window : all[static_cast<std::size_t>(parent)];
    HWND made = makePlain(platform::wide(windowClass).c_str(), style, extendedStyle, place, in);
    if (made == nullptr) made = makePlain(plainClass, style, extendedStyle, place, in);
    for (int i = 0; i < columns; ++i) {
        wchar_t caption[] = L"Name";
        LVCOLUMNW column{};
        column.mask = LVCF_TEXT | LVCF_WIDTH;
        column.cx = 80;
        column.pszText = caption;
        ::SendMessageW(made, LVM_INSERTCOLUMNW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&column));
    }
    all.push_back(made);
    return made;
}

/// Hears when the editor's window is on the screen: just before the first thing that is read for it.
class Listening : public shell::EditorWindow {
  public:
    explicit Listening(editor::frmStich& editor) : editor_(editor) {}

    platform::Form& window() override { return editor_.window(); }
    platform::Toolbar& pictureToolbar() override { return editor_.pictureToolbar(); }
    void toolbarReady() override { editor_.toolbarReady(); }
    void ReadProp() override { editor_.ReadProp(); }
    void TabStrip1_Click() override { editor_.TabStrip1_Click(); }
    void btnCNew_Click() override { editor_.btnCNew_Click(); }
    void SetStdClass(bool assignAll) override { editor_.SetStdClass(assignAll); }
    void Slider1_Change() override { editor_.Slider1_Change(); }
    void offerWholePicture() override { editor_.offerWholePicture(); }
    void enableGrab(bool available) override { editor_.enableGrab(available); }
    void useDirectories(const shell::Directories& directories) override {
        editor_.useDirectories(directories);
    }
    void SearchSets(bool fill) override {
        if (editor_.form.visible()) Signal(windowIsThere).give();
        editor_.SearchSets(fill);
    }
    void browse(const std::string& directory) override { editor_.browse(directory); }
    std::int16_t LoadFile(const std::string& path) override { return editor_.LoadFile(path); }
    void cboSets_Change() override { editor_.cboSets_Change(); }
    void clearSetName() override { editor_.clearSetName(); }
    void offerLeftSets() override { editor_.offerLeftSets(); }

  private:
    editor::frmStich& editor_;
};

}  // namespace

void startEditor(const std::string& folder, const std::string& setFile) {
    const shell::Environment environment{folder, settingsRoot};
    editor::frmStich window(environment);
    Listening listening(window);
    shell::start(listening, environment, setFile);
    window.form.update();
    Signal(pictureIsThere).give();
    window.btnAbbr.onClick();
}

void startEmpty(const std::string& folder) {
    WNDCLASSEXW description{};
    description.cbSize = sizeof description;
    description.lpfnWndProc = ::DefWindowProcW;
    description.hInstance = ::GetModuleHandleW(nullptr);
    description.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    description.lpszClassName = plainClass;
    ::RegisterClassExW(&description);
    const HWND window =
        makePlain(plainClass, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, 0, {50, 50, 1110, 740}, nullptr);
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    ::SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    const HFONT font = ::CreateFontIndirectW(&metrics.lfMessageFont);
    std::istringstream controls(platform::files::read(controlsFile(folder)));
    std::vector<HWND> all;
    while (const HWND made = makeControl(controls, window, all))
        ::SendMessageW(made, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
    ::ShowWindow(window, SW_SHOW);
    ::SetForegroundWindow(window);
    ::RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    Signal(windowIsThere).give();
    ::DestroyWindow(window);
    ::DeleteObject(font);
}

void starting(const std::string& folder) {
    platform::Registry(settingsRoot).removeAll();  // else the window is as large as some other part left it
    recordControls(folder);
    const std::string setFile =
        writeSet(folder, "start", {folder + "\\photos\\0.jpg", folder + "\\photos\\1.jpg"}, 5);
    Signal window(windowIsThere), picture(pictureIsThere);
    std::vector<double> empty, shown, withPicture;
    for (int i = 0; i < starts; ++i) {
        const auto started = [&](const std::vector<std::string>& arguments, std::vector<double>& until,
                                 std::vector<double>* untilPicture) {
            std::unique_ptr<Child> child;
            double first = 0;
            const double whole = milliseconds([&] {
                first = milliseconds([&] {
                    child = std::make_unique<Child>(arguments);
                    window.await();
                });
                if (untilPicture) picture.await();
            });
            child->wait();
            until.push_back(first);
            if (untilPicture) untilPicture->push_back(whole);
        };
        started({folder, "empty"}, empty, nullptr);
        started({folder, "editor", setFile}, shown, &withPicture);
    }
    const Floor floor =
        report({.name = "start: process to an empty window with the same controls", .values = empty});
    report({.name = "start: process to the editor's window, all painted",
            .values = shown,
            .target = {.median = 1.5 * floor.median},
            .floor = floor,
            .note = "wanted: at most 1.5 times"});
    report({.name = "start: process to the picture, JPEG 1920 x 1080",
            .values = withPicture,
            .target = {.median = 200},
            .floor = floor});
}

}  // namespace measure
