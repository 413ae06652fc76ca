#include "platform/form.h"

#include <gtest/gtest.h>

#include <memory>

#include "platform/errors.h"
#include "platform/metrics.h"
#include "tests/contract/test_window.h"
#include "tests/support/messages.h"
#include "tests/support/user.h"

namespace {

using namespace platform;
using contract::Events;
using contract::TestWindow;

TEST(Form, IsMadeHiddenInTheSizeThatItAsksForAndActivatedWhenShown) {
    Form form("frmContract", "Vertrag", {.clientSize = {500, 300}});
    TextBox first(form, "txtFirst"), second(form, "txtSecond");
    first.move(Rect::at(0, 0, 100, 23));
    second.move(Rect::at(0, 30, 100, 23));
    second.focus();
    int activated = 0;
    form.onActivate = [&] { ++activated; };
    EXPECT_FALSE(form.visible());
    EXPECT_EQ(form.clientSize(), (Size{500, 300}));
    EXPECT_FALSE(second.focused());
    form.show();
    EXPECT_EQ(activated, 1);
    EXPECT_TRUE(second.focused()) << "which asked for the focus before";
    form.setCaption("Größe & Maß");
    EXPECT_EQ(form.caption(), "Größe & Maß");
}

struct Unloading : TestWindow {
    bool agrees = true;
    Unloading() {
        form.onQueryUnload = [this] {
            events.push_back("query");
            return agrees;
        };
        form.onUnload = [this] {
            events.push_back("unload");
            form.unload();  // changes nothing
        };
    }
};

TEST(Form, AsksBeforeItIsUnloadedOnce) {
    Unloading window;
    window.agrees = false;
    EXPECT_FALSE(window.form.unload());
    EXPECT_FALSE(user::close(window.form));
    EXPECT_EQ(window.raised(), (Events{"query", "query"}));
    EXPECT_TRUE(window.form.loaded());
    EXPECT_TRUE(window.form.visible());

    window.agrees = true;
    EXPECT_TRUE(user::close(window.form));
    EXPECT_EQ(window.raised(), (Events{"query", "unload"}));
    EXPECT_FALSE(window.form.loaded());
    EXPECT_FALSE(window.form.visible());
    EXPECT_TRUE(window.form.unload()) << "gone already";
    EXPECT_EQ(window.raised(), Events{});
}

TEST(Form, StaysWhenAskingFails) {
    Unloading window;
    support::Messages messages;
    messages.expectPart("nicht gespeichert");
    window.form.onQueryUnload = []() -> bool { throw RuntimeError(error::fileError, "nicht gespeichert"); };
    EXPECT_FALSE(user::close(window.form));
    EXPECT_TRUE(window.form.loaded());
}

struct Dialog : TestWindow {
    Button btnOwner{form, "btnOwner"};
    Form dialog{"frmDialog", "Frage", {.clientSize = {300, 200}, .dialog = true, .owner = &form}};
    Button btnDialog{dialog, "btnDialog", "&Gut"};
    Dialog() {
        btnOwner.move(Rect::at(0, 0, 80, 25));
        btnDialog.move(Rect::at(0, 0, 80, 25));
        btnDialog.onClick = [this] { dialog.hide(); };
    }
};

TEST(ModalForm, KeepsInputFromItsOwnerUntilItIsLeft) {
    const std::function<void(Dialog&)> ways[] = {
        [](Dialog& d) { user::press(d.btnDialog); },
        [](Dialog& d) { d.dialog.unload(); },
        [](Dialog& d) { user::close(d.dialog); },
    };
    for (const auto& leave : ways) {
        Dialog d;
        int shown = 0;
        {
            const user::ModalUser person([&](Form& form) {
                ++shown;
                EXPECT_EQ(&form, &d.dialog);
                EXPECT_TRUE(user::reachable(d.btnDialog));
                EXPECT_FALSE(user::reachable(d.btnOwner));
                EXPECT_TRUE(d.form.blocked());
                leave(d);
            });
            d.dialog.showModal();
        }
        EXPECT_EQ(shown, 1);
        EXPECT_FALSE(d.dialog.visible());
        EXPECT_TRUE(user::reachable(d.btnOwner));
        EXPECT_FALSE(d.form.blocked());
    }
}

TEST(ModalForm, GivesTheFocusBackAndItsOwnerIsUsableAsSoonAsItIsHidden) {
    Dialog d;
    d.btnOwner.focus();
    bool usable = false;
    d.btnDialog.onClick = [&] {
        d.dialog.hide();
        usable = user::reachable(d.btnOwner);
    };
    const user::ModalUser person([&](Form&) {
        EXPECT_FALSE(d.btnOwner.focused());
        EXPECT_FALSE(user::close(d.form)) << "the close box of the owner does nothing";
        user::press(d.btnDialog);
    });
    d.dialog.showModal();
    EXPECT_TRUE(usable);
    EXPECT_TRUE(d.form.loaded());
    user::pump();
    EXPECT_TRUE(d.btnOwner.focused());
}

TEST(Form, TellsANewSizeWhichIsNotBelowItsMinimum) {
    TestWindow window;
    user::pump();
    Size told;
    window.form.onResize = [&] { told = window.form.clientSize(); };
    user::resize(window.form, {700, 420});
    EXPECT_EQ(told, (Size{700, 420}));
    window.form.setMinimumSize({400, 300});
    user::resize(window.form, {150, 100});
    EXPECT_EQ(told, window.form.clientSize());
    EXPECT_EQ(window.form.bounds().width(), 400);
    EXPECT_EQ(window.form.bounds().height(), 300);
}

TEST(Form, ComesBackAsLargeAsItWasToTheEyeAndWhollyOnItsMonitor) {
    Form form("frmContract", "Vertrag", {});
    const int dpi = metricsOf(form).dpi;
    form.setPlacement("10 20 300 200");  // of former versions
    EXPECT_EQ(form.bounds(), Rect::at(10, 20, 300, 200));
    form.setPlacement("10 20 600 400 " + std::to_string(2 * dpi) + " 0");
    EXPECT_EQ(form.bounds(), Rect::at(10, 20, 300, 200)) << "the monitor had twice the resolution";
    form.setPlacement("-100 -50 300 200 " + std::to_string(dpi) + " 0");
    EXPECT_EQ(form.bounds(), Rect::at(0, 0, 300, 200));
    form.setPlacement("30000 -30000 400 250 " + std::to_string(dpi) + " 0");
    const Rect nearest = form.bounds();
    EXPECT_EQ(nearest, Rect::at(nearest.left, 0, 400, 250)) << "its monitor is gone";
    EXPECT_LT(nearest.left, 30000);
    form.setPlacement("-2147483648 0 2147483647 250 96 0");
    EXPECT_EQ(form.bounds().left, 0);
    form.setPlacement("10 20 300 200");
    for (const char* unusable :
         {"", "1 2 drei", "10 20 300 200 x", "10 20 0 200", "10 20 300 200 96", "10 20 300 200 -1 0"}) {
        form.setPlacement(unusable);
        EXPECT_EQ(form.bounds(), Rect::at(10, 20, 300, 200)) << unusable;
    }
    Form second("frmContract", "Zweites", {});
    second.setPlacement(form.placement());
    EXPECT_EQ(second.bounds(), form.bounds());
}

TEST(Form, TellsFilesThatAreDroppedUnlessADialogBlocksIt) {
    Dialog d;
    std::vector<std::string> told;
    int drops = 0;
    d.form.onFilesDropped = [&](const auto& dropped) { ++drops, told = dropped; };
    const std::vector<std::string> paths{"C:\\Maß 1.bmp", "\\\\server\\bilder\\" + std::string(300, 'x')};
    user::drop(d.form, paths);
    EXPECT_EQ(told, paths);
    const user::ModalUser person([&](Form&) {
        user::drop(d.form, paths);
        user::press(d.btnDialog);
    });
    d.dialog.showModal();
    EXPECT_EQ(drops, 1);
}

TEST(Subclassing, SeesWatchedMessagesAndMayKeepThem) {
    Unloading window;
    window.agrees = false;
    constexpr std::uint32_t close = 16, other = 0x8000 + 5;
    auto subclassing = std::make_unique<Subclassing>(window.form);
    std::int16_t answer = -1;
    subclassing->watch(close);
    subclassing->onMessage = [&](std::intptr_t handle, std::uint32_t message, std::uintptr_t, std::intptr_t&,
                                 std::int16_t& handled) {
        EXPECT_NE(handle, 0);
        EXPECT_EQ(handled, 0);
        window.events.push_back(std::to_string(message));
        handled = answer;
    };
    user::send(window.form, other, 0, 0);
    EXPECT_EQ(window.raised(), Events{}) << "nobody asked for it";
    user::send(window.form, close, 0, 0);
    EXPECT_EQ(window.raised(), Events{"16"}) << "it has been dealt with";
    answer = 0;
    user::send(window.form, close, 0, 0);
    EXPECT_EQ(window.raised(), (Events{"16", "query"}));
    subclassing.reset();
    user::send(window.form, close, 0, 0);
    EXPECT_EQ(window.raised(), Events{"query"});
}

}  // namespace
