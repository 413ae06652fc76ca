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
        toolbar.add({.key = "play", .toolTip = "Abspielen", .tag = "0", .menu = {}});
        toolbar.add({.key = "", .toolTip = "", .tag = "", .menu = {}});
        toolbar.add({.key = "save",
                     .toolTip = "Speichern",
                     .tag = "",
                     .menu = {{"play", "Als &Kopie"}, {"all", "Alle"}}});
        toolbar.move(Rect::at(0, 0, 300, toolbar.preferredSize().height));
        toolbar.onButtonClick = [this](const Toolbar::Button& b) { events.push_back(b.key + "/" + b.tag); };
        toolbar.onMenuClick = [this](const Toolbar::Button& parent, const Toolbar::MenuEntry& entry) {
            events.push_back(parent.key + ">" + entry.key);
        };
    }
};

TEST(Toolbar, CountsFromOneWithSeparatorsAndFindsKeysInAnyCase) {
    Tools window;
    EXPECT_EQ(window.toolbar.count(), 3);
    EXPECT_EQ(window.toolbar.indexOf("SAVE"), 3);
    EXPECT_EQ(window.toolbar.indexOf("grab"), 0);
    EXPECT_EQ(window.toolbar.button(1).toolTip, "Abspielen");
    EXPECT_EQ(window.toolbar.button(3).menu.size(), 2u);
    EXPECT_EQ(window.toolbar.image(1), "play");
}

TEST(Toolbar, TellsThePressedButtonAsItIsNow) {
    Tools window;
    user::press(window.toolbar, "play");
    EXPECT_EQ(window.raised(), Events{"play/0"});
    window.toolbar.setTag(1, "1");
    window.toolbar.setImage(1, "stop");
    window.toolbar.setToolTip(1, "Anhalten");
    EXPECT_EQ(window.toolbar.image(1), "stop");
    EXPECT_EQ(window.toolbar.button(1).toolTip, "Anhalten");
    user::press(window.toolbar, "play");
    EXPECT_EQ(window.raised(), Events{"play/1"});
}

TEST(Toolbar, TellsTheEntryOfADropDownMenu) {
    Tools window;
    user::chooseMenu(window.toolbar, "save", "all");
    EXPECT_EQ(window.raised(), Events{"save>all"});
    user::press(window.toolbar, "save");
    EXPECT_EQ(window.raised(), Events{"save/"}) << "the button beside its arrow";
}

TEST(Toolbar, KeepsDisabledButtonsFromTheUser) {
    Tools window;
    window.toolbar.setEnabled(1, false);
    EXPECT_FALSE(window.toolbar.enabled(1));
    EXPECT_TRUE(window.toolbar.enabled(3));
    EXPECT_TRUE(window.toolbar.enabled());
    EXPECT_THROW(user::press(window.toolbar, "play"), std::logic_error);
    window.toolbar.setEnabled(1, true);
    user::press(window.toolbar, "play");
    EXPECT_EQ(window.raised(), Events{"play/0"});
}

TEST(Toolbar, IsFilledAnew) {
    Tools window;
    const Size before = window.toolbar.preferredSize();
    window.toolbar.clear();
    EXPECT_EQ(window.toolbar.count(), 0);
    EXPECT_EQ(window.toolbar.indexOf("play"), 0);
    window.toolbar.setImages({{"big", plainIcon(32)}});
    window.toolbar.add({.key = "big", .toolTip = "", .tag = "", .menu = {}});
    EXPECT_EQ(window.toolbar.indexOf("big"), 1);
    EXPECT_GT(window.toolbar.preferredSize().height, before.height);
    EXPECT_LT(window.toolbar.preferredSize().width, before.width);
}

}  // namespace
