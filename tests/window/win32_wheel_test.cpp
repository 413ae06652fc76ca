#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/basic_controls.h"
#include "platform/form.h"
#include "platform/list_view.h"
#include "platform/user_control.h"
#include "platform/win32/native.h"
#include "tests/support/user.h"
#include "tests/support/win32/input.h"

namespace {

using namespace platform;
using Events = std::vector<std::string>;

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
    int left() {
        SCROLLINFO info{sizeof info, SIF_POS, 0, 0, 0, 0, 0};
        GetScrollInfo(list.native().window, SB_HORZ, &info);
        return info.nPos;
    }
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
    turn(list, 120, MK_SHIFT);
    turn(list, -120, MK_CONTROL);
    EXPECT_EQ(left(), notch);
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

TEST_F(Wheel, DoesNothingBehindADialog) {
    Form dialog("frmAbove", "Darüber", {.clientSize = {100, 60}, .dialog = true, .owner = &form});
    Button button(dialog, "button", "&Gut");
    button.move(Rect::at(0, 0, 50, 20));
    dialog.setPlacement("1000 800 120 90");
    const user::ModalUser person([&](Form&) {
        turn(list, -120);
        dialog.hide();
    });
    dialog.showModal();
    EXPECT_EQ(top(), 0);
}

}  // namespace
