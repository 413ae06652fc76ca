#include "platform/user_control.h"

#include <gtest/gtest.h>

#include "platform/dialogs.h"
#include "tests/contract/test_window.h"
#include "tests/support/messages.h"
#include "tests/support/user.h"

namespace {

using namespace platform;
using contract::Events;
using contract::TestWindow;

constexpr Colour red = 0xFF0000, green = 0x00FF00, blue = 0x0000FF;

struct Drawing : TestWindow {
    UserControl control{form, "kvDrawing", "kvContractDrawing"};
    Colour colour = red;
    int paints = 0;
    Drawing() {
        control.move(Rect::at(10, 10, 60, 40));
        control.onPaint = [this](Canvas& canvas) {
            ++paints;
            canvas.fill({-9, -9, 99, 99}, colour);
            canvas.frame({0, 0, 60, 40}, blue);
        };
        user::pump();
        paints = 0;
    }
};

TEST(UserControlPaint, ShowsWhatItsHandlerDraws) {
    Drawing window;
    const user::Picture picture = user::screen(window.control);
    EXPECT_EQ(picture.size, (Size{60, 40}));
    EXPECT_EQ(picture.at({0, 0}), blue);
    EXPECT_EQ(picture.at({59, 39}), blue);
    EXPECT_EQ(picture.at({1, 1}), red);
    EXPECT_EQ(user::printed(window.control), picture);
}

TEST(UserControlPaint, TouchesOnlyWhatIsInvalid) {
    Drawing window;
    window.colour = green;
    EXPECT_EQ(user::screen(window.control).at({20, 20}), red) << "nobody asked for a repaint";
    EXPECT_EQ(window.paints, 0);
    window.control.invalidate({10, 10, 20, 20});
    window.control.invalidate({40, 20, 41, 21});
    EXPECT_EQ(window.paints, 0) << "not at once";
    const user::Picture picture = user::screen(window.control);
    EXPECT_GE(window.paints, 1);
    for (const Point p : {Point{10, 10}, {19, 19}, {40, 20}}) EXPECT_EQ(picture.at(p), green) << p.x;
    for (const Point p : {Point{9, 10}, {20, 19}, {19, 20}, {41, 20}, {30, 20}, {30, 30}})
        EXPECT_EQ(picture.at(p), red) << p.x << ", " << p.y;
    window.control.invalidate({-20, -20, 1, 1});
    window.control.invalidate({59, 39, 500, 500});
    window.control.invalidate({70, 50, 80, 60});
    EXPECT_EQ(user::screen(window.control).at({30, 30}), red);
    window.control.invalidate();
    EXPECT_EQ(user::screen(window.control), user::printed(window.control));
}

TEST(UserControlPaint, HappensOnceForManyRequests) {
    Drawing window;
    for (int i = 0; i < 10; ++i) window.control.invalidate({i, i, i + 5, i + 5});
    user::pump();
    EXPECT_EQ(window.paints, 1);
    window.control.update();
    EXPECT_EQ(window.paints, 1);
}

TEST(UserControlPaint, CanBeDoneBetweenRepaints) {
    Drawing window;
    window.control.draw([](Canvas& canvas) { canvas.fill({5, 5, 90, 10}, green); });
    EXPECT_EQ(window.paints, 0);
    const user::Picture picture = user::screen(window.control);
    EXPECT_EQ(picture.at({5, 5}), green);
    EXPECT_EQ(picture.at({59, 9}), green);
    EXPECT_EQ(picture.at({4, 5}), red);
    window.control.invalidate();
    EXPECT_EQ(user::screen(window.control).at({5, 5}), red);
}

TEST(UserControlPaint, WaitsUntilTheControlIsSeen) {
    Drawing window;
    window.control.setVisible(false);
    window.colour = green;
    window.control.invalidate();
    user::pump();
    EXPECT_EQ(window.paints, 0);
    window.control.setVisible(true);
    EXPECT_EQ(user::screen(window.control).at({20, 20}), green);
    window.form.hide();
    window.colour = red;
    window.form.show();
    EXPECT_EQ(user::screen(window.control), user::printed(window.control)) << "nothing is left of before";
}

TEST(UserControlPaint, ReachesManySmallPieces) {
    Drawing window;
    window.colour = green;
    for (int i = 1; i < 19; ++i) window.control.invalidate(Rect::at(3 * i, 2 * i, 1, 1));
    const user::Picture picture = user::screen(window.control);
    for (int i = 1; i < 19; ++i) EXPECT_EQ(picture.at({3 * i, 2 * i}), green) << i;
    EXPECT_EQ(picture.at({2, 2}), red);
}

TEST(UserControl, IsPaintedAnewInAnotherSize) {
    Drawing window;
    Size told;
    window.control.onResize = [&] { told = window.control.clientSize(); };
    window.control.onPaint = [&](Canvas& canvas) {
        const Size size = window.control.clientSize();
        canvas.rectangle({0, 0, size.width, size.height}, blue, green);
    };
    window.control.move(Rect::at(10, 10, 90, 30));
    EXPECT_EQ(told, (Size{90, 30}));
    EXPECT_EQ(user::screen(window.control), user::printed(window.control)) << "with no old edge";
}

struct Mouse : Drawing {
    Mouse() {
        const auto logged = [this](const char* what) {
            return [this, what](MouseButton button, int shift, Point p) {
                events.push_back(std::string(what) + ' ' + std::to_string(static_cast<int>(button)) + '/' +
                                 std::to_string(shift) + ' ' + std::to_string(p.x) + ',' +
                                 std::to_string(p.y));
            };
        };
        control.onMouseDown = logged("down");
        control.onMouseMove = logged("move");
        control.onMouseUp = logged("up");
        control.onClick = log("click");
        control.onCaptureLost = log("lost");
    }
};

TEST(UserControlMouse, IsToldWithButtonsKeysAndPlace) {
    Mouse window;
    user::mouseMove(window.control, MouseButton::none, 0, {1, 2});
    user::mouseDown(window.control, MouseButton::right, shiftKey::control, {3, 4});
    user::mouseMove(window.control, MouseButton::right, shiftKey::shift, {5, 6});
    user::mouseUp(window.control, MouseButton::right, 0, {7, 8});
    EXPECT_EQ(window.raised(), (Events{"move 0/0 1,2", "down 2/2 3,4", "move 2/1 5,6", "up 2/0 7,8"}));
}

TEST(UserControlMouse, ClicksWhenTheLeftButtonGoesDownAndUpInside) {
    Mouse window;
    user::mouseDown(window.control, MouseButton::left, 0, {3, 4});
    user::mouseUp(window.control, MouseButton::left, 0, {9, 9});
    EXPECT_EQ(window.raised(), (Events{"down 1/0 3,4", "up 1/0 9,9", "click"}));
}

TEST(UserControlMouse, IsFollowedOutsideWhileItIsCaptured) {
    Mouse window;
    user::mouseDown(window.control, MouseButton::left, 0, {3, 4});
    window.control.setCapture(true);
    user::mouseMove(window.control, MouseButton::left, 0, {-20, 500});
    user::mouseUp(window.control, MouseButton::left, 0, {-20, 500});
    window.control.setCapture(false);
    EXPECT_EQ(window.raised(), (Events{"down 1/0 3,4", "move 1/0 -20,500", "up 1/0 -20,500"}))
        << "no click outside, and nothing is lost that was given back";
}

TEST(UserControlMouse, IsLostToWhateverComesUp) {
    Mouse window;
    UserControl other(window.form, "kvOther", "kvContractDrawing");
    const std::function<void()> causes[] = {
        [&] { user::takeCapture(window.control); },
        [&] { other.setCapture(true); },
        [&] {
            window.control.setVisible(false);
            window.control.setVisible(true);
        },
    };
    for (const auto& cause : causes) {
        window.control.setCapture(true);
        EXPECT_EQ(window.raised(), Events{});
        cause();
        EXPECT_EQ(window.raised(), Events{"lost"});
    }
    user::takeCapture(window.control);
    EXPECT_EQ(window.raised(), Events{}) << "it had none";
}

TEST(UserControl, IsToldWheelAndKeys) {
    Mouse window;
    window.control.onWheel = [&](int notches, int shift, Point p) {
        window.events.push_back("wheel " + std::to_string(notches) + '/' + std::to_string(shift) + ' ' +
                                std::to_string(p.x) + ',' + std::to_string(p.y));
    };
    window.control.onKeyDown = [&](int key, int shift) {
        window.events.push_back("key " + std::to_string(key) + '/' + std::to_string(shift));
        return true;
    };
    window.control.setTabStop(true);
    user::wheel(window.control, -120, shiftKey::control, {7, 8});
    user::key(window.control, keyCode::left);
    user::key(window.control, keyCode::f2, shiftKey::shift);
    EXPECT_EQ(window.raised(), (Events{"wheel -120/2 7,8", "key 37/0", "key 113/1"}));
}

TEST(UserControl, HasHandlesAndAPointer) {
    Drawing window;
    EXPECT_NE(window.control.hWnd(), 0);
    EXPECT_NE(window.control.hDC(), 0);
    EXPECT_EQ(window.control.pointer(), Pointer::arrow);
    window.control.setPointer(Pointer::sizeNWSE);
    EXPECT_EQ(window.control.pointer(), Pointer::sizeNWSE);
}

}  // namespace
