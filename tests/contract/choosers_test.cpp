#include <gtest/gtest.h>

#include "platform/basic_controls.h"
#include "tests/contract/test_window.h"
#include "tests/support/user.h"

namespace {

using namespace platform;
using contract::Events;
using contract::TestWindow;

class Combo : public testing::TestWithParam<ComboBox::Style> {
  protected:
    Combo() {
        box.move(Rect::at(0, 0, 150, 23));
        box.add({"gut", "Riß", "Pore"});
        box.onClick = window.log("click");
        box.onChange = window.log("change");
    }
    std::vector<std::string> items() const {
        std::vector<std::string> all;
        for (int i = 0; i < box.count(); ++i) all.push_back(box.item(i));
        return all;
    }
    TestWindow window;
    ComboBox box{window.form, "cbo", GetParam()};
};

TEST_P(Combo, ChoosesNothingByItself) {
    EXPECT_EQ(box.listIndex(), -1);
    EXPECT_EQ(box.text(), "");
    EXPECT_EQ(window.raised(), Events{});
}

TEST_P(Combo, TellsAnotherChoiceWhoeverMadeIt) {
    box.setListIndex(1);
    EXPECT_EQ(box.text(), "Riß");
    EXPECT_EQ(window.raised(), Events{"click"});
    box.setListIndex(1);
    EXPECT_EQ(window.raised(), Events{}) << "the same choice";
    user::choose(box, 2);
    EXPECT_EQ(box.listIndex(), 2);
    EXPECT_EQ(box.text(), "Pore");
    EXPECT_EQ(window.raised(), Events{"click"});
    box.setListIndex(-1);
    EXPECT_EQ(box.listIndex(), -1);
    EXPECT_EQ(box.text(), "");
    EXPECT_EQ(window.raised(), Events{}) << "choosing none";
}

TEST_P(Combo, TellsTheChoiceWhenItIsMade) {
    int told = -1;
    box.onClick = [&] { told = box.listIndex(); };
    user::choose(box, 2);
    EXPECT_EQ(told, 2);
    box.setListIndex(0);
    EXPECT_EQ(told, 0);
}

TEST_P(Combo, KeepsItsChoiceWhenEntriesAroundItChange) {
    box.setListIndex(1);
    window.raised();
    box.insert(0, "neu");
    EXPECT_EQ(box.listIndex(), 2);
    box.remove(1);
    EXPECT_EQ(box.listIndex(), 1);
    box.insert(2, "zuletzt");
    box.remove(3);
    EXPECT_EQ(items(), (std::vector<std::string>{"neu", "Riß", "zuletzt"}));
    EXPECT_EQ(box.listIndex(), 1);
    EXPECT_EQ(box.text(), "Riß");
    box.replace(1, "Risse");
    EXPECT_EQ(box.item(1), "Risse");
    EXPECT_EQ(box.listIndex(), 1);
    EXPECT_EQ(box.text(), "Risse");
    EXPECT_EQ(window.raised(), Events{});
}

TEST_P(Combo, ChoosesNoneWhenTheChosenEntryGoes) {
    box.setListIndex(1);
    window.raised();
    box.remove(1);
    EXPECT_EQ(box.listIndex(), -1);
    box.setListIndex(1);
    window.raised();
    box.clear();
    EXPECT_EQ(box.count(), 0);
    EXPECT_EQ(box.listIndex(), -1);
    EXPECT_EQ(box.text(), "");
    EXPECT_EQ(window.raised(), Events{});
}

TEST_P(Combo, KeepsEntriesInTheGivenOrder) {
    box.add("Ätzfehler");
    box.add("aa");
    EXPECT_EQ(items(), (std::vector<std::string>{"gut", "Riß", "Pore", "Ätzfehler", "aa"}));
    box.setDropDownWidth(333);
    EXPECT_EQ(box.dropDownWidth(), 333);
}

INSTANTIATE_TEST_SUITE_P(Styles, Combo, testing::Values(ComboBox::Style::editable, ComboBox::Style::list),
                         [](const auto& style) {
                             return style.param == ComboBox::Style::list ? "list" : "editable";
                         });

struct EditableCombo : TestWindow {
    ComboBox box{form, "cbo", ComboBox::Style::editable};
    EditableCombo() {
        box.move(Rect::at(0, 0, 150, 23));
        box.add(std::vector<std::string>{"gut", "Riß"});
        box.onClick = log("click");
        box.onChange = log("change");
    }
};

TEST(EditableCombo, TakesAnyTextWithoutChoosing) {
    EditableCombo window;
    for (const char* text : {"anderes", "Riß", ""}) {  // even the text of an entry
        window.box.setListIndex(0);
        window.raised();
        window.box.setText(text);
        EXPECT_EQ(window.box.text(), text);
        EXPECT_EQ(window.box.listIndex(), -1);
        EXPECT_EQ(window.raised(), Events{});
    }
}

TEST(EditableCombo, TellsWhatTheUserTypes) {
    EditableCombo window;
    window.box.setListIndex(0);
    window.raised();
    user::type(window.box, "Stück 1");
    EXPECT_EQ(window.box.text(), "Stück 1");
    EXPECT_EQ(window.box.listIndex(), -1);
    EXPECT_EQ(window.raised(), Events{"change"});
    user::choose(window.box, 0);
    EXPECT_EQ(window.box.text(), "gut");
    EXPECT_EQ(window.raised(), Events{"click"}) << "another one than the typed text";
}

TEST(TabStrip, CountsFromOneAndTellsTheUsersChoiceOnly) {
    TestWindow window;
    TabStrip tabs(window.form, "tab", {"&Stichprobe", "Gut && Böse", "&Bereiche"});
    tabs.move(Rect::at(10, 10, 300, 200));
    tabs.onClick = [&] { window.events.push_back(tabs.tab(tabs.selected())); };
    EXPECT_EQ(tabs.count(), 3);
    EXPECT_EQ(tabs.selected(), 1);
    EXPECT_EQ(tabs.tab(1), "Stichprobe");
    tabs.select(2);
    EXPECT_EQ(tabs.selected(), 2);
    EXPECT_EQ(window.raised(), Events{});
    user::selectTab(tabs, 3);
    user::selectTab(tabs, 2);
    EXPECT_EQ(window.raised(), (Events{"Bereiche", "Gut & Böse"}));
}

TEST(TabStrip, LeavesRoomForThePageBelowTheTabs) {
    TestWindow window;
    TabStrip tabs(window.form, "tab", {"Eins", "Zwei"});
    const Rect bounds = Rect::at(10, 20, 300, 200);
    tabs.move(bounds);
    const Rect page = tabs.pageArea();
    EXPECT_EQ(intersect(page, bounds), page) << "in the parent's coordinates";
    EXPECT_GE(page.top, bounds.top + 15);
    EXPECT_GT(page.width(), 280);
    EXPECT_GT(page.height(), 150);
}

}  // namespace
