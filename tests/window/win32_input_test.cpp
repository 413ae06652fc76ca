#include <gtest/gtest.h>

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

struct Wheel : testing::Test {
    Form form{"frmWheel", "Rad", {.clientSize = {600, 400}}};
    ListView list{form, "list", {{"Name", 60}, {"Ort", 60}}, {}};
    UserControl drawing{form, "drawing", "kvWheel"};
    Button inner{drawing, "inner", "Knopf"};
    ComboBox box{form, "box", ComboBox::Style::list};
    Slider slider{form, "slider"};
    Events events;

    Wheel() {
        list.move(Rect::at(0, 0, 300, 200));
        drawing.move(Rect::at(300, 0, 200, 200));
        inner.move(Rect::at(100, 100, 60, 40));
        box.move(Rect::at(0, 210, 200, 23));
        slider.move(Rect::at(0, 250, 200, 30));
        list.cell = [](int row, int) { return std::to_string(row); };
        list.setCount(1000);
        box.add({"eins", "zwei", "drei"});
        box.setListIndex(1);
        slider.setRange(0, 100, 1, 10);
        slider.setValue(50);
        drawing.onWheel = [this](int notches, int shift, Point point) {
            events.push_back(std::to_string(notches) + ' ' + std::to_string(shift) + ' ' +
                             std::to_string(point.x) + ',' + std::to_string(point.y));
        };
        form.show();
        user::pump();
    }
    /// As the mouse does it: in the queue of the window that has the focus.
    void turn(const Control& over, int distance, WORD keys = 0, UINT message = WM_MOUSEWHEEL) {
        POINT point{20, 15};
        ClientToScreen(over.native().window, &point);
        PostMessageW(GetFocus(), message, MAKEWPARAM(keys, static_cast<WORD>(distance)),
                     user::input::packed({point.x, point.y}));
        user::pump();
    }
    int top() { return static_cast<int>(list.native().send(LVM_GETTOPINDEX)); }
    int left() { return GetScrollPos(list.native().window, SB_HORZ); }
};

TEST_F(Wheel, TurnsWhatLiesUnderThePointerWhateverHasTheFocus) {
    drawing.setTabStop(true);
    drawing.focus();
    turn(list, -120);
    EXPECT_GT(top(), 0);
    EXPECT_EQ(events, Events{});
    const int before = top();
    list.focus();
    turn(drawing, -30, MK_SHIFT);
    turn(drawing, 240, 0, WM_MOUSEHWHEEL);
    turn(inner, 120);
    EXPECT_EQ(events, (Events{"-30 1 20,15", "-240 1 20,15", "120 0 120,115"})) << "to the right is on";
    EXPECT_EQ(top(), before);
}

TEST_F(Wheel, TurnsListsSidewaysWithShiftAndKeepsPartsOfAPixel) {
    box.focus();
    turn(list, -120, MK_SHIFT);
    const int notch = left();
    EXPECT_GT(notch, 10);
    for (int i = 0; i < 120; ++i) turn(list, -1, MK_SHIFT);
    EXPECT_EQ(left(), 2 * notch);
    EXPECT_EQ(top(), 0);
}

TEST_F(Wheel, ChangesNoValueInPassing) {
    for (Control* focused : {static_cast<Control*>(&box), static_cast<Control*>(&slider)}) {
        focused->focus();
        turn(box, -120);
        turn(slider, -120);
        turn(list, -120);
        EXPECT_EQ(box.listIndex(), 1);
        EXPECT_EQ(slider.value(), 50);
    }
    EXPECT_GT(top(), 0);
}

}  // namespace
