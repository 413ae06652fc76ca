#include <gtest/gtest.h>

#include "platform/basic_controls.h"
#include "platform/list_view.h"
#include "platform/win32/form_window.h"
#include "tests/support/user.h"

namespace {

using namespace platform;

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
