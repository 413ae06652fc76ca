#include <gtest/gtest.h>

#include "platform/basic_controls.h"
#include "platform/form.h"
#include "platform/list_view.h"
#include "platform/metrics.h"
#include "platform/win32/form_window.h"
#include "platform/win32/surface_bitmap.h"
#include "tests/support/user.h"
#include "tests/support/win32/input.h"

namespace {

using namespace platform;

/// What stands on the screen in a control's client area.
class Shot {
  public:
    explicit Shot(const Control& control) : pixels_(sizeOf(control.native().window)) {
        const HWND window = control.native().window;
        user::pump();
        RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
        const HDC dc = GetDC(window);
        BitBlt(pixels_.dc(), 0, 0, pixels_.size().width, pixels_.size().height, dc, 0, 0, SRCCOPY);
        ReleaseDC(window, dc);
        GdiFlush();
    }
    Colour at(int x, int y) const { return pixels_.row(y)[x] & 0xFFFFFF; }
    int count(Rect area, Colour colour) const {
        int n = 0;
        for (int y = area.top; y < area.bottom; ++y)
            for (int x = area.left; x < area.right; ++x) n += at(x, y) == colour;
        return n;
    }

  private:
    static Size sizeOf(HWND window) {
        RECT r{};
        GetClientRect(window, &r);
        return {r.right, r.bottom};
    }
    win32::BitmapDc pixels_;
};

TEST(Look, AListShowsItsIconsInFrontOfTheirRows) {
    Form form("frmLook", "Aussehen", {});
    ListView list(form, "list", {{"Name", 20}}, {});
    list.move(Rect::at(0, 0, 300, 200));
    const int size = metricsOf(form).iconSize;
    const auto plain = [size](std::uint32_t colour) {
        return IconImage{size, std::vector<std::uint32_t>(static_cast<std::size_t>(size * size), colour)};
    };
    list.setIcons({plain(0xFFCC0000), plain(0xFF00AA00), plain(0x00FFFFFF)});
    list.icon = [](int row) { return row <= 3 ? row - 1 : -1; };
    list.cell = [](int, int) { return "Bild"; };
    list.setCount(4);
    form.show();
    const Shot shot(list);
    const auto coloured = [&](int row, Colour colour) {
        const Point text = user::pointOf(list, row);
        return shot.count(Rect::at(0, text.y - size / 2, text.x, size), colour);
    };
    EXPECT_GE(coloured(1, 0xCC0000), size * size / 2);
    EXPECT_GE(coloured(2, 0x00AA00), size * size / 2);
    EXPECT_EQ(coloured(2, 0xCC0000), 0);
    EXPECT_EQ(coloured(3, 0xFFFFFF), coloured(4, 0xFFFFFF)) << "transparent, or none";
}

TEST(Look, ControlsOnATabsPageHaveItsGround) {
    Form form("frmLook", "Aussehen", {});
    TabStrip tabs(form, "tabs", {"Eins"});
    tabs.move(Rect::at(0, 0, 300, 200));
    Panel page(form, "page");
    page.move(tabs.pageArea());
    Label label(page, "label", "Text");
    CheckBox box(page, "box", "Kasten");
    Slider slider(page, "slider");
    int y = 10;
    for (Control* control : std::initializer_list<Control*>{&label, &box, &slider}) {
        control->move(Rect::at(10, y, 200, 30));
        y += 40;
    }
    form.show();
    const Shot shot(page);
    const Colour ground = shot.at(2, 2);
    EXPECT_EQ(Shot(tabs).at(150, 195), ground) << "the tab's own page";
    for (const int top : {10, 50, 90}) EXPECT_EQ(shot.at(205, top + 2), ground) << top;
    EXPECT_LT(shot.count(Rect::at(10, 10, 60, 30), ground), 60 * 30) << "the label's text";
}

TEST(Look, AToolTipAppearsWhileTheMouseRests) {
    Form form("frmLook", "Hinweis", {});
    Button btnOne(form, "btnOne", "Los");
    btnOne.move(Rect::at(20, 20, 100, 30));
    form.show();
    btnOne.setToolTip("Was geschieht");
    RECT area{};
    GetWindowRect(btnOne.native().window, &area);
    const Point middle = user::input::centre(area);
    SetCursorPos(middle.x, middle.y);
    PostMessageW(btnOne.native().window, WM_MOUSEMOVE, 0, user::input::packed({10, 10}));
    const auto isShown = [] {
        bool shown = false;
        const auto look = [](HWND window, LPARAM found) -> BOOL {
            wchar_t name[32];
            GetClassNameW(window, name, 32);
            if (IsWindowVisible(window) && lstrcmpiW(name, TOOLTIPS_CLASSW) == 0)
                *reinterpret_cast<bool*>(found) = true;
            return TRUE;
        };
        EnumThreadWindows(GetCurrentThreadId(), look, reinterpret_cast<LPARAM>(&shown));
        return shown;
    };
    EXPECT_FALSE(isShown());
    EXPECT_TRUE(user::pumpUntil(isShown, 10000));
}

TEST(Look, AClosedComboBoxIsAsHighAsItsBounds) {
    Form form("frmLook", "Aussehen", {});
    for (const auto style : {ComboBox::Style::editable, ComboBox::Style::list}) {
        ComboBox box(form, "box", style);
        const int usual = metricsOf(form).comboHeight;
        for (const int height : {usual, usual + 7, usual}) {
            box.move(Rect::at(0, 0, 100, height));
            EXPECT_EQ(box.bounds(), Rect::at(0, 0, 100, height));
        }
        box.add(std::vector<std::string>(50, "Eintrag"));
        box.native().send(CB_SHOWDROPDOWN, TRUE);
        COMBOBOXINFO info{};
        info.cbSize = sizeof info;
        ASSERT_TRUE(GetComboBoxInfo(box.native().window, &info));
        RECT list{};
        GetWindowRect(info.hwndList, &list);
        EXPECT_GT(list.bottom - list.top, 5 * usual);
        EXPECT_LT(list.bottom - list.top, 40 * usual);
    }
}

struct OtherMonitor : testing::Test {
    Form form{"frmLook", "Aussehen", {}};
    Panel page{form, "page"};
    Label label{page, "label", "Text"};
    Button bold{page, "bold", "Text"};
    ListView list{page, "list", {{"Name", 20}}, {}};
    int layouts = 0;

