#include <gtest/gtest.h>

#include <stdexcept>

#include "platform/basic_controls.h"
#include "tests/contract/test_window.h"
#include "tests/support/user.h"

namespace {

using namespace platform;
using contract::Events;
using contract::TestWindow;

TEST(Captions, AreReadWithoutTheMarkOfTheAccessKey) {
    TestWindow window;
    Button button(window.form, "btn");
    Label label(window.form, "lbl");
    const std::pair<const char*, const char*> cases[] = {
        {"&Suchen", "Suchen"}, {"Spei&chern...", "Speichern..."}, {"Gut && Böse", "Gut & Böse"}, {"", ""}};
    for (const auto& [mnemonic, read] : cases) {
        button.setCaption(mnemonic);
        label.setCaption(mnemonic);
        EXPECT_EQ(button.caption(), read);
        EXPECT_EQ(label.caption(), read);
    }
}

TEST(Captions, ThatArePlainAreReadAsTheyAre) {
    TestWindow window;
    Button button(window.form, "btn");
    Label plain(window.form, "lblPlain", "Maß & &Zahl", Label::Style::plain);
    Label wrapped(window.form, "lblWrapped", "a && b", Label::Style::wrapped);
    button.setPlainCaption("Riß & Pore");
    EXPECT_EQ(button.caption(), "Riß & Pore");
    EXPECT_EQ(plain.caption(), "Maß & &Zahl");
    EXPECT_EQ(wrapped.caption(), "a && b");
}

TEST(Button, IsPressedOnlyWhileItIsEnabled) {
    TestWindow window;
    Button button(window.form, "btn", "&Los");
    button.move(Rect::at(0, 0, 80, 25));
    button.onClick = window.log("click");
    user::press(button);
    EXPECT_EQ(window.raised(), Events{"click"});
    button.setEnabled(false);
    EXPECT_THROW(user::press(button), std::logic_error);
    EXPECT_EQ(window.raised(), Events{});
}

TEST(Button, HasTheColourOfButtonsUntilItGetsAnother) {
    TestWindow window;
    Button button(window.form, "btn");
    EXPECT_EQ(button.backColour(), 0x8000000Fu);
    button.setBackColour(0x0000FF);
    EXPECT_EQ(button.backColour(), 0x0000FFu);
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

TEST(TextBox, TakesTextFromTheProgramSilently) {
    Boxes boxes;
    boxes.txtOne.setText("Größe");
    EXPECT_EQ(boxes.txtOne.text(), "Größe");
    boxes.txtOne.setText("eins\r\nzwei\ndrei");
    EXPECT_EQ(boxes.txtOne.text(), "eins zwei drei");
    boxes.txtOne.focus();
    boxes.txtTwo.focus();
    EXPECT_EQ(boxes.raised(), Events{});
}

TEST(TextBox, TellsWhatTheUserTypes) {
    Boxes boxes;
    boxes.txtOne.setText("alt");
    user::type(boxes.txtOne, "neu & schön");
    EXPECT_EQ(boxes.txtOne.text(), "neu & schön");
    EXPECT_EQ(boxes.raised(), Events{"change"});
}

TEST(TextBox, CommitsByEnterOrWhenItIsLeftAfterAChange) {
    Boxes boxes;
    user::type(boxes.txtOne, "a");
    user::commit(boxes.txtOne);
    EXPECT_EQ(boxes.raised(), (Events{"change", "commit"}));
    boxes.txtTwo.focus();
    EXPECT_EQ(boxes.raised(), Events{}) << "committed already";

    user::type(boxes.txtOne, "b");
    boxes.txtTwo.focus();
    EXPECT_EQ(boxes.raised(), (Events{"change", "commit"}));
    boxes.txtOne.focus();
    boxes.txtTwo.focus();
    EXPECT_EQ(boxes.raised(), Events{}) << "nothing was changed";
}

TEST(TextBox, CommitsBeforeTheButtonThatIsPressedNext) {
    Boxes boxes;
    user::type(boxes.txtOne, "neu");
    user::press(boxes.btnLeave);
    EXPECT_EQ(boxes.raised(), (Events{"change", "commit", "click"}));
}

TEST(TextBox, ForOutputHoldsSeveralLinesThatOnlyTheProgramWrites) {
    TestWindow window;
    TextBox output(window.form, "txtOutput", TextBox::Style::output);
    output.move(Rect::at(0, 0, 200, 100));
    output.setText("eins\r\nzwei");
    EXPECT_EQ(output.text(), "eins\r\nzwei");
    EXPECT_THROW(user::type(output, "drei"), std::logic_error);
}

TEST(CheckBox, TellsTheUsersClicksOnly) {
    TestWindow window;
    CheckBox box(window.form, "chk", "&mehrfach");
    box.move(Rect::at(0, 0, 200, 20));
    bool told = false;
    box.onClick = [&] {
        told = box.checked();
        window.events.push_back("click");
    };
    EXPECT_FALSE(box.checked());
    box.setChecked(true);
    EXPECT_TRUE(box.checked());
    EXPECT_EQ(window.raised(), Events{});
    user::check(box, true);
    EXPECT_EQ(window.raised(), Events{});
    user::check(box, false);
    user::check(box, true);
    EXPECT_TRUE(told) << "the new state is there when it is told";
    EXPECT_EQ(window.raised(), (Events{"click", "click"}));
}

}  // namespace
