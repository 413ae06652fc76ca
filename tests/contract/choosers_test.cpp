#include <gtest/gtest.h>

#include <functional>

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

TEST_P(Combo, TellsAnotherChoiceWhoeverMadeIt) {
    EXPECT_EQ(box.listIndex(), -1);
    EXPECT_EQ(box.text(), "");
    int told = -1;
    box.onClick = [&] {
        told = box.listIndex();
        window.events.push_back("click");
    };
    box.setListIndex(1);
    EXPECT_EQ(told, 1) << "the choice is made already";
    EXPECT_EQ(box.text(), "Riß");
    box.setListIndex(1);
    EXPECT_EQ(window.raised(), Events{"click"}) << "the same choice says nothing";
    user::choose(box, 2);
    EXPECT_EQ(told, 2);
    EXPECT_EQ(box.text(), "Pore");
    EXPECT_EQ(window.raised(), Events{"click"});
    box.setListIndex(-1);
    EXPECT_EQ(box.listIndex(), -1);
    EXPECT_EQ(box.text(), "");
    EXPECT_EQ(window.raised(), Events{}) << "choosing none";
}

TEST_P(Combo, KeepsItsChoiceWhenEntriesAroundItChange) {
    box.setListIndex(1);
    window.raised();
    box.insert(1, "neu");
    EXPECT_EQ(box.listIndex(), 2);
    box.remove(0);
    EXPECT_EQ(box.listIndex(), 1);
    box.insert(2, "Ätzfehler");
    box.remove(3);
    box.add("aa");
    EXPECT_EQ(items(), (std::vector<std::string>{"neu", "Riß", "Ätzfehler", "aa"})) << "not sorted";
    EXPECT_EQ(box.text(), "Riß");
    box.replace(1, "Risse");
    EXPECT_EQ(box.item(1), "Risse");
    EXPECT_EQ(box.listIndex(), 1);
    EXPECT_EQ(box.text(), "Risse");
    EXPECT_EQ(window.raised(), Events{});
}

TEST_P(Combo, ChoosesNoneWhenTheChosenEntryGoes) {
    for (const auto& take : {std::function([&] { box.remove(1); }), std::function([&] { box.clear(); })}) {
        box.setListIndex(1);
        window.raised();
        take();
        EXPECT_EQ(box.listIndex(), -1);
        EXPECT_EQ(box.text(), "");
        EXPECT_EQ(window.raised(), Events{});
    }
    EXPECT_EQ(box.count(), 0);
    box.setDropDownWidth(333);
    EXPECT_EQ(box.dropDownWidth(), 333);
}

INSTANTIATE_TEST_SUITE_P(Styles, Combo, testing::Values(ComboBox::Style::editable, ComboBox::Style::list),
                         [](const auto& style) {
                             return style.param == ComboBox::Style::list ? "list" : "editable";
                         });

TEST(EditableCombo, TakesAnyTextWithoutChoosing) {
    TestWindow window;
    ComboBox box(window.form, "cbo", ComboBox::Style::editable);
    box.move(Rect::at(0, 0, 150, 23));
    box.add(std::vector<std::string>{"gut", "Riß"});
    box.onClick = window.log("click");
    box.onChange = window.log("change");
    for (const char* text : {"anderes", "Riß", ""}) {  // even the text of an entry
        for (const bool typed : {false, true}) {
            box.setListIndex(0);
            window.raised();
            typed ? user::type(box, text) : box.setText(text);
            EXPECT_EQ(box.text(), text);
            EXPECT_EQ(box.listIndex(), -1);
            EXPECT_EQ(window.raised(), typed ? Events{"change"} : Events{}) << text;
        }
    }
    user::choose(box, 0);
    EXPECT_EQ(box.text(), "gut");
    EXPECT_EQ(window.raised(), Events{"click"}) << "another one than the typed text";
}

TEST(TabStrip, CountsFromOneAndTellsTheUsersChoiceOnly) {
    TestWindow window;
    TabStrip tabs(window.form, "tab", {"&Stichprobe", "Gut && Böse", "&Bereiche"});
    const Rect bounds = Rect::at(10, 20, 300, 200);
    tabs.move(bounds);
    tabs.onClick = [&] { window.events.push_back(tabs.tab(tabs.selected())); };
    EXPECT_EQ(tabs.selected(), 1);
    tabs.select(2);
    EXPECT_EQ(tabs.selected(), 2);
    EXPECT_EQ(window.raised(), Events{});
    user::selectTab(tabs, 3);
    user::selectTab(tabs, 2);
    EXPECT_EQ(window.raised(), (Events{"Bereiche", "Gut & Böse"}));

    const Rect page = tabs.pageArea();
    EXPECT_EQ(intersect(page, bounds), page) << "in the parent's coordinates";
    EXPECT_GE(page.top, bounds.top + 15);
    EXPECT_GT(page.width(), 280);
    EXPECT_GT(page.height(), 150);
}

}  // namespace
