#include "platform/basic_controls.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>

#include "tests/contract/test_window.h"
#include "tests/support/user.h"

namespace {

using namespace platform;
using contract::Events;
using contract::TestWindow;

TEST(Control, IsReachedOnlyThroughVisibleAndEnabledParents) {
    TestWindow window;
    Panel page(window.form, "fraPage");
    Button button(page, "btnInside", "&Innen");
    page.move(Rect::at(0, 0, 200, 200));
    button.move(Rect::at(10, 20, 80, 25));
    const std::function<void(bool)> conditions[] = {[&](bool on) { page.setVisible(on); },
                                                    [&](bool on) { page.setEnabled(on); },
                                                    [&](bool on) { button.setEnabled(on); }};
    for (const auto& set : conditions) {
        button.focus();
        EXPECT_TRUE(button.focused());
        set(false);
        EXPECT_FALSE(button.focused());
        EXPECT_TRUE(button.visible()) << "the flag is its own";
        EXPECT_FALSE(user::reachable(button));
        EXPECT_THROW(user::press(button), std::logic_error);
        set(true);
        EXPECT_TRUE(user::reachable(button));
    }
    window.form.hide();
    EXPECT_FALSE(user::reachable(button));
}

TEST(Captions, AreReadWithoutTheMarkOfTheAccessKeyUnlessTheyArePlain) {
    TestWindow window;
    Button button(window.form, "btn");
    Label label(window.form, "lbl");
    Label plain(window.form, "lblPlain", {}, Label::Style::plain);
    const std::pair<const char*, const char*> cases[] = {
        {"&Suchen", "Suchen"}, {"Spei&chern...", "Speichern..."}, {"Gut && Böse", "Gut & Böse"}, {"", ""}};
    for (const auto& [mnemonic, read] : cases) {
        button.setCaption(mnemonic);
        EXPECT_EQ(button.caption(), read);
        label.setCaption(mnemonic);
        EXPECT_EQ(label.caption(), read);
        button.setPlainCaption(mnemonic);
        EXPECT_EQ(button.caption(), mnemonic);
        plain.setCaption(mnemonic);
        EXPECT_EQ(plain.caption(), mnemonic);
    }
}

struct Boxes : TestWindow {
    TextBox txtOne{form, "txtOne"};
    TextBox txtTwo{form, "txtTwo"};
    Button btnLeave{form, "btnLeave"};
    Boxes() {
        txtOne.move(Rect::at(0, 0, 100, 23));
        txtTwo.move(Rect::at(0, 30, 100, 23));
        btnLeave.move(Rect::at(0, 60, 100, 25));
        txtOne.onChange = log("change");
        txtOne.onCommit = log("commit");
        btnLeave.onClick = log("click");
    }
};

TEST(TextBox, TellsTextOfTheUserOnly) {
    Boxes boxes;
    user::type(boxes.txtOne, "neu & schön");
    EXPECT_EQ(boxes.txtOne.text(), "neu & schön");
    EXPECT_EQ(boxes.raised(), Events{"change"});
    boxes.txtOne.setText("eins\r\nzwei\ndrei");
    EXPECT_EQ(boxes.txtOne.text(), "eins zwei drei");
    boxes.txtTwo.focus();
    EXPECT_EQ(boxes.raised(), Events{}) << "the user's text is gone";
}

TEST(TextBox, CommitsByEnterOrWhenItIsLeftAfterAChange) {
    Boxes boxes;
    user::type(boxes.txtOne, "a");
    user::commit(boxes.txtOne);
    EXPECT_EQ(boxes.raised(), (Events{"change", "commit"}));
    boxes.txtTwo.focus();
    boxes.txtOne.focus();
    boxes.txtTwo.focus();
    EXPECT_EQ(boxes.raised(), Events{}) << "committed already";
    user::type(boxes.txtOne, "b");
    user::press(boxes.btnLeave);
    EXPECT_EQ(boxes.raised(), (Events{"change", "commit", "click"}));
}

TEST(CheckBox, TellsTheUsersClicksOnly) {
    TestWindow window;
    CheckBox box(window.form, "chk", "&mehrfach");
    box.move(Rect::at(0, 0, 200, 20));
    box.onClick = [&] { window.events.push_back(box.checked() ? "on" : "off"); };
    EXPECT_FALSE(box.checked());
    box.setChecked(true);
    user::check(box, true);
    EXPECT_EQ(window.raised(), Events{});
    user::check(box, false);
    user::check(box, true);
    EXPECT_EQ(window.raised(), (Events{"off", "on"})) << "the new state is there when it is told";
}

class Combo : public testing::TestWithParam<ComboBox::Style> {
  protected:
    Combo() {
        box.move(Rect::at(0, 0, 150, 23));
        box.add({"gut", "Riß", "Pore"});
        box.onClick = window.log("click");
        box.onChange = window.log("change");
    }
    std::vector<std::string> items() const {
        std::vector<std::string> all;
        for (int i = 0; i < box.count(); ++i) all.push_back(box.item(i));
        return all;
    }
    TestWindow window;
    ComboBox box{window.form, "cbo", GetParam()};
};

TEST_P(Combo, TellsAnotherChoiceWhoeverMadeIt) {
    EXPECT_EQ(box.listIndex(), -1);
    EXPECT_EQ(box.text(), "");
    int told = -1;
    box.onClick = [&] {
        told = box.listIndex();
        window.events.push_back("click");
    };
    box.setListIndex(1);
    EXPECT_EQ(told, 1) << "the choice is made already";
    EXPECT_EQ(box.text(), "Riß");
    box.setListIndex(1);
    EXPECT_EQ(window.raised(), Events{"click"}) << "the same choice says nothing";
    user::choose(box, 2);
    EXPECT_EQ(told, 2);
    EXPECT_EQ(box.text(), "Pore");
    EXPECT_EQ(window.raised(), Events{"click"});
    box.setListIndex(-1);
    EXPECT_EQ(box.listIndex(), -1);
    EXPECT_EQ(box.text(), "");
    EXPECT_EQ(window.raised(), Events{}) << "choosing none";
}

TEST_P(Combo, KeepsItsChoiceWhenEntriesAroundItChange) {
    box.setListIndex(1);
    window.raised();
    box.insert(1, "neu");
    EXPECT_EQ(box.listIndex(), 2);
    box.remove(0);
    EXPECT_EQ(box.listIndex(), 1);
    box.insert(2, "Ätzfehler");
    box.remove(3);
    box.add("aa");
    EXPECT_EQ(items(), (std::vector<std::string>{"neu", "Riß", "Ätzfehler", "aa"})) << "not sorted";
    EXPECT_EQ(box.text(), "Riß");
    box.replace(1, "Risse");
    EXPECT_EQ(box.item(1), "Risse");
    EXPECT_EQ(box.listIndex(), 1);
    EXPECT_EQ(box.text(), "Risse");
    EXPECT_EQ(window.raised(), Events{});
}

TEST_P(Combo, ChoosesNoneWhenTheChosenEntryGoes) {
    for (const auto& take : {std::function([&] { box.remove(1); }), std::function([&] { box.clear(); })}) {
        box.setListIndex(1);
        window.raised();
        take();
        EXPECT_EQ(box.listIndex(), -1);
        EXPECT_EQ(box.text(), "");
        EXPECT_EQ(window.raised(), Events{});
    }
    EXPECT_EQ(box.count(), 0);
    box.setDropDownWidth(333);
    EXPECT_EQ(box.dropDownWidth(), 333);
}

INSTANTIATE_TEST_SUITE_P(Styles, Combo, testing::Values(ComboBox::Style::editable, ComboBox::Style::list),
                         [](const auto& style) {
                             return style.param == ComboBox::Style::list ? "list" : "editable";
                         });

TEST(EditableCombo, TakesAnyTextWithoutChoosing) {
    TestWindow window;
    ComboBox box(window.form, "cbo", ComboBox::Style::editable);
    box.move(Rect::at(0, 0, 150, 23));
    box.add(std::vector<std::string>{"gut", "Riß"});
    box.onClick = window.log("click");
    box.onChange = window.log("change");
    for (const char* text : {"anderes", "Riß", ""}) {  // even the text of an entry
        for (const bool typed : {false, true}) {
            box.setListIndex(0);
            window.raised();
            typed ? user::type(box, text) : box.setText(text);
            EXPECT_EQ(box.text(), text);
            EXPECT_EQ(box.listIndex(), -1);
            EXPECT_EQ(window.raised(), typed ? Events{"change"} : Events{}) << text;
        }
    }
    user::choose(box, 0);
    EXPECT_EQ(box.text(), "gut");
    EXPECT_EQ(window.raised(), Events{"click"}) << "another one than the typed text";
}

TEST(TabStrip, CountsFromOneAndTellsTheUsersChoiceOnly) {
    TestWindow window;
    TabStrip tabs(window.form, "tab", {"&Stichprobe", "Gut && Böse", "&Bereiche"});
    const Rect bounds = Rect::at(10, 20, 300, 200);
    tabs.move(bounds);
    tabs.onClick = [&] { window.events.push_back(tabs.tab(tabs.selected())); };
    EXPECT_EQ(tabs.selected(), 1);
    tabs.select(2);
    EXPECT_EQ(tabs.selected(), 2);
    EXPECT_EQ(window.raised(), Events{});
    user::selectTab(tabs, 3);
    user::selectTab(tabs, 2);
    EXPECT_EQ(window.raised(), (Events{"Bereiche", "Gut & Böse"}));

    const Rect page = tabs.pageArea();
    EXPECT_EQ(intersect(page, bounds), page) << "in the parent's coordinates";
    EXPECT_GE(page.top, bounds.top + 15);
    EXPECT_GT(page.width(), 280);
    EXPECT_GT(page.height(), 150);
}

struct Scrolling : TestWindow {
    ScrollBar bar{form, "bar", ScrollBar::Direction::vertical};
    Scrolling() {
        bar.move(Rect::at(0, 0, 17, 200));
        bar.setRange(1, 50);
        bar.setValue(10);
        bar.onChange = [this] { events.push_back("change " + std::to_string(bar.value())); };
        bar.onScroll = [this] { events.push_back("scroll " + std::to_string(bar.value())); };
    }
};

TEST(ScrollBar, KeepsItsValueInTheRangeAndTellsEveryNewOne) {
    const struct {
        int minimum, maximum, wanted;
        Events raised;
    } cases[] = {
        {1, 50, 10, {}},         {1, 50, 11, {"change 11"}},  {1, 50, 51, {"change 50"}},
        {1, 9, 9, {"change 9"}}, {12, 30, 12, {"change 12"}}, {12, 30, -3, {}},
        {12, 12, 12, {}},        {0, 100, 0, {"change 0"}},
    };
    Scrolling window;
    for (const auto& [minimum, maximum, wanted, raised] : cases) {
        window.bar.setRange(minimum, maximum);
        window.bar.setValue(wanted);
        EXPECT_EQ(window.bar.minimum(), minimum);
        EXPECT_EQ(window.bar.maximum(), maximum);
        EXPECT_EQ(window.raised(), raised) << wanted << " in " << minimum << " to " << maximum;
    }
}

TEST(ScrollBar, ReachesItsWholeRangeByTheThumbWhateverThePage) {
    Scrolling window;
    window.bar.setLargeChange(40);
    EXPECT_EQ(window.raised(), Events{});
    user::scroll(window.bar, 30);
    EXPECT_EQ(window.raised(), (Events{"scroll 30", "change 30"})) << "the change comes when it is let go";
    user::scroll(window.bar, 50);
    EXPECT_EQ(window.bar.value(), 50);
    EXPECT_EQ(window.bar.maximum(), 50);
}

TEST(ScrollBar, MovesByItsChangesAndStopsAtTheEnds) {
    Scrolling window;
    window.bar.setSmallChange(3);
    window.bar.setLargeChange(20);
    user::step(window.bar, 2);
    EXPECT_EQ(window.raised(), (Events{"change 13", "change 16"}));
    user::page(window.bar, 2);
    EXPECT_EQ(window.raised(), (Events{"change 36", "change 50"}));
    user::step(window.bar, 1);
    EXPECT_EQ(window.raised(), Events{});
    user::page(window.bar, -3);
    EXPECT_EQ(window.bar.value(), 1);
}

TEST(Slider, TellsEveryNewValueWhoeverMadeIt) {
    TestWindow window;
    Slider slider(window.form, "sld");
    slider.move(Rect::at(0, 0, 200, 30));
    slider.setRange(100, 5000, 100, 500);
    slider.setValue(1000);
    slider.onChange = [&] { window.events.push_back(std::to_string(slider.value())); };
    bool scrolled = false;
    slider.onScroll = [&] { scrolled = true; };
    slider.setValue(1000);
    slider.setValue(6000);
    slider.setRange(100, 800, 100, 500);
    EXPECT_EQ(window.raised(), (Events{"5000", "800"}));
    EXPECT_FALSE(scrolled);
    user::slide(slider, 250);
    EXPECT_EQ(window.raised(), Events{"250"});
    EXPECT_TRUE(scrolled);
}

IconImage plainIcon(int size) {
    return {size, std::vector<std::uint32_t>(static_cast<std::size_t>(size * size), 0xFF336699)};
}

struct Tools : TestWindow {
    Toolbar toolbar{form, "tbr"};
    Tools() {
        toolbar.setImages({{"play", plainIcon(16)}, {"stop", plainIcon(16)}, {"save", plainIcon(16)}});
        toolbar.add({"play", "Abspielen", "0", {}});
        toolbar.add({});
        toolbar.add({"save", "Speichern", "", {{"play", "Als &Kopie"}, {"all", "Alle"}}});
        toolbar.move(Rect::at(0, 0, 300, toolbar.preferredSize().height));
        toolbar.onButtonClick = [this](auto& b) { log(b.key)(b.tag, b.toolTip); };
        toolbar.onMenuClick = [this](auto& parent, auto& entry) { log(parent.key)(entry.key); };
    }
};

TEST(Toolbar, CountsFromOneWithSeparatorsAndTellsAButtonAsItIsNow) {
    Tools window;
    Toolbar& toolbar = window.toolbar;
    EXPECT_EQ(toolbar.count(), 3);
    EXPECT_EQ(toolbar.indexOf("SAVE"), 3);
    EXPECT_EQ(toolbar.indexOf("grab"), 0);
    EXPECT_EQ(toolbar.image(1), "play");
    toolbar.setTag(1, "1");
    toolbar.setImage(1, "stop");
    toolbar.setToolTip(1, "Anhalten");
    EXPECT_EQ(toolbar.image(1), "stop");
    user::press(toolbar, "play");
    user::chooseMenu(toolbar, "save", "all");
    user::press(toolbar, "save");  // the button beside its arrow
    EXPECT_EQ(window.raised(), (Events{"play 1 Anhalten", "save all", "save  Speichern"}));
    toolbar.setEnabled(1, false);
    EXPECT_FALSE(toolbar.enabled(1));
    EXPECT_TRUE(toolbar.enabled(3) && toolbar.enabled());
    EXPECT_THROW(user::press(toolbar, "play"), std::logic_error);
}

}  // namespace
