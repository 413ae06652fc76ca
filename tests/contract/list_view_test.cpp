#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <set>
#include <stdexcept>

#include "platform/errors.h"
#include "tests/contract/test_window.h"
#include "tests/support/messages.h"
#include "tests/support/user.h"

namespace {

using namespace platform;
using contract::Events;
using contract::TestWindow;
using Rows = std::vector<int>;

/// A list with three columns on a page of its own.
struct ListWindow : TestWindow {
    explicit ListWindow(ListView::Options options = {.multiSelect = true, .editLabels = true})
        : list(fraPage, "lv", {{"Nr.", 8, ListView::Align::right}, {"Datei", 20}, {"Klasse", 10}}, options) {
        fraPage.move(Rect::at(0, 0, 500, 350));
        list.move(Rect::at(0, 0, 400, 300));
        list.cell = [this](int row, int subItem) {
            const std::string text = "Bild" + std::to_string(row);
            if (subItem == 0) return renamed.contains(row) ? renamed[row] : text;
            return text + "/" + std::to_string(subItem);
        };
        list.onItemClick = log("item");
        list.onSelectionChange = log("selection");
    }
    Rows selected() const {
        Rows rows;
        for (int row = list.firstSelected(); row != 0; row = list.nextSelected(row)) rows.push_back(row);
        EXPECT_EQ(static_cast<int>(rows.size()), list.selectedCount());
        return rows;
    }
    bool raisedOnce(const std::string& event) {
        const Events all = raised();
        return std::count(all.begin(), all.end(), event) == 1;
    }

    Panel fraPage{form, "fraPage"};
    ListView list;
    std::map<int, std::string> renamed;
};

TEST(ListView, ShowsWhatItsOwnerAnswersForRowsThatItHas) {
    ListWindow window;
    window.list.setCount(3);
    EXPECT_EQ(window.list.columnCount(), 3);
    EXPECT_EQ(user::shown(window.list, 3, 2), "Bild3/2");
    window.renamed[2] = "Riß & Pore";
    EXPECT_EQ(user::shown(window.list, 2, 0), "Riß & Pore") << "nothing is kept";
}

TEST(ListView, RemembersAnySelectionOfTheProgramSilently) {
    ListWindow window;
    ListView& list = window.list;
    std::mt19937 random(4711);
    std::set<int> expected;
    constexpr int rows = 30;
    list.setCount(rows);
    for (int step = 0; step < 500; ++step) {
        const int row = 1 + static_cast<int>(random() % rows);
        switch (step % 50 == 0 ? random() % 4 : 4 + random() % 3) {
            case 0:  // fewer rows, then more, which are not selected
                for (const int count : {row, rows}) list.setCount(count);
                expected.erase(expected.upper_bound(row), expected.end());
                break;
            case 1:
                list.selectAll();
                for (int all = 1; all <= rows; ++all) expected.insert(all);
                break;
            case 2:
                list.unselectAll();
                expected.clear();
                break;
            case 3:
                list.selectOnly(row);
                EXPECT_EQ(list.focusRow(), row);
                expected = {row};
                break;
            case 4:
                list.select(row, false);
                expected.erase(row);
                break;
            default:
                list.select(row);
                expected.insert(row);
        }
        ASSERT_EQ(window.selected(), Rows(expected.begin(), expected.end())) << "step " << step;
        ASSERT_EQ(list.selected(row), expected.contains(row));
    }
    list.selectOnly(rows);
    list.setCount(7);
    EXPECT_LE(list.focusRow(), 7);
    list.setCount(0);
    list.selectAll();
    EXPECT_EQ(window.selected(), Rows{});
    EXPECT_EQ(list.focusRow(), 0);
    user::pump();
    EXPECT_EQ(window.raised(), Events{});
}

TEST(ListView, ScrollsTheOnlySelectedRowIntoView) {
    constexpr int rows = 100000;
    ListWindow window;
    window.list.setCount(rows);
    window.list.selectAll();
    EXPECT_EQ(window.list.selectedCount(), rows);
    EXPECT_EQ(window.list.nextSelected(rows - 1), rows);
    window.list.selectOnly(rows);
    EXPECT_EQ(window.selected(), Rows{rows});
    EXPECT_EQ(window.list.hitTest(user::pointOf(window.list, rows)), rows);
    EXPECT_THROW(user::pointOf(window.list, 1), std::logic_error) << "scrolled out of view";
    EXPECT_EQ(window.list.hitTest({5, 2}), 0) << "the titles";
    window.list.setCount(3);
    EXPECT_EQ(window.list.hitTest({5, 250}), 0) << "below the last row";
    EXPECT_EQ(window.list.hitTest({5, -40}), 0);
}

TEST(ListView, ShowsWhatComesNextWhenItScrollsToASelectedRow) {
    ListWindow window;
    ListView& list = window.list;
    list.setCount(200);
    const auto seen = [&](int row) {
        try {
            return list.hitTest(user::pointOf(list, row)) == row;
        } catch (const std::logic_error&) {
            return false;
        }
    };
    int edge = 1;
    while (seen(edge)) ++edge;
    list.selectOnly(edge);
    EXPECT_TRUE(seen(edge) && seen(edge + 1));
    while (seen(edge)) --edge;
    list.selectOnly(edge);
    EXPECT_TRUE(seen(edge) && seen(edge - 1));
}

TEST(ListView, KeepsItsLayoutAsALineOfTextThatFitsNoOtherList) {
    ListWindow window;
    const std::string layout = "50 60 70 3 1 2 ";
    window.list.setLayout(layout);
    EXPECT_EQ(window.list.layout(), layout);
    for (const char* text : {"", "unfug", "-1 -1 -1 1 2 3", "50 2", "50 60 1 1", "1 2 3 4 1 2 3 4",
                             "50 60 70 3 1 2 7", "50 60", "50 60 70 3 1 3", "50 60 70 0 1 2"}) {
        window.list.setLayout(text);
        EXPECT_EQ(window.list.layout(), layout) << text;
    }
    window.list.setLayout("51 61 2 1");  // from before it got its last column
    EXPECT_EQ(window.list.layout(), "51 61 70 3 2 1 ");
}

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
