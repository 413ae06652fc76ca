#include "platform/toolbar.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/contract/test_window.h"
#include "tests/support/user.h"

namespace {

using namespace platform;
using contract::Events;
using contract::TestWindow;

IconImage plainIcon(int size) {
    return {size, std::vector<std::uint32_t>(static_cast<std::size_t>(size * size), 0xFF336699)};
}

struct Tools : TestWindow {
    Toolbar toolbar{form, "tbr"};
    Tools() {
        toolbar.setImages({{"play", plainIcon(16)}, {"stop", plainIcon(16)}, {"save", plainIcon(16)}});
        toolbar.add({"play", "Abspielen", "0", {}});
        toolbar.add({});
        toolbar.add({"save", "Speichern", "", {{"play", "Als &Kopie"}, {"all", "Alle"}}});
        toolbar.move(Rect::at(0, 0, 300, toolbar.preferredSize().height));
        toolbar.onButtonClick = [this](auto& b) { log(b.key)(b.tag, b.toolTip); };
        toolbar.onMenuClick = [this](auto& parent, auto& entry) { log(parent.key)(entry.key); };
    }
};

TEST(Toolbar, CountsFromOneWithSeparatorsAndTellsAButtonAsItIsNow) {
    Tools window;
    Toolbar& toolbar = window.toolbar;
    EXPECT_EQ(toolbar.count(), 3);
    EXPECT_EQ(toolbar.indexOf("SAVE"), 3);
    EXPECT_EQ(toolbar.indexOf("grab"), 0);
    EXPECT_EQ(toolbar.image(1), "play");
    toolbar.setTag(1, "1");
    toolbar.setImage(1, "stop");
    toolbar.setToolTip(1, "Anhalten");
    EXPECT_EQ(toolbar.image(1), "stop");
    user::press(toolbar, "play");
    user::chooseMenu(toolbar, "save", "all");
    user::press(toolbar, "save");  // the button beside its arrow
    EXPECT_EQ(window.raised(), (Events{"play 1 Anhalten", "save all", "save  Speichern"}));
    toolbar.setEnabled(1, false);
    EXPECT_FALSE(toolbar.enabled(1));
    EXPECT_TRUE(toolbar.enabled(3) && toolbar.enabled());
    EXPECT_THROW(user::press(toolbar, "play"), std::logic_error);
}

TEST(Toolbar, IsFilledAnew) {
    Tools window;
    const Size before = window.toolbar.preferredSize();
    window.toolbar.clear();
    EXPECT_EQ(window.toolbar.indexOf("play"), 0);
    window.toolbar.setImages({{"big", plainIcon(32)}});
    window.toolbar.add({"big", "", "", {}});
    EXPECT_EQ(window.toolbar.count(), 1);
    EXPECT_EQ(window.toolbar.indexOf("big"), 1);
    EXPECT_GT(window.toolbar.preferredSize().height, before.height);
    EXPECT_LT(window.toolbar.preferredSize().width, before.width);
}

}  // namespace
