#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>

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
    EXPECT_EQ(std::count(window.events.begin(), window.events.end(), "selection"), 1);
    EXPECT_TRUE(window.raisedOnce("item 4"));

    user::clickRow(window.list, 4);
    EXPECT_EQ(window.raised(), Events{"item 4"}) << "it is selected already";
    user::clickRow(window.list, 0);
    EXPECT_EQ(window.selected(), Rows{});
    EXPECT_EQ(window.raised(), Events{"selection"}) << "no row was hit";
}

TEST(ListView, ExtendsASelectionByTheKeysHeldDown) {
    ListWindow window;
    window.list.setCount(20);
    user::clickRow(window.list, 3);
    user::clickRow(window.list, 6, shiftKey::shift);
    EXPECT_EQ(window.selected(), (Rows{3, 4, 5, 6}));
    user::clickRow(window.list, 5, shiftKey::control);
    EXPECT_EQ(window.selected(), (Rows{3, 4, 6}));
    user::clickRow(window.list, 9, shiftKey::control);
    EXPECT_EQ(window.selected(), (Rows{3, 4, 6, 9}));
    window.raised();
    user::clickRow(window.list, 8);
    EXPECT_EQ(window.selected(), Rows{8});
    EXPECT_EQ(std::count(window.events.begin(), window.events.end(), "selection"), 1)
        << "one step for the user";
}

TEST(ListView, FollowsTheArrowKeys) {
    ListWindow window;
    window.list.setCount(100);
    window.list.onKeyDown = [&](int key, int shift) {
        window.events.push_back("down " + std::to_string(key) + "/" + std::to_string(shift));
    };
    window.list.onKeyUp = [&](int key, int) { window.events.push_back("up " + std::to_string(key)); };
    window.list.selectOnly(5);
    user::key(window.list, keyCode::down);
    EXPECT_EQ(window.selected(), Rows{6});
    ASSERT_FALSE(window.events.empty());
    EXPECT_EQ(window.events.front(), "down 40/0");
    EXPECT_EQ(window.events.back(), "up 40");
    EXPECT_TRUE(window.raisedOnce("item 6"));
    user::key(window.list, keyCode::up, shiftKey::shift);
    EXPECT_EQ(window.selected(), (Rows{5, 6}));
    EXPECT_EQ(window.raised().front(), "down 38/1");
    user::key(window.list, keyCode::end);
    EXPECT_EQ(window.selected(), Rows{100});
    EXPECT_EQ(window.list.focusRow(), 100);
    user::key(window.list, keyCode::home);
    user::key(window.list, keyCode::up);
    EXPECT_EQ(window.selected(), Rows{1});
}

TEST(ListView, TellsKeysThatMeanNothingToIt) {
    ListWindow window;
    window.list.setCount(3);
    int told = 0;
    window.list.onKeyDown = [&](int key, int) { told = key; };
    for (const int key : {keyCode::f2, keyCode::del, keyCode::enter}) {
        user::key(window.list, key);
        EXPECT_EQ(told, key);
    }
    EXPECT_FALSE(user::editing(window.list)) << "the owner decides what F2 does";
}

TEST(ListView, TellsClicksOnRowsAndTitles) {
    ListWindow window;
    window.list.setCount(5);
    window.list.onDoubleClick = [&](int row) { window.events.push_back("double " + std::to_string(row)); };
    window.list.onColumnClick = [&](int column) {
        window.events.push_back("column " + std::to_string(column));
    };
    user::doubleClickRow(window.list, 3);
    EXPECT_EQ(window.selected(), Rows{3});
    EXPECT_TRUE(window.raisedOnce("double 3"));
    user::clickColumn(window.list, 2);
    EXPECT_EQ(window.raised(), Events{"column 2"});
}

TEST(ListView, TellsMouseButtonsAtTheirPlace) {
    ListWindow window;
    window.list.setCount(5);
    const auto logged = [&](const char* what) {
        return [&window, what](MouseButton button, int shift, Point point) {
            window.events.push_back(what + std::to_string(static_cast<int>(button)) + "/" +
                                    std::to_string(shift) + " in " +
                                    std::to_string(window.list.hitTest(point)));
        };
    };
    window.list.onSelectionChange = nullptr;
    window.list.onItemClick = nullptr;
    window.list.onMouseDown = logged("down ");
    window.list.onMouseUp = logged("up ");
    user::clickRow(window.list, 2);
    EXPECT_EQ(window.raised(), (Events{"down 1/0 in 2", "up 1/0 in 2"}));
    user::clickRow(window.list, 4, shiftKey::control, MouseButton::right);
    EXPECT_EQ(window.raised(), (Events{"down 2/2 in 4", "up 2/2 in 4"}));
}

