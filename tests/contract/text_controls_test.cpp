#include <gtest/gtest.h>

#include <stdexcept>

#include "platform/basic_controls.h"
#include "tests/contract/test_window.h"
#include "tests/support/user.h"

namespace {

using namespace platform;
using contract::Events;
using contract::TestWindow;

TEST(Captions, AreReadWithoutTheMarkOfTheAccessKeyUnlessTheyArePlain) {
    TestWindow window;
    Button button(window.form, "btn");
    Label label(window.form, "lbl");
    Label plain(window.form, "lblPlain", {}, Label::Style::plain);
    const std::pair<const char*, const char*> cases[] = {
        {"&Suchen", "Suchen"}, {"Spei&chern...", "Speichern..."}, {"Gut && Böse", "Gut & Böse"}, {"", ""}};
    for (const auto& [mnemonic, read] : cases) {
        button.setCaption(mnemonic);
        EXPECT_EQ(button.caption(), read);
        label.setCaption(mnemonic);
        EXPECT_EQ(label.caption(), read);
        button.setPlainCaption(mnemonic);
        EXPECT_EQ(button.caption(), mnemonic);
        plain.setCaption(mnemonic);
        EXPECT_EQ(plain.caption(), mnemonic);
    }
}

struct Boxes : TestWindow {
    TextBox txtOne{form, "txtOne"};
    TextBox txtTwo{form, "txtTwo"};
    Button btnLeave{form, "btnLeave"};
    Boxes() {
        txtOne.move(Rect::at(0, 0, 100, 23));
        txtTwo.move(Rect::at(0, 30, 100, 23));
        btnLeave.move(Rect::at(0, 60, 100, 25));
        txtOne.onChange = log("change");
        txtOne.onCommit = log("commit");
        btnLeave.onClick = log("click");
    }
};

TEST(TextBox, TellsTextOfTheUserOnly) {
    Boxes boxes;
    user::type(boxes.txtOne, "neu & schön");
    EXPECT_EQ(boxes.txtOne.text(), "neu & schön");
    EXPECT_EQ(boxes.raised(), Events{"change"});
    boxes.txtOne.setText("eins\r\nzwei\ndrei");
    EXPECT_EQ(boxes.txtOne.text(), "eins zwei drei");
    boxes.txtTwo.focus();
    EXPECT_EQ(boxes.raised(), Events{}) << "the user's text is gone";
}

TEST(TextBox, CommitsByEnterOrWhenItIsLeftAfterAChange) {
    Boxes boxes;
    user::type(boxes.txtOne, "a");
    user::commit(boxes.txtOne);
    EXPECT_EQ(boxes.raised(), (Events{"change", "commit"}));
    boxes.txtTwo.focus();
    boxes.txtOne.focus();
    boxes.txtTwo.focus();
    EXPECT_EQ(boxes.raised(), Events{}) << "committed already";
    user::type(boxes.txtOne, "b");
    user::press(boxes.btnLeave);
    EXPECT_EQ(boxes.raised(), (Events{"change", "commit", "click"}));
}

TEST(CheckBox, TellsTheUsersClicksOnly) {
    TestWindow window;
    CheckBox box(window.form, "chk", "&mehrfach");
    box.move(Rect::at(0, 0, 200, 20));
    box.onClick = [&] { window.events.push_back(box.checked() ? "on" : "off"); };
    EXPECT_FALSE(box.checked());
    box.setChecked(true);
    user::check(box, true);
    EXPECT_EQ(window.raised(), Events{});
    user::check(box, false);
    user::check(box, true);
    EXPECT_EQ(window.raised(), (Events{"off", "on"})) << "the new state is there when it is told";
}

}  // namespace
