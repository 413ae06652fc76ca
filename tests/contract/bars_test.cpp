#include <gtest/gtest.h>

#include "platform/basic_controls.h"
#include "tests/contract/test_window.h"
#include "tests/support/user.h"

namespace {

using namespace platform;
using contract::Events;
using contract::TestWindow;

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

}  // namespace