TEST(ListView, MayLoseItsRowsInItsHandlers) {
    ListWindow window;
    const auto empty = [&] { window.list.setCount(0); };
    window.list.setCount(5);
    window.list.onMouseDown = [&](MouseButton, int, Point) { empty(); };
    user::clickRow(window.list, 4);
    EXPECT_EQ(window.selected(), Rows{});
    window.list.onMouseDown = nullptr;
    window.list.onKeyDown = [&](int, int) { empty(); };
    window.list.setCount(5);
    window.list.selectOnly(3);
    user::key(window.list, keyCode::down);
    EXPECT_EQ(window.selected(), Rows{});
    window.list.onSelectionChange = empty;
    window.list.setCount(5);
    user::clickRow(window.list, 2);
    EXPECT_EQ(window.selected(), Rows{});
}

TEST(ListView, KeepsASelectionThatTheRightButtonHits) {
    ListWindow window;
    window.list.setCount(9);
    window.list.select(2);
    window.list.select(5);
    user::clickRow(window.list, 5, 0, MouseButton::right);
    EXPECT_EQ(window.selected(), (Rows{2, 5}));
    user::clickRow(window.list, 7, 0, MouseButton::right);
    EXPECT_EQ(window.selected(), Rows{7});
}

TEST(ListView, FindsTheRowAtAPoint) {
    ListWindow window;
    window.list.setCount(200);
    for (const int row : {1, 3}) EXPECT_EQ(window.list.hitTest(user::pointOf(window.list, row)), row);
    EXPECT_EQ(window.list.hitTest({5, 2}), 0) << "the titles";
    window.list.ensureVisible(150);
    EXPECT_EQ(window.list.hitTest(user::pointOf(window.list, 150)), 150);
    EXPECT_THROW(user::pointOf(window.list, 1), std::logic_error) << "scrolled out of view";
    window.list.setCount(3);
    EXPECT_EQ(window.list.hitTest({5, 250}), 0) << "below the last row";
    EXPECT_EQ(window.list.hitTest({5, -40}), 0);
}

struct LabelEditing : ListWindow {
    bool accepted = true;
    LabelEditing() {
        list.setCount(5);
        list.onLabelEdited = [this](int row, const std::string& text) {
            events.push_back(std::to_string(row) + ": " + text);
            if (accepted) renamed[row] = text;
            return accepted;
        };
    }
};

TEST(ListViewLabel, IsTakenOverByTheOwner) {
    LabelEditing window;
    window.list.select(4);
    window.list.editLabel(2);
    EXPECT_TRUE(user::editing(window.list));
    EXPECT_EQ(window.selected(), Rows{2});
    EXPECT_EQ(window.raised(), Events{}) << "the program selected it";
    user::finishEdit(window.list, "Kratzer groß");
    EXPECT_FALSE(user::editing(window.list));
    EXPECT_EQ(window.raised(), Events{"2: Kratzer groß"});
    EXPECT_EQ(user::shown(window.list, 2, 0), "Kratzer groß");
}

TEST(ListViewLabel, KeepsItsTextWhenTheOwnerRefusesOrTheUserAbandons) {
    LabelEditing window;
    window.accepted = false;
    window.list.editLabel(2);
    user::finishEdit(window.list, "Kratzer");
    EXPECT_EQ(window.raised(), Events{"2: Kratzer"});
    EXPECT_EQ(user::shown(window.list, 2, 0), "Bild2");
    window.list.editLabel(3);
    user::abandonEdit(window.list);
    EXPECT_FALSE(user::editing(window.list));
    EXPECT_EQ(window.raised(), Events{});
}

TEST(ListViewLabel, CanBeEditedAgainFromTheRefusal) {
    LabelEditing window;
    window.list.onLabelEdited = [&](int row, const std::string& text) {
        if (text != "doppelt") return true;
        window.list.editLabel(row);
        return false;
    };
    window.list.editLabel(4);
    user::finishEdit(window.list, "doppelt");
    EXPECT_TRUE(user::editing(window.list));
    user::finishEdit(window.list, "einmalig");
    EXPECT_FALSE(user::editing(window.list));
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
    EXPECT_TRUE(user::editing(window.list));
    window.fraPage.setVisible(false);
    EXPECT_FALSE(user::editing(window.list)) << "it ends when the list disappears";
}

TEST(ListViewLabel, ErrorOfTheOwnerKeepsTheOldText) {
    LabelEditing window;
    support::Messages messages;
    messages.expectPart("zu lang");
    window.list.onLabelEdited = [](int, const std::string&) -> bool {
        throw RuntimeError(error::overflow, "zu lang");
    };
    window.list.editLabel(1);
    user::finishEdit(window.list, "neu");
    EXPECT_FALSE(user::editing(window.list));
    EXPECT_EQ(user::shown(window.list, 1, 0), "Bild1");
}

}  // namespace
