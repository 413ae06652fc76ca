#include <gtest/gtest.h>

#include <memory>

#include "platform/basic_controls.h"
#include "platform/form.h"
#include "platform/user_control.h"
#include "tests/support/user.h"
#include "tests/support/win32/input.h"

namespace {

using namespace platform;

/// Two pages, of which one is hidden, and controls before and behind them.
struct Keyboard : testing::Test {
    Form form{"frmKeyboard", "Tastatur", {}};
    Label lblFirst{form, "lblFirst", "&Erstes:"};
    TextBox txtFirst{form, "txtFirst"};
    TabStrip tabs{form, "tabs", {"&Bilder", "&Klassen"}};
    Panel shown{form, "fraShown"};
    CheckBox chkInside{shown, "chkInside", "&mehrfach"};
    Panel hidden{form, "fraHidden"};
    Button btnHidden{hidden, "btnHidden", "&Los"};
    UserControl column{form, "column", "kvKeyboard"};
    Button btnOne{column, "btnOne", "Eins"};
    Button btnTwo{column, "btnTwo", "&Zwei"};
    Button btnOff{form, "btnOff", "&Aus"};
    int clicks = 0;

    Keyboard() {
        int y = 0;
        for (Control* control :
             std::initializer_list<Control*>{&lblFirst, &txtFirst, &tabs, &shown, &hidden, &column, &btnOff})
            control->move(Rect::at(0, y += 50, 200, 45));
        for (Control* control : std::initializer_list<Control*>{&chkInside, &btnHidden, &btnOne})
            control->move(Rect::at(0, 0, 100, 20));
        btnTwo.move(Rect::at(0, 20, 100, 20));
        hidden.setVisible(false);
        btnOff.setEnabled(false);
        for (Button* button : {&btnHidden, &btnOne, &btnTwo, &btnOff}) button->onClick = [this] { ++clicks; };
        form.show();
        txtFirst.focus();
    }
    static void press(int key, int shift = 0) { user::input::key(GetFocus(), key, shift); }
    void access(wchar_t letter) {
        PostMessageW(GetFocus(), WM_SYSCHAR, letter, 1 << 29);
        user::pump();
    }
    static std::string focused() {
        const Control::Native* native = Control::Native::holding(GetFocus());
        return native ? native->name : "";
    }
};

TEST_F(Keyboard, TabGoesThroughAllContainersAndAround) {
    for (const char* next : {"tabs", "chkInside", "btnOne", "btnTwo", "txtFirst", "tabs"}) {
        press(VK_TAB);
        EXPECT_EQ(focused(), next);
    }
    for (const char* next : {"txtFirst", "btnTwo"}) {
        press(VK_TAB, shiftKey::shift);
        EXPECT_EQ(focused(), next);
    }
}

TEST_F(Keyboard, AccessKeysReachWhatCanBeUsed) {
    btnOne.focus();
    access(L'e');
    EXPECT_EQ(focused(), "txtFirst") << "a label leads to the control behind it";
    access(L'M');
    EXPECT_TRUE(chkInside.checked());
    EXPECT_EQ(focused(), "chkInside");
    access(L'z');
    EXPECT_EQ(clicks, 1);
    access(L'l');  // hidden
    access(L'a');  // disabled
    EXPECT_EQ(clicks, 1);
    int chosen = 0;
    tabs.onClick = [&] { chosen = tabs.selected(); };
    access(L'k');
    EXPECT_EQ(chosen, 2);
}

TEST_F(Keyboard, EnterPressesTheFocusedButtonAndArrowsFindItsNeighbour) {
    btnOne.focus();
    press(VK_RETURN);
    EXPECT_EQ(clicks, 1);
    press(VK_DOWN);
    EXPECT_EQ(focused(), "btnTwo");
    press(VK_DOWN);
    EXPECT_EQ(focused(), "btnOne");
    txtFirst.focus();
    press(VK_RETURN);
    EXPECT_EQ(clicks, 1);
}

TEST_F(Keyboard, EscapeLeavesTheMainWindowAloneAndClosesADialog) {
    press(VK_ESCAPE);
    btnOne.focus();
    press(VK_ESCAPE);
    EXPECT_EQ(clicks, 0);
    EXPECT_TRUE(form.loaded());

    Form dialog("frmKeyboardDialog", "Frage", {.dialog = true, .owner = &form});
    Button button(dialog, "btnIn", "&Ja");
    button.move(Rect::at(0, 0, 50, 20));
    const user::ModalUser person([&](Form&) { press(VK_ESCAPE); });
    dialog.showModal();
    EXPECT_FALSE(dialog.loaded());
}

TEST_F(Keyboard, TheFocusIsNotLostWithItsControl) {
    btnOne.focus();
    btnOne.setEnabled(false);
    EXPECT_EQ(focused(), "btnTwo");
    column.setVisible(false);
    EXPECT_EQ(focused(), "txtFirst");
}

}  // namespace
