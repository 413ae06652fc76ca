#include <gtest/gtest.h>

#include <algorithm>

#include "platform/errors.h"
#include "tests/contract/test_list.h"
#include "tests/support/messages.h"
#include "tests/support/user.h"

namespace {

using namespace platform;
using contract::Events;
using contract::ListWindow;
using contract::Rows;

TEST(ListView, TellsARowThatTheUserClicks) {
    ListWindow window;
    window.list.setCount(10);
    user::clickRow(window.list, 4);
    EXPECT_EQ(window.selected(), Rows{4});
    EXPECT_EQ(window.list.focusRow(), 4);
    const Events raised = window.raised();
    for (const char* event : {"selection", "item 4"})
        EXPECT_EQ(std::count(raised.begin(), raised.end(), event), 1) << event;
    user::clickRow(window.list, 4);
    EXPECT_EQ(window.raised(), Events{"item 4"}) << "it is selected already";
    user::clickRow(window.list, 0);
    EXPECT_EQ(window.selected(), Rows{});
    EXPECT_EQ(window.raised(), Events{"selection"}) << "no row was hit";
}

TEST(ListView, ExtendsASelectionByTheKeysHeldDown) {
    ListWindow window;
    window.list.setCount(20);
    const struct {
        int row, shift;
        MouseButton button;
        Rows selected;
    } clicks[] = {
        {3, 0, MouseButton::left, {3}},
        {6, shiftKey::shift, MouseButton::left, {3, 4, 5, 6}},
        {5, shiftKey::control, MouseButton::left, {3, 4, 6}},
        {9, shiftKey::control, MouseButton::left, {3, 4, 6, 9}},
        {6, 0, MouseButton::right, {3, 4, 6, 9}},
        {7, 0, MouseButton::right, {7}},
        {9, shiftKey::control, MouseButton::left, {7, 9}},
        {8, 0, MouseButton::left, {8}},
    };
    for (const auto& [row, shift, button, selected] : clicks) {
        const bool changes = window.selected() != selected;
        user::clickRow(window.list, row, shift, button);
        EXPECT_EQ(window.selected(), selected) << row;
        EXPECT_EQ(window.raisedOnce("selection"), changes) << "one step for the user";
    }
}

TEST(ListView, FollowsTheArrowKeys) {
    ListWindow window;
    ListView& list = window.list;
    list.setCount(100);
    list.onKeyDown = window.log("down");
    list.onKeyUp = window.log("up");
    list.selectOnly(5);
    user::key(list, keyCode::down);
    EXPECT_EQ(window.selected(), Rows{6});
    ASSERT_FALSE(window.events.empty());
    EXPECT_EQ(window.events.front(), "down 40 0");
    EXPECT_EQ(window.events.back(), "up 40 0");
    EXPECT_TRUE(window.raisedOnce("item 6"));
    user::key(list, keyCode::up, shiftKey::shift);
    EXPECT_EQ(window.selected(), (Rows{5, 6}));
    EXPECT_EQ(window.raised().front(), "down 38 1");
    user::key(list, keyCode::end);
    EXPECT_EQ(window.selected(), Rows{100});
    EXPECT_EQ(list.focusRow(), 100);
    user::key(list, keyCode::home);
    window.raised();
    user::key(list, keyCode::up);
    user::key(list, keyCode::f2);
    user::key(list, keyCode::down, shiftKey::control);  // moves the focus mark alone
    EXPECT_EQ(window.raised(),
              (Events{"down 38 0", "up 38 0", "down 113 0", "up 113 0", "down 40 2", "up 40 2"}));
    EXPECT_EQ(window.selected(), Rows{1}) << "there is none above the first";
    EXPECT_FALSE(user::editing(list)) << "the owner decides what F2 does";
}

TEST(ListView, WithSingleSelectionFollowsClicksAndKeysAsWell) {
    ListWindow window(ListView::Options{});
    ListView& list = window.list;
    list.setCount(1000);
    const auto told = [](int row) { return Events{"selection", "item " + std::to_string(row)}; };
    list.onMouseDown = [&](auto&&...) { EXPECT_NE(list.firstSelected(), 4) << "told before it is selected"; };
    user::clickRow(list, 4);
    list.onMouseDown = nullptr;
    EXPECT_EQ(window.raised(), told(4));
    user::clickRow(list, 4);
    EXPECT_EQ(window.raised(), Events{"item 4"});
    user::clickRow(list, 6, 0, MouseButton::right);
    EXPECT_EQ(window.raised(), told(6));
    int before = 6;
    for (const int key : {keyCode::down, keyCode::pageDown, keyCode::pageDown, keyCode::end}) {
        user::key(list, key);
        const int row = list.firstSelected();
        EXPECT_GT(row, before);
        EXPECT_EQ(list.focusRow(), row);
        EXPECT_NO_THROW(user::pointOf(list, row)) << "it is in view";
        EXPECT_EQ(window.raised(), told(row));
        before = row;
    }
    EXPECT_EQ(before, 1000);
    user::key(list, keyCode::end);
    EXPECT_EQ(window.raised(), Events{});
    for (const int key : {keyCode::up, keyCode::pageUp, keyCode::pageUp, keyCode::home}) user::key(list, key);
    EXPECT_EQ(window.selected(), Rows{1});
    EXPECT_EQ(window.raised().size(), 8U);
}

TEST(ListView, TellsDoubleClicksTitlesAndMouseButtonsAtTheirPlace) {
    ListWindow window;
    ListView& list = window.list;
    list.setCount(5);
    list.onDoubleClick = window.log("double");
    list.onColumnClick = window.log("column");
    user::doubleClickRow(list, 3);
    EXPECT_EQ(window.selected(), Rows{3});
    EXPECT_TRUE(window.raisedOnce("double 3"));
    user::clickColumn(list, 2);
    EXPECT_EQ(window.raised(), Events{"column 2"});
    list.onSelectionChange = nullptr;
    list.onItemClick = nullptr;
    const auto logged = [&](const char* what) {
        return [log = window.log(what), &list](MouseButton button, int shift, Point point) {
            log(button, shift, list.hitTest(point));
        };
    };
    list.onMouseDown = logged("down");
    list.onMouseUp = logged("up");
    user::clickRow(list, 4, shiftKey::control, MouseButton::right);
    user::clickRow(list, 2);
    EXPECT_EQ(window.raised(), (Events{"down 2 2 4", "up 2 2 4", "down 1 0 2", "up 1 0 2"}));
}

TEST(ListView, MayLoseItsRowsInItsHandlers) {
    ListWindow window;
    ListView& list = window.list;
    const auto empty = [&](auto&&...) { list.setCount(0); };
    list.setCount(5);
    list.onMouseDown = empty;
    user::clickRow(list, 4);
    EXPECT_EQ(window.selected(), Rows{});
    list.onMouseDown = nullptr;
    list.onKeyDown = empty;
    list.setCount(5);
    list.selectOnly(3);
    user::key(list, keyCode::down);
    EXPECT_EQ(window.selected(), Rows{});
    list.onSelectionChange = empty;
    list.setCount(5);
    user::clickRow(list, 2);
    EXPECT_EQ(window.selected(), Rows{});
}

struct LabelEditing : ListWindow {
    bool accepted = true;
    LabelEditing() {
        list.setCount(5);
        list.onLabelEdited = [this](int row, const std::string& text) {
            log("edited")(row, text);
            if (accepted) renamed[row] = text;
            return accepted;
        };
    }
};

TEST(ListViewLabel, IsTakenOverByTheOwnerUnlessItRefusesOrFailsOrTheUserAbandons) {
    LabelEditing window;
    ListView& list = window.list;
    list.select(4);
    list.editLabel(2);
    EXPECT_TRUE(user::editing(list));
    EXPECT_EQ(window.selected(), Rows{2});
    EXPECT_EQ(window.raised(), Events{}) << "the program selected it";
    user::finishEdit(list, "Kratzer groß");
    EXPECT_FALSE(user::editing(list));
    EXPECT_EQ(window.raised(), Events{"edited 2 Kratzer groß"});
    EXPECT_EQ(user::shown(list, 2, 0), "Kratzer groß");

    window.accepted = false;
    list.editLabel(3);
    user::finishEdit(list, "Kratzer");
    EXPECT_EQ(window.raised(), Events{"edited 3 Kratzer"});
    list.editLabel(3);
    user::abandonEdit(list);
    EXPECT_EQ(window.raised(), Events{});
    support::Messages messages;
    messages.expectPart("zu lang");
    list.onLabelEdited = [](int, auto&) -> bool { throw RuntimeError(error::overflow, "zu lang"); };
    list.editLabel(3);
    user::finishEdit(list, "neu");
    EXPECT_FALSE(user::editing(list));
    EXPECT_EQ(user::shown(list, 3, 0), "Bild3");
}

TEST(ListViewLabel, IsNotEditedWhileTheListCannotBeSeen) {
    LabelEditing window;
    window.fraPage.setVisible(false);
    window.list.editLabel(2);
    window.fraPage.setVisible(true);
    EXPECT_FALSE(user::editing(window.list));
    window.form.hide();
    window.list.editLabel(2);
    window.form.show();
    EXPECT_FALSE(user::editing(window.list));
    window.list.editLabel(2);
    window.fraPage.setVisible(false);
    EXPECT_FALSE(user::editing(window.list)) << "it ends when the list disappears";
}

}  // namespace
