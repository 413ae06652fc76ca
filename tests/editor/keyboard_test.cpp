#include "editor_fixture.h"

#include <algorithm>
#include <map>

#include "platform/application.h"

namespace {

using platform::Control;
namespace key = platform::keyCode;
using platform::shiftKey::control;
using platform::shiftKey::shift;

class Keyboard : public EditorTest {
  protected:
    void open(int classes, int pictures = 5) {
        std::vector<std::string> names;
        for (int i = 1; i <= classes; ++i) names.push_back("K" + std::to_string(i));
        ASSERT_TRUE(start(makeSet("Tasten", {.pictures = pictures, .classes = names, .regions = {"Kopf"}})));
    }
    /// As long after the last one as a picture must be seen before a key can mean it.
    void type(int code, int held = 0) {
        user::pumpUntil([] { return false; }, 2 * platform::application::inputTimeStep);
        user::key(window().form, code, held);
    }
    /// The letters behind a single "&" of what can be seen, and who has them.
    static void collectKeys(const Control& container, std::multimap<char, std::string>& keys) {
        for (const Control* child : user::childrenOf(container)) {
            if (!child->visible()) continue;
            for (const std::string& text : user::mnemonics(*child)) {
                const auto at = text.find('&');
                if (at == std::string::npos || at + 1 == text.size() || text[at + 1] == '&') continue;
                keys.emplace(static_cast<char>(text[at + 1] & ~0x20), child->name());
            }
            collectKeys(*child, keys);
        }
    }
};

TEST_F(Keyboard, EveryAccessKeyOfAPageLeadsToOneControlAndEveryTabHasOne) {
    open(3);
    auto& w = window();
    for (int page = 1; page <= 3; ++page) {
        user::selectTab(w.TabStrip1, page);
        std::multimap<char, std::string> keys;
        collectKeys(w.form, keys);
        EXPECT_EQ(static_cast<int>(std::count_if(keys.begin(), keys.end(),
                                                 [](const auto& k) { return k.second == "TabStrip1"; })),
                  3);
        for (const auto& [letter, name] : keys)
            EXPECT_EQ(keys.count(letter), 1u) << letter << " on page " << page << ": " << name;
    }
}

TEST_F(Keyboard, PageAndEndKeysBrowseUnlessTheFocusHasAUseForThem) {
    open(3);
    auto& w = window();
    const struct {
        int code, row;
    } steps[] = {{key::pageDown, 2}, {key::end, 5}, {key::pageDown, 1}, {key::pageUp, 5}, {key::home, 1}};
    for (Control* focus :
         std::initializer_list<Control*>{&w.kvPictureBox1, &w.btnOK, &w.TabStrip1, &w.lvCItems}) {
        for (const auto& step : steps) {
            focus->focus();
            type(step.code);
            EXPECT_EQ(current(), step.row) << focus->name() << ' ' << step.code;
        }
    }
    for (Control* focus : std::initializer_list<Control*>{&w.cboSets, &w.txtInfo, &w.cboROI, &w.Slider1}) {
        focus->focus();
        type(key::end);
        EXPECT_EQ(current(), 1) << focus->name();
    }
    EXPECT_EQ(w.kvPictureBox1.FileName(), w.ItemPath(1));
}

TEST_F(Keyboard, DigitsPressTheClassButtonsThatAreShown) {
    open(60, 12);
    auto& w = window();
    const struct {
        int code, classIndex;
    } presses[] = {{'1', 0}, {'9', 8}, {'0', 9}, {key::numpad0, 9}, {key::numpad0 + 2, 1}};
    int row = 0;
    for (const auto& press : presses) {
        type(press.code);
        EXPECT_EQ(w.ItemClasses(++row, 0), press.classIndex) << press.code;
        EXPECT_EQ(current(), row + 1);
    }
    const int shown = w.kvButtonList1.ShownCount();
    type(key::pageDown, control);
    type('2');
    EXPECT_EQ(w.ItemClasses(6, 0), shown + 1) << "the buttons were scrolled by a page";
    auto& second = user::find<platform::Button>(w.form, "Command1(1)");
    EXPECT_EQ(second.caption(), "K" + std::to_string(shown + 2));
    EXPECT_EQ(second.keyHint(), "2");
    EXPECT_EQ(user::find<platform::Button>(w.form, "Command1(10)").keyHint(), "");

    for (Control* focus : std::initializer_list<Control*>{&w.lvCItems, &w.ListView2, &second, &w.cboROI}) {
        const int before = current();
        focus->focus();
        type('3');
        EXPECT_EQ(w.ItemClasses(before, 0), shown + 2) << focus->name();
    }
}

TEST_F(Keyboard, ADigitWithoutAButtonOrAnItemLabelsNothing) {
    open(3);
    auto& w = window();
    w.kvPictureBox1.focus();
    type('4');
    type('1', shift);
    EXPECT_EQ(current(), 1);
    w.lvCItems.unselectAll();
    type('2');
    EXPECT_TRUE(w.unchanged());
}

TEST_F(Keyboard, WhatIsTypedIsText) {
    open(3);
    auto& w = window();
    user::selectTab(w.TabStrip1, 2);
    w.txtCDescription.focus();
    for (const int code : {int{'2'}, int{key::space}, int{'3'}}) type(code);
    EXPECT_EQ(w.txtCDescription.text(), "2 3");
    w.cboSets.setText("Neu");
    w.cboSets.focus();
    type('1');
    EXPECT_NE(w.cboSets.text().find('1'), std::string::npos) << w.cboSets.text();
    user::press(w.btnCRename);
    user::pump();
    ASSERT_TRUE(user::editing(w.lvCClasses));
    EXPECT_EQ(current(), 1);
    for (int row = 1; row <= 5; ++row) EXPECT_EQ(w.ItemClasses(row, 0), 0);
    EXPECT_FALSE(w.Timer2.enabled());
}

TEST_F(Keyboard, SpaceStartsAndStopsTheShowUnlessAButtonHasTheFocus) {
    open(3);
    auto& w = window();
    for (Control* focus : std::initializer_list<Control*>{&w.kvPictureBox1, &w.lvCItems, &w.cboROI}) {
        focus->focus();
        type(key::space);
        EXPECT_TRUE(w.Timer2.enabled()) << focus->name();
        type(key::space);
        EXPECT_FALSE(w.Timer2.enabled()) << focus->name();
    }
    w.chkStretch.focus();
    type(key::space);
    EXPECT_TRUE(w.chkStretch.checked());
    w.ListView2.focus();
    type(key::space);
    EXPECT_FALSE(w.Timer2.enabled());
    EXPECT_EQ(w.ListView2.selectedCount(), 1) << "Space chooses there";
}

TEST_F(Keyboard, SavesTurnsThePagesAndOpensTheManual) {
    open(3);
    auto& w = window();
    w.kvPictureBox1.focus();
    type('2');
    w.cboSets.setText("Neu");
    w.cboSets.focus();
    type('S', control);
    EXPECT_EQ(stored("Neu", "ROI0", "1"), "2");
    EXPECT_TRUE(w.unchanged());
    for (const auto& [held, page] :
         {std::pair{control, 2}, {control, 3}, {control, 1}, {control | shift, 3}}) {
        type(key::tab, held);
        EXPECT_EQ(w.TabStrip1.selected(), page);
        EXPECT_EQ(w.fraROIs.visible(), page == 3);
        EXPECT_TRUE(w.TabStrip1.focused());
    }
    messages.expectPart("Die Anleitung wurde nicht gefunden");
    type(key::f1);
}

}  // namespace
