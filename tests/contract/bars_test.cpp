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

TEST(ScrollBar, TellsEveryNewValueOfTheProgram) {
    const struct {
        int wanted;
        Events raised;
    } cases[] = {{10, {}}, {11, {"change 11"}}, {50, {"change 50"}}, {51, {}}, {-3, {"change 1"}}, {0, {}},
                 {1, {}}};
    Scrolling window;
    for (const auto& [wanted, raised] : cases) {
        window.bar.setValue(wanted);
        EXPECT_EQ(window.raised(), raised) << wanted;
    }
}

TEST(ScrollBar, KeepsItsValueInTheRange) {
    const struct {
        int minimum, maximum;
        Events raised;
    } cases[] = {{1, 40, {}}, {1, 9, {"change 9"}}, {12, 30, {"change 12"}}, {12, 12, {}}, {0, 100, {}}};
    Scrolling window;
    for (const auto& [minimum, maximum, raised] : cases) {
        window.bar.setRange(minimum, maximum);
        EXPECT_EQ(window.bar.minimum(), minimum);
        EXPECT_EQ(window.bar.maximum(), maximum);
        EXPECT_EQ(window.raised(), raised) << minimum << " to " << maximum;
    }
}

TEST(ScrollBar, ScrollsWhileItsThumbIsDraggedAndChangesAtTheEnd) {
    Scrolling window;
    user::scroll(window.bar, 30);
    EXPECT_EQ(window.raised(), (Events{"scroll 30", "change 30"}));
}

TEST(ScrollBar, ReachesItsWholeRangeWhateverThePage) {
    Scrolling window;
    window.bar.setLargeChange(40);
    EXPECT_EQ(window.bar.largeChange(), 40);
    EXPECT_EQ(window.raised(), Events{});
    user::scroll(window.bar, 50);
    EXPECT_EQ(window.bar.value(), 50);
    EXPECT_EQ(window.bar.maximum(), 50);
    window.bar.setValue(1);
    window.bar.setValue(50);
    EXPECT_EQ(window.bar.value(), 50);
}

TEST(ScrollBar, MovesByItsChangesAndStopsAtTheEnds) {
    Scrolling window;
    window.bar.setSmallChange(3);
    window.bar.setLargeChange(20);
    EXPECT_EQ(window.bar.smallChange(), 3);
    user::step(window.bar, 2);
    EXPECT_EQ(window.raised(), (Events{"change 13", "change 16"}));
    user::page(window.bar, 2);
    EXPECT_EQ(window.raised(), (Events{"change 36", "change 50"}));
    user::step(window.bar, 1);
    EXPECT_EQ(window.raised(), Events{});
    user::page(window.bar, -3);
    EXPECT_EQ(window.bar.value(), 1);
}

struct Sliding : TestWindow {
    Slider slider{form, "sld"};
    int changes = 0;
    int scrolls = 0;
    Sliding() {
        slider.move(Rect::at(0, 0, 200, 30));
        slider.setRange(100, 5000, 100, 500);
        slider.setValue(1000);
        slider.onChange = [this] { ++changes; };
        slider.onScroll = [this] { ++scrolls; };
    }
};

TEST(Slider, TellsEveryNewValueOfTheProgram) {
    Sliding window;
    EXPECT_EQ(window.slider.value(), 1000);
    window.slider.setValue(1000);
    EXPECT_EQ(window.changes, 0);
    window.slider.setValue(6000);
    EXPECT_EQ(window.slider.value(), 5000);
    EXPECT_EQ(window.changes, 1);
    window.slider.setRange(100, 800, 100, 500);
    EXPECT_EQ(window.slider.value(), 800);
    EXPECT_EQ(window.slider.minimum(), 100);
    EXPECT_EQ(window.slider.maximum(), 800);
    EXPECT_EQ(window.changes, 2);
    EXPECT_EQ(window.scrolls, 0);
}

TEST(Slider, TellsADragAsWell) {
    Sliding window;
    user::slide(window.slider, 2500);
    EXPECT_EQ(window.slider.value(), 2500);
    EXPECT_EQ(window.changes, 1);
    EXPECT_GE(window.scrolls, 1);
}

}  // namespace