    OtherMonitor() {
        bold.setFont({.face = "Segoe UI", .tenthPoints = 120, .bold = true});
        form.show();
        user::pump();
        form.onResize = [this] { ++layouts; };
    }
    static LONG fontHeight(const Control& control) {
        LOGFONTW font{};
        GetObjectW(reinterpret_cast<HFONT>(control.native().send(WM_GETFONT)), sizeof font, &font);
        return -font.lfHeight;
    }
    /// The heights of the two fonts and of two metrics, and the width of the list's column.
    std::vector<LONG> sizes() const {
        return {fontHeight(label), fontHeight(bold),
                static_cast<LONG>(list.native().send(LVM_GETCOLUMNWIDTH)), metricsOf(form).lineHeight,
                metricsOf(form).comboHeight};
    }
};

TEST_F(OtherMonitor, ScalesFontsMetricsAndColumns) {
    const std::vector<LONG> at96 = sizes();
    const std::string layout = list.layout();
    ASSERT_EQ(fontHeight(bold), 16);
    for (const int dpi : {192, 96}) {
        const RECT suggested{10, 20, 810, 620};
        form.native().send(WM_DPICHANGED, MAKEWPARAM(dpi, dpi), &suggested);
        EXPECT_EQ(metricsOf(label).dpi, dpi);
        for (std::size_t i = 0; i < at96.size(); ++i) {
            const LONG scaled = at96[i] * dpi / 96;
            EXPECT_NEAR(sizes()[i], scaled, i < 3 ? 0 : scaled / 3) << i;
        }
        EXPECT_EQ(bold.font().tenthPoints, 120);
        EXPECT_EQ(list.layout(), layout) << "kept for any resolution";
        EXPECT_EQ(form.bounds(), (Rect{10, 20, 810, 620}));
    }
    EXPECT_GE(layouts, 2);
}

TEST_F(OtherMonitor, FollowsTheUsersSettings) {
    for (const UINT message : {WM_SETTINGCHANGE, WM_THEMECHANGED, WM_SYSCOLORCHANGE}) {
        layouts = 0;
        form.native().send(message);
        EXPECT_EQ(layouts, 1) << message;
        EXPECT_EQ(reinterpret_cast<HFONT>(label.native().send(WM_GETFONT)),
                  form.native().form().windowFont());
    }
}

}  // namespace
