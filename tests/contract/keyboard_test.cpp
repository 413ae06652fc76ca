#include <gtest/gtest.h>

#include "platform/application.h"
#include "platform/errors.h"
#include "test_window.h"
#include "tests/support/error_of.h"
#include "tests/support/messages.h"
#include "tests/support/user.h"

namespace {

using namespace platform;

struct KeyWindow : contract::TestWindow {
    TextBox text{form, "txtFirst"};
    TextBox reading{form, "txtInfo", TextBox::Style::readOnly};
    ComboBox editable{form, "cboSets", ComboBox::Style::editable};
    ComboBox chooser{form, "cboROI", ComboBox::Style::list};
    Button button{form, "btnOne", "&Eins"};
    CheckBox check{form, "chkInside", "mehrfach"};
    Slider slider{form, "Slider1"};
    TabStrip tabs{form, "tabs", {"&Bilder"}};
    UserControl drawn{form, "column", "kvKeyboard"};
    ListView list{form, "ListView1", {{"Name", 10}}, {.editLabels = true}};
    std::vector<std::pair<int, KeyUse>> told;
    bool takes = true;

    KeyWindow() {
        int y = 0;
        for (Control* control : user::childrenOf(form)) control->move(Rect::at(0, y += 30, 100, 28));
        list.move(Rect::at(150, 0, 200, 200));
        list.setCount(3);
        list.selectOnly(1);
        form.onKeyDown = [this](int key, int, KeyUse focus) {
            told.emplace_back(key, focus);
            return takes;
        };
    }
    KeyUse use(Control& control) {
        control.focus();
        user::key(form, 'X');
        return told.back().second;
    }
};

TEST(FormKeys, AreToldWithTheUseThatTheFocusHasForThem) {
    KeyWindow window;
    const std::pair<Control*, KeyUse> uses[] = {
        {&window.text, KeyUse::text},     {&window.reading, KeyUse::reading},
        {&window.editable, KeyUse::text}, {&window.chooser, KeyUse::range},
        {&window.button, KeyUse::press},  {&window.check, KeyUse::press},
        {&window.slider, KeyUse::range},  {&window.tabs, KeyUse::none},
        {&window.drawn, KeyUse::none},    {&window.list, KeyUse::rows},
    };
    for (const auto& [control, expected] : uses) EXPECT_EQ(window.use(*control), expected) << control->name();
    window.list.editLabel(2);
    user::key(window.form, keyCode::tab, shiftKey::control);
    EXPECT_EQ(window.told.back(), std::pair(int{keyCode::tab}, KeyUse::text)) << "a text edited in a list";
    EXPECT_TRUE(user::editing(window.list));
}

TEST(FormKeys, ReachTheControlUnlessTheFormTakesThem) {
    KeyWindow window;
    window.list.onItemClick = window.log("row");
    window.button.onClick = window.log("click");
    for (const bool takes : {true, false}) {
        window.takes = takes;
        window.text.focus();
        user::key(window.form, '7');
        window.list.focus();
        user::key(window.form, keyCode::down);
        window.button.focus();
        user::key(window.form, keyCode::space);
        EXPECT_EQ(window.text.text(), takes ? "" : "7");
        EXPECT_EQ(window.raised(), takes ? contract::Events{} : (contract::Events{"row 2", "click"}));
    }
    support::Messages messages;
    messages.expectPart("misslungen");
    window.form.onKeyDown = [](int, int, KeyUse) -> bool {
        throw RuntimeError(error::fileError, "misslungen");
    };
    user::key(window.form, keyCode::space);
    EXPECT_EQ(window.raised(), contract::Events{}) << "what failed is not done a second time";
}

}  // namespace
