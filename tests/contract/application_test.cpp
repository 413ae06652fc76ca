#include "platform/application.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <utility>

#include "platform/basic_controls.h"
#include "platform/dialogs.h"
#include "platform/errors.h"
#include "platform/timer.h"
#include "tests/contract/test_window.h"
#include "tests/support/messages.h"
#include "tests/support/temp_folder.h"
#include "tests/support/user.h"

namespace {

using namespace platform;
using contract::Events;
using contract::TestWindow;

TEST(Post, RunsFromTheMessageLoopInOrder) {
    TestWindow window;
    application::post(window.form, window.log("first"));
    application::post(window.form, window.log("second"));
    EXPECT_EQ(window.raised(), Events{});
    application::doEvents();
    EXPECT_EQ(window.raised(), (Events{"first", "second"}));
    application::doEvents();
    EXPECT_EQ(window.raised(), Events{});
}

TEST(Post, RunsWhatIsPostedMeanwhileAsWell) {
    TestWindow window;
    application::post(window.form, [&] {
        window.events.push_back("outer");
        application::post(window.form, window.log("inner"));
    });
    user::pump();
    EXPECT_EQ(window.raised(), (Events{"outer", "inner"}));
}

TEST(Post, RunsOnceWhenAnActionHandlesMessagesItself) {
    TestWindow window;
    application::post(window.form, [&] {
        application::doEvents();
        window.events.push_back("first");
    });
    application::post(window.form, window.log("second"));
    user::pump();
    EXPECT_EQ(window.raised(), (Events{"second", "first"}));
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

TEST(Run, EndsWithItsForm) {
    TestWindow window;
    application::post(window.form, [&] {
        window.events.push_back("work");
        application::post(window.form, [&] { window.form.unload(); });
    });
    window.form.onUnload = window.log("unload");
    EXPECT_EQ(application::run(window.form), 0);
    EXPECT_EQ(window.raised(), (Events{"work", "unload"}));
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

TEST(Start, OfAProgramThatIsNotThereFails) {
    const support::TempFolder folder;
    try {
        application::start(folder.file("fehlt.exe"));
        FAIL();
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.number(), error::fileNotFound);
    }
}

TEST(FormatNumber, HasTheDigitsThatAreAskedFor) {
    EXPECT_EQ(formatNumber(3, 0), "3");
    const std::string seconds = formatNumber(2.5, 1);
    EXPECT_EQ(seconds.front(), '2');
    EXPECT_EQ(seconds.back(), '5');
    EXPECT_NE(seconds.find_first_of(",."), std::string::npos);
    EXPECT_EQ(formatNumber(0.125, 3).size(), 5u);
}

struct Ticking : TestWindow {
    Timer timer{form};
    int ticks = 0;
    Ticking() {
        timer.onTick = [this] { ++ticks; };
    }
};

TEST(Timer, IsOffAtFirst) {
    Ticking window;
    EXPECT_EQ(window.timer.interval(), 0);
    EXPECT_FALSE(window.timer.enabled());
    user::tick(window.timer);
    window.timer.setInterval(10);
    user::tick(window.timer);
    EXPECT_FALSE(user::pumpUntil([&] { return window.ticks > 0; }, 60));
    window.timer.setInterval(0);
    window.timer.setEnabled(true);
    EXPECT_TRUE(window.timer.enabled());
    EXPECT_FALSE(user::pumpUntil([&] { return window.ticks > 0; }, 60)) << "an interval of 0 never ticks";
}

TEST(Timer, TicksUntilItIsTurnedOff) {
    Ticking window;
    window.timer.setInterval(20);
    window.timer.setEnabled(true);
    EXPECT_TRUE(user::pumpUntil([&] { return window.ticks >= 3; }, 5000));
    window.timer.setEnabled(false);
    window.ticks = 0;
    EXPECT_FALSE(user::pumpUntil([&] { return window.ticks > 0; }, 60));
    window.timer.setEnabled(true);
    user::tick(window.timer);
    EXPECT_GE(window.ticks, 1);
}

TEST(Timer, MayTurnItselfOff) {
    Ticking window;
    window.timer.onTick = [&] {
        ++window.ticks;
        window.timer.setEnabled(false);
    };
    window.timer.setInterval(10);
    window.timer.setEnabled(true);
    user::pumpUntil([] { return false; }, 80);
    EXPECT_EQ(window.ticks, 1);
}

TEST(Timer, DoesNotWaitForASlowerOne) {
    Ticking slow, quick;
    for (const auto& [window, interval] : {std::pair{&slow, 2000}, {&quick, 20}}) {
        window->timer.setInterval(interval);
        window->timer.setEnabled(true);
    }
    EXPECT_TRUE(user::pumpUntil([&] { return quick.ticks + slow.ticks > 0; }, 5000));
    EXPECT_EQ(slow.ticks, 0);
}

TEST(Timer, StartsItsIntervalAnew) {
    Ticking window;
    window.timer.setInterval(60000);
    window.timer.setEnabled(true);
    window.timer.setInterval(20);
    EXPECT_EQ(window.timer.interval(), 20);
    EXPECT_TRUE(user::pumpUntil([&] { return window.ticks > 0; }, 5000));
    window.timer.setInterval(60000);
    window.ticks = 0;
    EXPECT_FALSE(user::pumpUntil([&] { return window.ticks > 0; }, 80));
}

}  // namespace
