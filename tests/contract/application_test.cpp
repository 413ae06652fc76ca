#include "platform/application.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>

#include "platform/basic_controls.h"
#include "platform/dialogs.h"
#include "platform/errors.h"
#include "platform/timer.h"
#include "tests/contract/test_window.h"
#include "tests/support/messages.h"
#include "tests/support/user.h"

namespace {

using namespace platform;
using contract::Events;
using contract::TestWindow;

TEST(Post, RunsFromTheMessageLoopInOrder) {
    TestWindow window;
    application::post(window.form, window.log("first"));
    application::post(window.form, [&] {
        application::doEvents();  // what it does not leave to the loop runs once all the same
        window.log("second")();
        application::post(window.form, window.log("posted meanwhile"));
    });
    application::post(window.form, window.log("third"));
    EXPECT_EQ(window.raised(), Events{});
    user::pump();
    EXPECT_EQ(window.raised(), (Events{"first", "third", "second", "posted meanwhile"}));
}

TEST(Post, IsDroppedWithItsForm) {
    TestWindow window;
    auto other = std::make_unique<Form>("frmOther", "Anderes", Form::Options{});
    application::post(*other, window.log("lost"));
    application::post(window.form, window.log("kept"));
    other.reset();
    user::pump();
    EXPECT_EQ(window.raised(), Events{"kept"});
}

TEST(Guard, ShowsWhatLeavesAHandlerAndTheWindowLivesOn) {
    TestWindow window;
    Button button(window.form, "btn", "&Los");
    button.move(Rect::at(0, 0, 80, 25));
    support::Messages messages;
    messages.expectPart("Die Datei ist weg.").expectPart("unerwartet").expectPart("Bereich");
    button.onClick = [] { throw RuntimeError(error::fileNotFound, "Die Datei ist weg."); };
    user::press(button);
    application::post(window.form, [] { throw std::runtime_error("unerwartet"); });
    user::pump();
    application::guard([] { throw RuntimeError(error::subscriptOutOfRange, "Bereich"); });
    for (const Message& message : messages.shown()) EXPECT_EQ(message.title, "Vertrag");
    EXPECT_TRUE(window.form.loaded());
    EXPECT_TRUE(window.form.visible());
}

TEST(DoEventsFor, LeavesTheRestOfTheWindowAloneAndGivesTheFocusBack) {
    TestWindow window;
    Button btnFirst(window.form, "btn"), btnOwner(window.form, "btnOwner");
    Panel fraPage(window.form, "fraPage");
    Button btnIn(fraPage, "btnIn");
    int y = 0;
    for (Control* control : std::initializer_list<Control*>{&btnFirst, &btnOwner, &fraPage})
        control->move(Rect::at(0, y += 30, 80, 25));
    btnIn.move(Rect::at(0, 0, 80, 25));
    btnIn.onClick = window.log("stop");
    btnOwner.focus();
    application::post(window.form, [&] {
        EXPECT_FALSE(user::reachable(btnOwner));
        user::press(btnIn);
    });
    while (window.events.empty()) application::doEventsFor(fraPage);
    EXPECT_TRUE(btnIn.focused());
    fraPage.setVisible(false);
    EXPECT_TRUE(btnOwner.focused());
    EXPECT_TRUE(user::reachable(btnOwner));
}

struct Ticking : TestWindow {
    Timer timer{form};
    int ticks = 0;
    Ticking() {
        timer.onTick = [this] { ++ticks; };
    }
    void run(int interval) {
        timer.setInterval(interval);
        timer.setEnabled(true);
    }
    bool ticksWithin(int milliseconds) {
        ticks = 0;
        return user::pumpUntil([this] { return ticks > 0; }, milliseconds);
    }
};

TEST(Timer, TicksWhileItIsOnAndHasAnInterval) {
    Ticking window;
    Timer& timer = window.timer;
    EXPECT_EQ(timer.interval(), 0);
    EXPECT_FALSE(timer.enabled());
    timer.setInterval(10);
    user::tick(timer);
    EXPECT_FALSE(window.ticksWithin(60));
    window.run(0);
    EXPECT_FALSE(window.ticksWithin(60));
    window.run(20);
    EXPECT_TRUE(user::pumpUntil([&] { return window.ticks >= 3; }, 5000));
    timer.onTick = [&] {
        ++window.ticks;
        timer.setEnabled(false);
    };
    EXPECT_TRUE(window.ticksWithin(5000));
    EXPECT_FALSE(window.ticksWithin(60)) << "it turned itself off";
}

TEST(Timer, StartsANewIntervalAtOnceWhateverAnotherWaitsFor) {
    Ticking slow, quick;
    slow.run(60000);
    quick.run(60000);
    quick.timer.setInterval(20);
    EXPECT_TRUE(quick.ticksWithin(5000));
    EXPECT_EQ(slow.ticks, 0);
    quick.timer.setInterval(60000);
    EXPECT_FALSE(quick.ticksWithin(80));
}

}  // namespace
