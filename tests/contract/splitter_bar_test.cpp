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
    EXPECT_EQ(bar.position(), 130);
    user::mouseMove(bar.control(), MouseButton::left, 0, point(-48));
    EXPECT_EQ(bar.position(), 80);
    user::mouseUp(bar.control(), MouseButton::left, 0, point(2));
    window.raised();
    user::mouseMove(bar.control(), MouseButton::none, 0, point(5));
    EXPECT_EQ(window.raised(), Events{}) << "it was let go";
}

TEST_P(Split, StaysWhenItIsNotHeldByTheLeftButton) {
    user::mouseMove(bar.control(), MouseButton::none, 0, point(4));
    drag(2, 32, MouseButton::right);
    EXPECT_EQ(window.raised(), Events{});
    EXPECT_EQ(bar.position(), 100);
}

TEST_P(Split, StaysWhereItIsWhenTheMouseIsTakenAway) {
    drag(2, 32);
    user::takeCapture(bar.control());
    window.raised();
    user::mouseMove(bar.control(), MouseButton::left, 0, point(5));
    EXPECT_EQ(window.raised(), Events{});
}

TEST_P(Split, MovesByItsArrowKeys) {
    user::key(bar.control(), vertical() ? keyCode::right : keyCode::down);
    const int further = bar.position();
    EXPECT_GT(further, 100);
    user::key(bar.control(), vertical() ? keyCode::left : keyCode::up);
    EXPECT_EQ(bar.position(), 100);
    EXPECT_EQ(window.raised(), (Events{std::to_string(further), "100"}));
    user::key(bar.control(), vertical() ? keyCode::down : keyCode::right);
    EXPECT_EQ(window.raised(), Events{}) << "not its direction";
}

TEST_P(Split, GoesBackToWhereItWasGrabbed) {
    drag(2, 32);
    user::key(bar.control(), keyCode::escape);
    EXPECT_EQ(bar.position(), 100);
    user::mouseMove(bar.control(), MouseButton::left, 0, point(50));
    EXPECT_EQ(window.raised(), (Events{"130", "100"})) << "it was let go";
}

TEST_P(Split, StopsAtTheEdge) {
    drag(2, -300);
    EXPECT_EQ(bar.position(), 0);
}

TEST_P(Split, IsSetSilently) {
    bar.setPosition(70);
    EXPECT_EQ(bar.position(), 70);
    EXPECT_EQ(window.raised(), Events{});
}

INSTANTIATE_TEST_SUITE_P(Directions, Split,
                         testing::Values(SplitterBar::Direction::vertical,
                                         SplitterBar::Direction::horizontal),
                         [](const auto& direction) {
                             return direction.param == SplitterBar::Direction::vertical ? "vertical"
                                                                                        : "horizontal";
                         });

}  // namespace
