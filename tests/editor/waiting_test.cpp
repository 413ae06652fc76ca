#include <atomic>
#include <chrono>
#include <memory>
#include <thread>

#include "platform/file_calls.h"
#include "platform/timer.h"
#include "tests/editor/editor_fixture.h"

namespace {

// A share on the network that takes its time.
class Waiting : public EditorTest {
  protected:
    Waiting() {
        makeSet("Probe", {});
        makeSet("Fern", {.pictures = 5});
        environment.fileNames = [slow = slow](std::string_view directory,
                                              const platform::files::Continue& goOn) {
            for (std::size_t asked = 0; *slow; ++asked) {
                if (!goOn(asked)) return std::vector<std::string>{};
                std::this_thread::sleep_for(std::chrono::milliseconds(5));
            }
            return platform::files::foldedFileNames(directory, goOn);
        };
        start();
        openByChooser("Probe");
        pressClass(1);
    }
    ~Waiting() override { *slow = false; }

    /// Makes the share slow, and acts once when the window has begun to wait for it.
    void meanwhile(std::function<void()> act) {
        *slow = true;
        timer = std::make_unique<platform::Timer>(window().form);
        timer->setInterval(10);
        timer->onTick = [this, act = std::move(act)] {
            if (!window().fraWait.visible()) return;
            timer->setEnabled(false);
            act();
        };
        timer->setEnabled(true);
    }

