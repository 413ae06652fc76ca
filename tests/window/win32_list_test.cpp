#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "platform/form.h"
#include "platform/list_view.h"
#include "platform/win32/native.h"
#include "tests/support/user.h"
#include "tests/support/win32/input.h"

namespace {

using namespace platform;
using Events = std::vector<std::string>;

struct BigList : testing::Test {
    Form form{"frmList", "Liste", {}};
    ListView list{form, "list", {{"Name", 20}}, {.multiSelect = true}};
    Events events;

    BigList() {
        list.move(Rect::at(0, 0, 300, 200));
        list.cell = [](int row, int) { return (row % 10 == 0 ? "Übung " : "Bild ") + std::to_string(row); };
        list.onItemClick = [this](int row) { events.push_back("item " + std::to_string(row)); };
        list.onSelectionChange = [this] { events.push_back("selection"); };
        list.setCount(100);
        form.show();
        list.focus();
    }
    void type(const std::wstring& letters) {
        for (const wchar_t letter : letters) PostMessageW(list.native().window, WM_CHAR, letter, 1);
        user::pump();
    }
    /// As a screen reader or a script selects a row.
    void selectFromOutside(int index) {
        LVITEMW item{};
        item.state = item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
        list.native().send(LVM_SETITEMSTATE, static_cast<WPARAM>(index), &item);
    }
};

TEST_F(BigList, FindsARowByTheLettersTyped) {
    list.selectOnly(15);
    type(L"ü");
    EXPECT_EQ(list.firstSelected(), 20);
    EXPECT_EQ(events, (Events{"selection", "item 20"}));
    events.clear();
    type(L"x");
    EXPECT_EQ(list.firstSelected(), 20) << "no such row";
    EXPECT_EQ(events, Events{});
}

TEST_F(BigList, TellsASelectionByKeyOrFromOutsideOnce) {
    selectFromOutside(6);
    EXPECT_EQ(list.firstSelected(), 7);
    EXPECT_EQ(events, (Events{"selection", "item 7"}));
    events.clear();
    for (int i = 0; i < 2; ++i) user::key(list, 'A', shiftKey::control);
    EXPECT_EQ(list.selectedCount(), 100);
    EXPECT_EQ(events, Events{"selection"}) << "the second time all were selected already";
}

TEST_F(BigList, GivesBackARangeByShiftAsOneStep) {
    user::clickRow(list, 1);
    events.clear();
    user::key(list, VK_END, shiftKey::shift);
    EXPECT_EQ(list.selectedCount(), 100);
    EXPECT_EQ(events, (Events{"selection", "item 100"}));
    events.clear();
    user::clickRow(list, 50);
    EXPECT_EQ(list.selectedCount(), 1);
    for (const char* event : {"selection", "item 50"})
        EXPECT_EQ(std::count(events.begin(), events.end(), event), 1) << event;
}

}  // namespace
