#include "platform/control.h"

#include <gtest/gtest.h>

#include <functional>
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

TEST(Control, IsReachedOnlyThroughVisibleAndEnabledParents) {
    Page page;
    const std::function<void(bool)> conditions[] = {[&](bool on) { page.fraPage.setVisible(on); },
                                                    [&](bool on) { page.fraPage.setEnabled(on); },
                                                    [&](bool on) { page.btnInside.setEnabled(on); }};
    EXPECT_TRUE(user::reachable(page.btnInside));
    for (const auto& set : conditions) {
        set(false);
        EXPECT_TRUE(page.btnInside.visible()) << "the flag is its own";
        EXPECT_FALSE(user::reachable(page.btnInside));
        EXPECT_THROW(user::press(page.btnInside), std::logic_error);
        set(true);
        EXPECT_TRUE(user::reachable(page.btnInside));
    }
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

TEST(Panel, TellsANewSizeButNotANewPlace) {
    Page page;
    page.fraPage.onResize = page.log("resize");
    page.fraPage.move(Rect::at(5, 5, 200, 200));
    EXPECT_EQ(page.raised(), Events{});
    page.fraPage.move(Rect::at(5, 5, 300, 200));
    EXPECT_EQ(page.fraPage.clientSize(), (Size{300, 200}));
    EXPECT_EQ(page.raised(), Events{"resize"});
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
    EXPECT_EQ(textWidth(page.btnInside, ""), 0);
    EXPECT_GT(textWidth(page.btnInside, "Übung macht"), textWidth(page.btnInside, "Übung"));
}

}  // namespace
