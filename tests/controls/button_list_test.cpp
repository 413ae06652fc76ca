#include "controls/buttonlist/kvButtonList.h"

#include <gmock/gmock.h>

#include "platform/errors.h"
#include "tests/support/user.h"

namespace {

using namespace controls;
using platform::Button;
using platform::Rect;
using platform::RuntimeError;
using testing::ElementsAre;
using testing::IsEmpty;

class ButtonListTest : public testing::Test {
  protected:
    ButtonListTest() {
        form.show();
        list.move(Rect::at(10, 10, 150, 100));  // four slots: 96, 73, 50, 27
        list.Click = [this](std::int16_t& index) { clicks.push_back(index); };
    }

    void fill(int count) {
        std::vector<std::string> captions;
        for (int i = 1; i <= count; ++i) captions.push_back(std::to_string(i));
        list.SetAll(captions);
    }
    Button& slot(int index) { return user::find<Button>(form, "Command1(" + std::to_string(index) + ")"); }
    /// What the visible buttons say, from the top.
    std::vector<std::string> captions() {
        std::vector<std::string> found;
        for (platform::Control* child : user::childrenOf(list)) {
            const auto* button = dynamic_cast<Button*>(child);
            if (button && button->visible()) found.push_back(button->caption());
        }
        return found;
    }

    platform::Form form{"frmButtons", "Klassen", {}};
    kvButtonList list{form, "kvButtonList1"};
    platform::ScrollBar& bar = user::find<platform::ScrollBar>(form, "VScroll1");
    std::vector<int> clicks;
};

TEST_F(ButtonListTest, LaysOutAsManySlotsAsFit) {
    fill(9);
    EXPECT_THAT(captions(), ElementsAre("1", "2", "3", "4"));
    EXPECT_TRUE(bar.enabled());
    EXPECT_EQ(bar.maximum(), 6);
    for (const auto& [height, slots] : {std::pair{24, 4u}, {25, 3u}, {97, 0u}, {23, 4u}}) {
        list.ButtonHeight(static_cast<std::int16_t>(height));
        EXPECT_EQ(captions().size(), slots) << height;
    }
    fill(4);
    EXPECT_FALSE(bar.enabled());
    list.move(Rect::at(10, 10, 150, 1));
    EXPECT_THAT(captions(), IsEmpty());
}

TEST_F(ButtonListTest, ReportsTheItemThatAButtonShows) {
    fill(12);
    user::press(slot(2));
    user::scroll(bar, 5);
    EXPECT_THAT(captions(), ElementsAre("5", "6", "7", "8"));
    user::press(slot(2));
    user::scroll(bar, 9);
    user::press(slot(3));
    EXPECT_THAT(clicks, ElementsAre(2, 6, 11));
}

TEST_F(ButtonListTest, NeverShowsOtherThanItsItems) {
    fill(9);
    user::scroll(bar, 6);
    for (const int removed : {8, 0}) {
        list.Remove(static_cast<std::int16_t>(removed));
        EXPECT_THAT(captions(), ElementsAre("5", "6", "7", "8")) << "one less to scroll";
    }
    list.move(Rect::at(10, 10, 150, 4 + 6 * 23));
    EXPECT_THAT(captions(), ElementsAre("3", "4", "5", "6", "7", "8"));
    list.move(Rect::at(10, 10, 150, 4 + 20 * 23));
    EXPECT_THAT(captions(), ElementsAre("2", "3", "4", "5", "6", "7", "8"))
        << "fewer than slots: from the first";
    list.move(Rect::at(10, 10, 150, 100));
    user::scroll(bar, 4);
    fill(3);
    EXPECT_THAT(captions(), ElementsAre("1", "2", "3"));
    EXPECT_EQ(bar.value(), 1);
}

TEST_F(ButtonListTest, KeepsThreeTextsOfAnItem) {
    list.Add("&gut", "zweiter", "dritter");
    list.Add("b", "", "");
    EXPECT_THAT(captions(), ElementsAre("&gut", "b"));
    list.Rename(0, "A && B");
    EXPECT_EQ(list.item(0), (kvButtonList::Item{"A && B", "zweiter", "dritter"}));
    EXPECT_EQ(slot(0).caption(), "A && B");
    for (const std::int16_t index : {std::int16_t{-1}, std::int16_t{2}}) {
        EXPECT_THROW(list.Rename(index, "x"), RuntimeError) << index;
        EXPECT_THROW(list.Remove(index), RuntimeError) << index;
    }
    list.ButtonHeight(0);  // the buttons stay as they are
    list.Clear();
    user::press(slot(1));
    EXPECT_THAT(clicks, IsEmpty()) << "a button without an item";
}

TEST_F(ButtonListTest, HoldsAsManyItemsAsAnIndexCanCount) {
    fill(32767);
    EXPECT_THROW(list.Add("zu viel", "", ""), RuntimeError);
    user::scroll(bar, 32764);
    user::press(slot(3));
    EXPECT_THAT(clicks, ElementsAre(32766));
    user::wheel(list, 120, 0, {5, 5});
    EXPECT_EQ(bar.value(), 32763);
    for (int i = 0; i < 4; ++i) user::wheel(list, 30, 0, {5, 5});  // fine wheels turn in parts of a notch
    EXPECT_EQ(bar.value(), 32762);
}

TEST_F(ButtonListTest, GivesItsPropertiesToTheButtonsAndKeepsItsOwnInABag) {
    std::vector<std::string> changed;
    list.onPropertyChanged = [&](std::string_view key) { changed.emplace_back(key); };
    fill(2);
    const platform::Font font{"Arial", 120, true, false};
    list.BackColor(0x0000FF);
    list.Enabled(false);
    list.Font(font);
    list.ButtonHeight(30);
    EXPECT_THAT(changed, ElementsAre("BackColor", "Enabled", "Font", "ButtonHeight"));
    EXPECT_EQ(list.BackColor(), 0x8000000Fu) << "its own";
    EXPECT_TRUE(list.Enabled());
    fill(8);
    for (const int i : {0, 7}) {  // those made later are like the others
        EXPECT_EQ(slot(i % 3).backColour(), 0x0000FFu) << i;
        EXPECT_FALSE(slot(i % 3).enabled()) << i;
        EXPECT_EQ(slot(i % 3).font(), font) << i;
    }
    PropertyBag bag;
    list.WriteProperties(bag);
    list.ReadProperties(PropertyBag());
    EXPECT_EQ(list.ButtonHeight(), 23);
    EXPECT_EQ(list.Font(), list.font());
    bag.write("Enabled", false);
    list.ReadProperties(bag);
    EXPECT_FALSE(list.Enabled());
    EXPECT_EQ(list.Font(), font);
    EXPECT_EQ(list.ButtonHeight(), 30);
    bag.write("ButtonHeight", std::int32_t{70000});
    EXPECT_THROW(list.ReadProperties(bag), RuntimeError);
}

}  // namespace
