#include "platform/application.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>

#include "platform/dialogs.h"
#include "platform/errors.h"
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

TEST(Timer, TicksWhileItIsOnAndHasAnInterval) {
    TestWindow window;
    Timer timer(window.form);
    int ticks = 0;
    timer.onTick = [&] { ++ticks; };
    const auto ticksWithin = [&](int milliseconds) {
        ticks = 0;
        return user::pumpUntil([&] { return ticks > 0; }, milliseconds);
    };
    timer.setInterval(10);
    user::tick(timer);
    EXPECT_FALSE(ticksWithin(60)) << "it is off";
    timer.setInterval(0);
    timer.setEnabled(true);
    EXPECT_FALSE(ticksWithin(60));
    timer.setInterval(20);
    EXPECT_TRUE(user::pumpUntil([&] { return ticks >= 3; }, 5000));
    timer.onTick = [&] {
        ++ticks;
        timer.setEnabled(false);
    };
    EXPECT_TRUE(ticksWithin(5000));
    EXPECT_FALSE(ticksWithin(60)) << "it turned itself off";
}

}  // namespace
