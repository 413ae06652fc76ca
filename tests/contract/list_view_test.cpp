#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>
#include <stdexcept>

#include "tests/contract/test_list.h"
#include "tests/support/user.h"

namespace {

using namespace platform;
using contract::Events;
using contract::ListWindow;
using contract::Rows;

TEST(ListView, ShowsWhatItsOwnerAnswersForRowsThatItHas) {
    ListWindow window;
    window.list.setCount(3);
    EXPECT_EQ(window.list.columnCount(), 3);
    EXPECT_EQ(user::shown(window.list, 3, 2), "Bild3/2");
    window.renamed[2] = "Riß & Pore";
    EXPECT_EQ(user::shown(window.list, 2, 0), "Riß & Pore") << "nothing is kept";

    int least = 1, most = 0;
    window.list.cell = [&](int row, int) {
        least = std::min(least, row);
        most = std::max(most, row);
        return std::string();
    };
    for (const int rows : {0, 5, 1000, 2}) {
        most = 0;
        window.list.setCount(rows);
        if (rows > 0) window.list.ensureVisible(rows);
        window.list.update();
        user::pump();
        EXPECT_EQ(most, rows) << "the last row is in view";
        EXPECT_EQ(least, 1);
    }
}

TEST(ListView, WithSingleSelectionHasOneRowAtMost) {
    ListWindow window({.multiSelect = false});
    window.list.setCount(10);
    window.list.select(3);
    window.list.select(5);
    window.list.select(3, false);
    EXPECT_EQ(window.selected(), Rows{5});
    user::clickRow(window.list, 2, shiftKey::control);
    EXPECT_EQ(window.selected(), Rows{2});
    user::clickRow(window.list, 4, shiftKey::shift);
    EXPECT_EQ(window.selected(), Rows{4});
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
}

TEST(ListView, TakesALayoutFromBeforeItGotItsLastColumns) {
    ListWindow window;
    window.list.setLayout("50 60 70 1 2 3");
    window.list.moveColumn(3, 2);
    EXPECT_EQ(window.list.layout(), "50 60 70 1 3 2 ");
    window.list.setLayout("51 61 2 1");
    EXPECT_EQ(window.list.layout(), "51 61 70 2 3 1 ");
}

}  // namespace