    /// Shared with the thread that lists, which may outlive the test.
    std::shared_ptr<std::atomic<bool>> slow = std::make_shared<std::atomic<bool>>(false);
    std::unique_ptr<platform::Timer> timer;
};

TEST_F(Waiting, ASetThatTakesLongToCheckCanBeGivenUp) {
    auto& w = window();
    messages.expectPart("Änderungen in", platform::message::yes).expectPart("überschreiben?");
    std::string told, seen;
    meanwhile([&] {
        told = w.lblWait.caption();
        seen = w.kvPictureBox1.FileName();
        EXPECT_FALSE(w.form.unload()) << "the close box gives up as well, and does not close";
        *slow = false;  // "Probe" is read again
        user::press(w.btnWait);
    });
    openByChooser("Fern");
    EXPECT_EQ(told, "Die Stichprobe wird gelesen und ihre Bilder gesucht ...");
    EXPECT_EQ(seen, folder.file("Picture\\Fern\\bild1.bmp"));
    EXPECT_EQ(w.kvPictureBox1.FileName(), folder.file("Picture\\Probe\\bild1.bmp"));
    EXPECT_EQ(w.cboSets.text(), "Probe");
    EXPECT_EQ(w.set().sampleCount(), 3);
    EXPECT_EQ(w.ItemClasses(1, 0), 1);
    EXPECT_FALSE(w.fraWait.visible());
}

TEST_F(Waiting, ASetThatIsGivenUpLeavesNoPictureWhereNoneWas) {
    restart();
    auto& w = window();
    meanwhile([&] { user::press(w.btnWait); });
    openByChooser("Fern");
    EXPECT_EQ(w.set().sampleCount(), 0);
    EXPECT_EQ(w.kvPictureBox1.FileName(), "");
    EXPECT_EQ(w.txtSize.text(), "");
    EXPECT_EQ(w.txtInfo.text(), "Bereich: (gesamtes Bild)   Datei: ");
}

TEST_F(Waiting, LeavingWithoutSavingGivesUpAndForgetsNothing) {
    auto& w = window();
    messages.expectPart("Änderungen in", platform::message::no);
    meanwhile([&] {
        *slow = false;        // "Probe" is read again
        w.btnAbbr.onClick();  // as a screen reader presses it
    });
    openByChooser("Fern");
    EXPECT_TRUE(w.form.loaded());
    w.GoToItem(1);
    pressClass(2);
    messages.expectPart("Änderungen speichern?", platform::message::cancel);
    EXPECT_FALSE(w.form.unload()) << "there is something to lose";
}

TEST_F(Waiting, ClosingTheWindowWhileTheFirstPictureComesGivesUpAsWell) {
    auto& w = window();
    messages.expectPart("Änderungen in", platform::message::no);
    *slow = true;
    timer = std::make_unique<platform::Timer>(w.form);
    timer->setInterval(1);
    timer->onTick = [&] {
        if (w.set().sampleCount() != 5 || w.fraWait.visible()) return;
        timer->setEnabled(false);
        EXPECT_FALSE(w.form.unload());
        *slow = false;  // "Probe" is read again
    };
    timer->setEnabled(true);
    openByChooser("Fern");
    EXPECT_TRUE(w.form.loaded());
    EXPECT_EQ(w.cboSets.text(), "Probe");
    EXPECT_EQ(w.set().sampleCount(), 3);
}

TEST_F(Waiting, HowFarItIsIsSeenUntilItIsThere) {
    auto& w = window();
    messages.expectPart("Änderungen in", platform::message::no);
    int maximum = 0;
    meanwhile([&] {
        maximum = w.kvProgressBar1.maximum();
        *slow = false;
    });
    openByChooser("Fern");
    EXPECT_EQ(maximum, 5);
    EXPECT_EQ(w.set().sampleCount(), 5);
    EXPECT_EQ(w.cboSets.text(), "Fern");
    EXPECT_FALSE(w.fraWait.visible());
}

std::atomic<bool> diskHangs{false};

platform::files::Fault hang(platform::files::Call call) {
    while (call == platform::files::Call::flush && diskHangs)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    return platform::files::Fault::none;
}

TEST_F(Waiting, ASaveThatIsGivenUpLeavesTheOldFile) {
    auto& w = window();
    const std::string sets = folder.file("TestSets");
    const std::string before = platform::files::read(sets + "\\Probe.kvs");
    diskHangs = true;
    platform::files::faultWatcher = hang;
    messages.expectPart("überschreiben?").expectPart("überschreiben?");
    meanwhile([&] {
        EXPECT_EQ(w.lblWait.caption(), "Die Stichprobe wird gespeichert ...");
        EXPECT_FALSE(w.form.unload());
    });
    user::press(w.btnSave);
    EXPECT_FALSE(w.unchanged());
    EXPECT_EQ(w.lblHint.caption(), "Die Stichprobe wurde nicht gespeichert.");
    diskHangs = false;
    while (platform::files::list(sets).size() > 2) std::this_thread::sleep_for(std::chrono::milliseconds(1));
    platform::files::faultWatcher = nullptr;
    EXPECT_EQ(platform::files::read(sets + "\\Probe.kvs"), before);
    user::press(w.btnSave);
    EXPECT_TRUE(w.unchanged());
    EXPECT_NE(platform::files::read(sets + "\\Probe.kvs"), before);
}

TEST_F(Waiting, LookingForMissingPicturesInAnotherFolderCanBeGivenUp) {
    messages.expectPart("Änderungen in", platform::message::no);
    platform::files::remove(folder.file("Picture\\Fern\\bild2.bmp"));
    support::DialogScript dialogs;
    dialogs.answer(folder.file("Picture\\Probe\\bild2.bmp"));
    const user::ModalUser person([&](platform::Form& dialog) {
        auto& list = user::find<platform::ListView>(dialog, "ListView1");
        *slow = true;
        timer = std::make_unique<platform::Timer>(dialog);
        timer->setInterval(10);
        timer->onTick = [&] {
            if (!user::find(dialog, "fraWait").visible()) return;
            timer->setEnabled(false);
            user::press(user::find<platform::Button>(dialog, "btnWait"));
        };
        timer->setEnabled(true);
        user::press(user::find<platform::Button>(dialog, "btnSearch"));
        EXPECT_EQ(list.count(), 1) << "nothing was found or lost";
        EXPECT_TRUE(dialog.visible());
        timer.reset();
        *slow = false;
        user::press(user::find<platform::Button>(dialog, "btnAbbr"));
    });
    openByChooser("Fern");
    EXPECT_EQ(window().cboSets.text(), "Probe");
}

}  // namespace
