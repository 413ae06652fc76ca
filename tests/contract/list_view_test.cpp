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

TEST(ListView, ShowsWhatItsOwnerAnswers) {
    ListWindow window;
    window.list.setCount(3);
    EXPECT_EQ(window.list.count(), 3);
    EXPECT_EQ(window.list.columnCount(), 3);
    EXPECT_EQ(user::shown(window.list, 1, 0), "Bild1");
    EXPECT_EQ(user::shown(window.list, 3, 2), "Bild3/2");
    window.renamed[2] = "Riß & Pore";
    EXPECT_EQ(user::shown(window.list, 2, 0), "Riß & Pore") << "nothing is kept";
}

TEST(ListView, AsksOnlyForRowsThatItHas) {
    ListWindow window;
    int least = 1, most = 0;
    window.list.cell = [&](int row, int subItem) {
        least = std::min(least, row);
        most = std::max(most, row);
        return ListWindow::text(row, subItem);
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

TEST(ListView, IsSelectedByTheProgramSilently) {
    ListWindow window;
    ListView& list = window.list;
    list.setCount(10);
    EXPECT_EQ(window.selected(), Rows{});
    list.select(3);
    list.select(9);
    list.select(4);
    EXPECT_EQ(window.selected(), (Rows{3, 4, 9}));
    EXPECT_TRUE(list.selected(9));
    list.select(3, false);
    EXPECT_EQ(window.selected(), (Rows{4, 9}));
    EXPECT_EQ(list.nextSelected(4), 9);
    EXPECT_EQ(list.nextSelected(9), 0);
    list.selectAll();
    EXPECT_EQ(list.selectedCount(), 10);
    list.select(5, false);
    EXPECT_EQ(list.selectedCount(), 9);
    EXPECT_EQ(list.nextSelected(4), 6);
    list.unselectAll();
    EXPECT_EQ(window.selected(), Rows{});
    list.selectOnly(7);
    EXPECT_EQ(window.selected(), Rows{7});
    EXPECT_EQ(list.focusRow(), 7);
    list.selectOnly(2);
    EXPECT_EQ(window.selected(), Rows{2});
    EXPECT_EQ(list.focusRow(), 2);
    user::pump();
    EXPECT_EQ(window.raised(), Events{});
}

TEST(ListView, WithSingleSelectionHasOneRowAtMost) {
    ListWindow window({.multiSelect = false});
    window.list.setCount(10);
    window.list.select(3);
    window.list.select(5);
    EXPECT_EQ(window.selected(), Rows{5});
    window.list.select(3, false);
    EXPECT_EQ(window.selected(), Rows{5});
    user::clickRow(window.list, 2, shiftKey::control);
    EXPECT_EQ(window.selected(), Rows{2});
    user::clickRow(window.list, 4, shiftKey::shift);
    EXPECT_EQ(window.selected(), Rows{4});
}

TEST(ListView, KeepsTheSelectionOfRowsThatStay) {
    ListWindow window;
    window.list.setCount(10);
    window.list.select(2);
    window.list.selectAll();
    window.list.select(5, false);
    window.list.setCount(6);
    EXPECT_EQ(window.selected(), (Rows{1, 2, 3, 4, 6}));
    window.list.setCount(8);
    EXPECT_EQ(window.selected(), (Rows{1, 2, 3, 4, 6})) << "rows that come are not selected";
    window.list.selectOnly(8);
    window.list.setCount(7);
    EXPECT_LE(window.list.focusRow(), 7);
    window.list.setCount(0);
    EXPECT_EQ(window.list.count(), 0);
    EXPECT_EQ(window.selected(), Rows{});
    EXPECT_EQ(window.list.focusRow(), 0);
    window.list.selectAll();
    EXPECT_EQ(window.selected(), Rows{});
    EXPECT_EQ(window.raised(), Events{});
}

TEST(ListView, RemembersAnySelection) {
    ListWindow window;
    std::mt19937 random(4711);
    std::set<int> expected;
    int rows = 30;
    window.list.setCount(rows);
    for (int step = 0; step < 400; ++step) {
        const int row = 1 + static_cast<int>(random() % static_cast<unsigned>(rows));
        const bool on = random() % 3 != 0;
        if (step % 50 == 49) {  // more rows, or fewer
            rows = step % 100 == 49 ? row : 30;
            window.list.setCount(rows);
            expected.erase(expected.upper_bound(rows), expected.end());
        } else {
            window.list.select(row, on);
            if (on)
                expected.insert(row);
            else
                expected.erase(row);
        }
        ASSERT_EQ(window.selected(), Rows(expected.begin(), expected.end())) << "step " << step;
    }
}

TEST(ListView, HoldsALargeSelectionCheaply) {
    constexpr int rows = 100000;
    ListWindow window;
    window.list.setCount(rows);
    window.list.selectAll();
    EXPECT_EQ(window.list.selectedCount(), rows);
    EXPECT_EQ(window.list.nextSelected(rows - 1), rows);
    window.list.selectOnly(rows);
    EXPECT_EQ(window.selected(), Rows{rows});
    EXPECT_GT(window.list.hitTest(user::pointOf(window.list, rows)), 0) << "it was scrolled into view";
}

TEST(ListViewLayout, IsKeptAsOneLineOfText) {
    ListWindow first, second;
    user::dragColumn(first.list, 2, 222);
    const std::string layout = first.list.layout();
    EXPECT_EQ(layout.find_first_of("\r\n"), std::string::npos);
    EXPECT_NE(second.list.layout(), layout);
    second.list.setLayout(layout);
    EXPECT_EQ(second.list.layout(), layout);
}

TEST(ListViewLayout, ThatDoesNotFitChangesNothing) {
    ListWindow window, other;
    user::dragColumn(other.list, 1, 99);
    const std::string fitting = other.list.layout();
    ListView narrow(window.form, "lvNarrow", {{"Nr.", 8}}, {});
    ListView wide(window.form, "lvWide", {{"a", 1}, {"b", 2}, {"c", 3}, {"d", 4}}, {});
    const std::string texts[] = {"",
                                 "unfug",
                                 "-1 -1 -1 1 2 3",
                                 narrow.layout(),
                                 wide.layout(),
                                 fitting + " 7",
                                 fitting.substr(0, fitting.size() / 2)};
    const std::string before = window.list.layout();
    for (const std::string& text : texts) {
        window.list.setLayout(text);
        EXPECT_EQ(window.list.layout(), before) << text;
    }
}

}  // namespace
