#include "platform/control.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "platform/basic_controls.h"
#include "platform/metrics.h"
#include "tests/contract/test_window.h"
#include "tests/support/user.h"

namespace {

using namespace platform;
using contract::Events;
using contract::TestWindow;

struct Page : TestWindow {
    Panel fraPage{form, "fraPage"};
    Button btnInside{fraPage, "btnInside", "&Innen"};
    TextBox txtOutside{form, "txtOutside"};

    Page() {
        fraPage.move(Rect::at(0, 0, 200, 200));
        btnInside.move(Rect::at(10, 20, 80, 25));
        txtOutside.move(Rect::at(210, 0, 100, 23));
    }
};

TEST(Control, StandsInItsParentUnderItsName) {
    Page page;
    EXPECT_EQ(page.btnInside.name(), "btnInside");
    EXPECT_EQ(page.btnInside.bounds(), Rect::at(10, 20, 80, 25));
    EXPECT_EQ(page.fraPage.clientSize(), (Size{200, 200}));
    EXPECT_EQ(&user::find<Button>(page.form, "btnInside"), &page.btnInside);
    EXPECT_THROW(user::find(page.form, "btnElsewhere"), std::logic_error);
}

TEST(Control, IsReachedOnlyThroughVisibleAndEnabledParents) {
    Page page;
    EXPECT_TRUE(user::reachable(page.btnInside));

    page.fraPage.setVisible(false);
    EXPECT_TRUE(page.btnInside.visible()) << "the flag is its own";
    EXPECT_FALSE(user::reachable(page.btnInside));
    EXPECT_THROW(user::press(page.btnInside), std::logic_error);

    page.fraPage.setVisible(true);
    page.fraPage.setEnabled(false);
    EXPECT_TRUE(page.btnInside.enabled());
    EXPECT_FALSE(user::reachable(page.btnInside));

    page.fraPage.setEnabled(true);
    page.btnInside.setEnabled(false);
    EXPECT_FALSE(user::reachable(page.btnInside));
    page.btnInside.setEnabled(true);
    EXPECT_TRUE(user::reachable(page.btnInside));
    page.form.hide();
    EXPECT_FALSE(user::reachable(page.btnInside));
}

TEST(Control, HasTheFocusAloneAndNotWhenDisabled) {
    Page page;
    page.txtOutside.focus();
    EXPECT_TRUE(page.txtOutside.focused());
    page.btnInside.focus();
    EXPECT_TRUE(page.btnInside.focused());
    EXPECT_FALSE(page.txtOutside.focused());
    page.txtOutside.setEnabled(false);
    page.txtOutside.focus();
    EXPECT_FALSE(page.txtOutside.focused());
}

TEST(Control, KeepsTheFontThatItIsGiven) {
    Page page;
    Font font = page.btnInside.font();
    EXPECT_FALSE(font.face.empty());
    font.tenthPoints = 120;
    font.bold = true;
    page.btnInside.setFont(font);
    EXPECT_EQ(page.btnInside.font(), font);
    EXPECT_NE(page.txtOutside.font(), font);
}

TEST(Panel, TellsANewSizeButNotANewPlace) {
    Page page;
    page.fraPage.onResize = page.log("resize");
    page.fraPage.move(Rect::at(5, 5, 200, 200));
    EXPECT_EQ(page.raised(), Events{});
    page.fraPage.move(Rect::at(5, 5, 300, 200));
    EXPECT_EQ(page.raised(), Events{"resize"});
    EXPECT_EQ(page.fraPage.clientSize(), (Size{300, 200}));
    page.fraPage.setVisible(false);
    page.fraPage.move(Rect::at(5, 5, 300, 100));
    EXPECT_EQ(page.raised(), Events{"resize"}) << "a hidden page is laid out too";
}

TEST(Metrics, AreThoseOfSomethingThatCanBeRead) {
    Page page;
    const Metrics m = metricsOf(page.form);
    for (const int size :
         {m.charWidth, m.lineHeight, m.vScrollWidth, m.hScrollHeight, m.iconSize, m.comboHeight, m.tabHeight})
        EXPECT_GT(size, 3);
    EXPECT_EQ(m.px(96), m.dpi);
    const int narrow = textWidth(page.btnInside, "Übung");
    EXPECT_GT(narrow, 0);
    EXPECT_GT(textWidth(page.btnInside, "Übung macht"), narrow);
    EXPECT_EQ(textWidth(page.btnInside, ""), 0);
}

}  // namespace
