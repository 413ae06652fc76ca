#include "platform/splitter_bar.h"

#include <gtest/gtest.h>

#include "platform/metrics.h"
#include "tests/contract/test_window.h"
#include "tests/support/user.h"

namespace {

using namespace platform;
using contract::Events;
using contract::TestWindow;

/// A bar at 100 whose holder moves it to wherever it says.
class Split : public testing::TestWithParam<SplitterBar::Direction> {
  protected:
    Split() {
        bar.setPosition(100);
        layOut();
        bar.onMove = [this] {
            window.events.push_back(std::to_string(bar.position()));
            layOut();
        };
    }
    bool vertical() const { return GetParam() == SplitterBar::Direction::vertical; }
    int px(int at96) const { return metricsOf(window.form).px(at96); }
    void layOut() {
        const int at = px(bar.position());
        bar.control().move(vertical() ? Rect::at(at, 0, px(6), 200) : Rect::at(0, at, 200, px(6)));
    }
    /// A point of the bar, `along` pixels at 96 dots per inch in the direction in which it moves.
    Point point(int along) const {
        const int at = along < 0 ? -px(-along) : px(along);
        return vertical() ? Point{at, 50} : Point{50, at};
    }
    void drag(int from, int to, MouseButton button = MouseButton::left) {
        user::mouseDown(bar.control(), button, 0, point(from));
        user::mouseMove(bar.control(), button, 0, point(to));
    }

    TestWindow window;
    SplitterBar bar{window.form, "spl", GetParam()};
};

TEST_P(Split, FollowsTheMouseThatHoldsIt) {
    drag(2, 32);
    EXPECT_EQ(window.raised(), Events{"130"});
    user::mouseMove(bar.control(), MouseButton::left, 0, point(2));  // it is under the mouse already
    EXPECT_EQ(window.raised(), Events{});
    user::mouseMove(bar.control(), MouseButton::left, 0, point(-48));
    EXPECT_EQ(bar.position(), 80);
    user::mouseMove(bar.control(), MouseButton::left, 0, point(-300));
    EXPECT_EQ(bar.position(), 0) << "the edge";
}

TEST_P(Split, StaysWhenItIsNotHeldByTheLeftButton) {
    user::mouseMove(bar.control(), MouseButton::none, 0, point(4));
    drag(2, 32, MouseButton::right);
    EXPECT_EQ(window.raised(), Events{});
    const std::function<void()> endings[] = {
        [&] { user::mouseUp(bar.control(), MouseButton::left, 0, point(2)); },
        [&] { user::takeCapture(bar.control()); },
        [&] { user::key(bar.control(), keyCode::escape); },
    };
    for (const auto& end : endings) {
        drag(2, 32);
        const int held = bar.position();
        end();
        EXPECT_EQ(bar.position(), &end == &endings[2] ? held - 30 : held) << "Escape: as it was grabbed";
        window.raised();
        user::mouseMove(bar.control(), MouseButton::left, 0, point(50));
        EXPECT_EQ(window.raised(), Events{});
    }
}

TEST_P(Split, MovesByItsArrowKeys) {
    user::key(bar.control(), vertical() ? keyCode::right : keyCode::down);
    const int further = bar.position();
    EXPECT_GT(further, 100);
    user::key(bar.control(), vertical() ? keyCode::left : keyCode::up);
    EXPECT_EQ(window.raised(), (Events{std::to_string(further), "100"}));
    user::key(bar.control(), vertical() ? keyCode::down : keyCode::right);
    EXPECT_EQ(window.raised(), Events{}) << "not its direction";
    bar.setPosition(70);
    EXPECT_EQ(window.raised(), Events{}) << "the program says nothing";
}

INSTANTIATE_TEST_SUITE_P(Directions, Split,
                         testing::Values(SplitterBar::Direction::vertical,
                                         SplitterBar::Direction::horizontal),
                         [](const auto& direction) {
                             return direction.param == SplitterBar::Direction::vertical ? "vertical"
                                                                                        : "horizontal";
                         });

}  // namespace
