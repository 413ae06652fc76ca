#include <gtest/gtest.h>

#include <set>
#include <stdexcept>
#include <string>

#include "platform/application.h"
#include "platform/basic_controls.h"
#include "platform/form.h"
#include "platform/list_view.h"
#include "platform/registry.h"
#include "platform/timer.h"
#include "platform/toolbar.h"
#include "platform/user_control.h"
#include "platform/win32/command_line.h"
#include "platform/win32/control_ids.h"
#include "platform/win32/form_window.h"
#include "platform/win32/wide.h"
#include "res/resource.h"
#include "tests/support/temp_folder.h"
#include "tests/support/user.h"

namespace {

using namespace platform;

std::string resource(const wchar_t* name, const wchar_t* type) {
    const HRSRC found = FindResourceW(nullptr, name, type);
    const HGLOBAL loaded = found ? LoadResource(nullptr, found) : nullptr;
    if (!loaded) return {};
    return {static_cast<const char*>(LockResource(loaded)), SizeofResource(nullptr, found)};
}

TEST(Resources, ManifestAsksForWhatTheProgramRelesOn) {
    const std::string manifest = resource(MAKEINTRESOURCEW(1), RT_MANIFEST);
    for (const char* wanted : {"Microsoft.Windows.Common-Controls", "6.0.0.0", "PerMonitorV2",
                               "longPathAware", "{8e0f7a12-bfb3-4fe8-b9a5-48fd50a15a9a}"})
        EXPECT_NE(manifest.find(wanted), std::string::npos) << wanted;
    EXPECT_EQ(manifest.find("activeCodePage"), std::string::npos) << "the suite reads files in the system's";
}

TEST(Resources, HoldIconsCursorAndVersion) {
    const HINSTANCE program = GetModuleHandleW(nullptr);
    EXPECT_NE(LoadIconW(program, MAKEINTRESOURCEW(IDI_STICH)), nullptr);
    EXPECT_NE(LoadIconW(program, MAKEINTRESOURCEW(IDI_SET)), nullptr);
    ICONINFO cursor{};
    ASSERT_TRUE(GetIconInfo(LoadCursorW(program, MAKEINTRESOURCEW(106)), &cursor));
    BITMAP bitmap{};
    GetObjectW(cursor.hbmMask, sizeof bitmap, &bitmap);
    EXPECT_FALSE(cursor.fIcon);
    EXPECT_EQ(static_cast<LONG>(cursor.xHotspot), bitmap.bmWidth / 2);
    EXPECT_EQ(static_cast<LONG>(cursor.yHotspot), bitmap.bmWidth / 2);
    DeleteObject(cursor.hbmMask);
    DeleteObject(cursor.hbmColor);
    const std::string version = resource(MAKEINTRESOURCEW(1), RT_VERSION);
    const std::wstring text = L"Stichproben-Editor für Bilder und ihre Klassen";
    const std::string bytes(reinterpret_cast<const char*>(text.data()), text.size() * sizeof(wchar_t));
    EXPECT_NE(version.find(bytes), std::string::npos);
}

TEST(ControlIds, AreUnique) {
    std::set<int> ids;
    std::set<std::string_view> names;
    for (const auto& [name, id] : win32::controlIds) {
        EXPECT_TRUE(names.insert(name).second && ids.insert(id).second) << name;
        EXPECT_GT(id, IDCONTINUE) << "the system's own numbers";
        EXPECT_LT(id, win32::controlSeries[0].firstId);
    }
    EXPECT_EQ(win32::controlId("Command1(0)"), 2000);
    EXPECT_EQ(win32::controlId("Command1(999)"), 2999);
    const auto refused =
        win32::setUnlistedControl([](std::string_view) -> int { throw std::logic_error("unlisted"); });
    for (const char* name : {"btnFehlt", "Command1", "Command1(1000)", "Command1(-1)", "Command1(x)", ""})
        EXPECT_THROW(win32::controlId(name), std::logic_error) << name;
    win32::setUnlistedControl(refused);
}

/// A window with one of everything, used a little.
void openAndClose() {
    Form form("frmHandles", "Griffe", {});
    Panel panel(form, "panel");
    TabStrip tabs(form, "tabs", {"Eins"});
    Button button(panel, "button", "&Los");
    ListView list(panel, "list", {{"Name", 10}}, {});
    Toolbar toolbar(form, "toolbar");
    UserControl drawing(form, "drawing", "kvHandles");
    Timer timer(form);
    const IconImage icon{16, std::vector<std::uint32_t>(256, 0xFF00FF00)};
    list.setIcons({icon});
    list.setIcons({icon, icon});
    toolbar.setImages({{"a", icon}});
    toolbar.add({"a", "Los", "", {}});
    button.setFont({.face = "Segoe UI", .bold = true});
    button.setBackColour(0xFF);
    button.setToolTip("Hinweis");
    drawing.move(Rect::at(0, 0, 20, 20));
    drawing.onPaint = [](Canvas& canvas) {
        const Surface surface({4, 4});
        canvas.copy({0, 0, 4, 4}, surface, {});
    };
    timer.setInterval(1000);
    timer.setEnabled(true);
    form.show();
    const RECT suggested{0, 0, 300, 200};
    form.native().send(WM_DPICHANGED, MAKEWPARAM(144, 144), &suggested);
    user::pump();
    form.unload();
}

TEST(Handles, AreAllGivenBackByAWindowThatIsGone) {
    openAndClose();
    const int before = win32::liveHandles();
    for (int i = 0; i < 100; ++i) openAndClose();
    EXPECT_EQ(win32::liveHandles(), before);
    EXPECT_EQ(FindWindowW(L"frmHandles", nullptr), nullptr);
}

TEST(CommandLine, IsAPathWhoeverQuotedIt) {
    const support::TempFolder folder;
    const std::string blanks = folder.write("eine Stichprobe Größe.kvs", "x");
    const std::pair<std::string, std::string> cases[] = {
        {"  ", ""},
        {"a.kvs b.kvs", "a.kvs"},
        {"\"mit Blank.kvs\"", "mit Blank.kvs"},
        {" \"a b.kvs\" zweites", "a b.kvs"},
        {"  " + blanks + " ", blanks},
        {"\"" + blanks, blanks},
    };
    for (const auto& [line, path] : cases) EXPECT_EQ(win32::commandLinePath(wide(line)), path) << line;
}

TEST(FormatNumber, HasTheDecimalSignThatTheUserHasSet) {
    wchar_t before[8]{};
    GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, before, 8);
    for (const wchar_t* sign : {L",", L"."}) {
        EXPECT_TRUE(SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, sign));
        EXPECT_EQ(formatNumber(2.5, 1), "2" + narrow(sign) + "5");
    }
    SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, before);
    EXPECT_EQ(formatNumber(3, 0), "3");
}

TEST(FormOnWindows, EndsWithTheSession) {
    Form form("frmSession", "Sitzung", {});
    bool agrees = false;
    int unloads = 0;
    form.onQueryUnload = [&] { return agrees; };
    form.onUnload = [&] { ++unloads; };
    form.show();
    EXPECT_FALSE(form.native().send(WM_QUERYENDSESSION));
    form.native().send(WM_ENDSESSION, FALSE);
    EXPECT_TRUE(form.loaded());
    agrees = true;
    EXPECT_TRUE(form.native().send(WM_QUERYENDSESSION));
    form.native().send(WM_ENDSESSION, TRUE);
    EXPECT_EQ(unloads, 1);
}

}  // namespace
