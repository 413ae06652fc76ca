#include "platform/user_control.h"

#include <gtest/gtest.h>

#include "tests/contract/test_window.h"
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
            canvas.frame(Rect::at(0, 0, control.clientSize().width, control.clientSize().height), blue);
        };
        user::pump();
        paints = 0;
    }
};

TEST(UserControlPaint, TouchesOnlyWhatIsInvalid) {
    Drawing window;
    user::Picture picture = user::screen(window.control);
    EXPECT_EQ(picture.size, (Size{60, 40}));
    EXPECT_EQ(picture.at({59, 39}), blue);
    EXPECT_EQ(picture.at({1, 1}), red);
    EXPECT_EQ(user::printed(window.control), picture);
    window.paints = 0;
    window.colour = green;
    EXPECT_EQ(user::screen(window.control).at({20, 20}), red) << "nobody asked for a repaint";
    window.control.invalidate({10, 10, 20, 20});
    window.control.invalidate({40, 20, 41, 21});
    EXPECT_EQ(window.paints, 0) << "not at once";
    picture = user::screen(window.control);
    EXPECT_GE(window.paints, 1);
    for (const Point p : {Point{10, 10}, {19, 19}, {40, 20}}) EXPECT_EQ(picture.at(p), green) << p.x;
    for (const Point p : {Point{9, 10}, {20, 19}, {19, 20}, {41, 20}, {30, 20}, {30, 30}})
        EXPECT_EQ(picture.at(p), red) << p.x << ", " << p.y;
    window.control.invalidate();
    EXPECT_EQ(user::screen(window.control), user::printed(window.control));
}

TEST(UserControlPaint, WaitsUntilTheControlIsSeenAndCoversANewSize) {
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

    Size told;
    window.control.onResize = [&] { told = window.control.clientSize(); };
    window.control.move(Rect::at(10, 10, 90, 30));
    EXPECT_EQ(told, (Size{90, 30}));
    EXPECT_EQ(user::screen(window.control), user::printed(window.control)) << "with no old edge";
}

struct Mouse : Drawing {
    Mouse() {
        control.onMouseDown = log("down");
        control.onMouseMove = log("move");
        control.onMouseUp = log("up");
        control.onClick = log("click");
        control.onCaptureLost = log("lost");
        control.onWheel = log("wheel");
    }
};

TEST(UserControlMouse, IsToldWithButtonsKeysAndPlace) {
    Mouse window;
    user::mouseMove(window.control, MouseButton::none, 0, {1, 2});
    user::mouseDown(window.control, MouseButton::right, shiftKey::control, {3, 4});
    user::mouseMove(window.control, MouseButton::right, shiftKey::shift, {5, 6});
    user::mouseUp(window.control, MouseButton::right, 0, {7, 8});
    user::wheel(window.control, -120, shiftKey::control, {7, 8});
    EXPECT_EQ(window.raised(),
              (Events{"move 0 0 1,2", "down 2 2 3,4", "move 2 1 5,6", "up 2 0 7,8", "wheel -120 2 7,8"}));
    user::mouseDown(window.control, MouseButton::left, 0, {3, 4});
    user::mouseUp(window.control, MouseButton::left, 0, {9, 9});
    EXPECT_EQ(window.raised(), (Events{"down 1 0 3,4", "up 1 0 9,9", "click"}));
    user::mouseDown(window.control, MouseButton::left, 0, {3, 4});
    window.control.setCapture(true);
    user::mouseMove(window.control, MouseButton::left, 0, {-20, 500});
    user::mouseUp(window.control, MouseButton::left, 0, {-20, 500});
    window.control.setCapture(false);
    EXPECT_EQ(window.raised(), (Events{"down 1 0 3,4", "move 1 0 -20,500", "up 1 0 -20,500"}))
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

TEST(UserControl, IsToldKeysAndHasHandlesAndAPointer) {
    Mouse window;
    window.control.onKeyDown = [&](int key, int shift) {
        window.log("key")(key, shift);
        return true;
    };
    window.control.setTabStop(true);
    user::mouseDown(window.control, MouseButton::left, 0, {3, 4});
    EXPECT_TRUE(window.control.focused()) << "by the press";
    window.raised();
    user::key(window.control, keyCode::left);
    user::key(window.control, keyCode::f2, shiftKey::shift);
    EXPECT_EQ(window.raised(), (Events{"key 37 0", "key 113 1"}));
    EXPECT_NE(window.control.hWnd(), 0);
    EXPECT_NE(window.control.hDC(), 0);
    window.control.setPointer(Pointer::sizeNWSE);
    EXPECT_EQ(window.control.pointer(), Pointer::sizeNWSE);
}

}  // namespace
