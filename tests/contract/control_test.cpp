#include "platform/control.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>

#include "platform/basic_controls.h"
#include "tests/contract/test_window.h"
#include "tests/support/user.h"

namespace {

using namespace platform;

TEST(Control, IsReachedOnlyThroughVisibleAndEnabledParents) {
    contract::TestWindow window;
    Panel page(window.form, "fraPage");
    Button button(page, "btnInside", "&Innen");
    page.move(Rect::at(0, 0, 200, 200));
    button.move(Rect::at(10, 20, 80, 25));
    const std::function<void(bool)> conditions[] = {[&](bool on) { page.setVisible(on); },
                                                    [&](bool on) { page.setEnabled(on); },
                                                    [&](bool on) { button.setEnabled(on); }};
    for (const auto& set : conditions) {
        button.focus();
        EXPECT_TRUE(button.focused());
        set(false);
        EXPECT_FALSE(button.focused());
        EXPECT_TRUE(button.visible()) << "the flag is its own";
        EXPECT_FALSE(user::reachable(button));
        EXPECT_THROW(user::press(button), std::logic_error);
        set(true);
        EXPECT_TRUE(user::reachable(button));
    }
    window.form.hide();
    EXPECT_FALSE(user::reachable(button));
}

}  // namespace
