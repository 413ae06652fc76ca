#include <atomic>
#include <chrono>
#include <thread>

#include "platform/file_calls.h"
#include "tests/editor/editor_fixture.h"
#include "tests/support/hanging_disk.h"

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

    /// Makes the share slow, and acts once when it is time, mostly when the window has begun to wait for it.
    void meanwhile(std::function<void()> act, std::function<bool()> isTime) {
        *slow = true;
        timer = std::make_unique<platform::Timer>(window().form);
        timer->setInterval(5);
        timer->onTick = [this, act = std::move(act), isTime = std::move(isTime)] {
            if (!isTime()) return;
            timer->setEnabled(false);
            act();
        };
        timer->setEnabled(true);
    }
    void meanwhile(std::function<void()> act) {
        meanwhile(std::move(act), [this] { return window().fraWait.visible(); });
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
        EXPECT_EQ(w.kvProgressBar1.maximum(), 5);
        EXPECT_FALSE(w.kvProgressBar1.marquee());
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
    meanwhile(
        [&] {
            EXPECT_FALSE(w.form.unload());
            *slow = false;  // "Probe" is read again
        },
        [&] { return w.set().sampleCount() == 5; });  // mostly before it waits
    openByChooser("Fern");
    EXPECT_TRUE(w.form.loaded());
    EXPECT_EQ(w.cboSets.text(), "Probe");
    EXPECT_EQ(w.set().sampleCount(), 3);
}

TEST_F(Waiting, SavingByKeyBeforeTheSetIsAcceptedDoesNothing) {
    auto& w = window();
    const std::string before = platform::files::read(setFile("Fern"));
    messages.expectPart("Änderungen in", platform::message::no);
    meanwhile(
        [&] {
            user::key(w.form, 'S', platform::shiftKey::control);
            *slow = false;
        },
        [&] { return w.set().sampleCount() == 5; });  // mostly before it waits
    openByChooser("Fern");
    EXPECT_EQ(w.set().sampleCount(), 5);
    EXPECT_TRUE(w.unchanged());
    EXPECT_EQ(platform::files::read(setFile("Fern")), before);
    EXPECT_EQ(stored("Probe", "ROI0", "1"), "1");
}

using platform::files::Call;
std::atomic<bool> diskHangs{false};

template <Call hanging>
platform::files::Fault hang(Call call) {
    while (call == hanging && diskHangs) std::this_thread::sleep_for(std::chrono::milliseconds(1));
    return platform::files::Fault::none;
}

// Of the sets before a save, and of a folder of pictures.
TEST_F(Waiting, AListingThatIsGivenUpLeavesThingsAsTheyWere) {
    auto& w = window();
    support::DialogScript dialogs;
    dialogs.answer(folder.file("Picture\\Fern"));
    w.browse(folder.file("Picture\\Probe"));
    const std::pair<platform::Button*, const char*> listings[] = {
        {&w.btnSave, "Die Stichproben werden gesucht ..."}, {&w.btnPath, "Das Verzeichnis wird gelesen ..."}};
    platform::files::faultWatcher = hang<Call::list>;
    for (const auto& [button, told] : listings) {
        diskHangs = true;
        meanwhile([&, expected = told] {
            EXPECT_EQ(w.lblWait.caption(), expected);
            user::press(w.btnWait);
        });
        user::press(*button);
        diskHangs = false;
        EXPECT_FALSE(w.unchanged());
        EXPECT_EQ(w.ItemClasses(1, 0), 1);
        EXPECT_EQ(w.ListView1.count(), 3);
        EXPECT_EQ(w.cboSets.text(), "Probe");
    }
    platform::files::faultWatcher = nullptr;
    EXPECT_EQ(stored("Probe", "ROI0", "1"), "1");
}

TEST_F(Waiting, ASaveThatIsGivenUpLeavesTheOldFile) {
    auto& w = window();
    const std::string sets = folder.file("TestSets");
    const std::string before = platform::files::read(sets + "\\Probe.kvs");
    diskHangs = true;
    platform::files::faultWatcher = hang<Call::flush>;
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
        meanwhile([&] { user::press(user::find<platform::Button>(dialog, "btnWait")); },
                  [&] { return user::find(dialog, "fraWait").visible(); });
        user::press(user::find<platform::Button>(dialog, "btnSearch"));
        EXPECT_EQ(user::find<platform::ListView>(dialog, "ListView1").count(), 1);
        EXPECT_TRUE(dialog.visible());
        *slow = false;
        user::press(user::find<platform::Button>(dialog, "btnAbbr"));
    });
    openByChooser("Fern");
    EXPECT_EQ(window().cboSets.text(), "Probe");
}

TEST_F(Waiting, APictureThatHangsIsGivenUpAndNothingElseIs) {
    restart();
    auto& w = window();
    support::HangingDisk disk;
    openByChooser("Fern");
    user::press(w.Toolbar1, "btnLoop");
    disk.hang(true);
    meanwhile([&] {
        EXPECT_EQ(w.lblWait.caption(), "Das Bild wird geladen ...");
        EXPECT_TRUE(w.kvProgressBar1.marquee());
        EXPECT_FALSE(w.form.unload()) << "the close box gives up as well";
        disk.letGo();  // the one that is read ahead may hang, too
    });
    w.GoToItem(4);
    EXPECT_EQ(hint(), "bild4.bmp: Das Laden wurde abgebrochen. Zu sehen ist noch das vorige Bild.");
    EXPECT_EQ(w.txtSize.text(), "");
    EXPECT_EQ(current(), 4);
    EXPECT_FALSE(w.fraWait.visible());
    EXPECT_TRUE(w.Toolbar1.enabled(w.Toolbar1.indexOf("btnLoop"))) << "the slide show has stopped";

    pressClass(2);
    EXPECT_EQ(w.ItemClasses(4, 0), 0) << "it was not seen";
    EXPECT_EQ(hint(), "") << "it was tried again";
    EXPECT_EQ(w.kvPictureBox1.PicWidth(), 12);
    pressClass(2);
    EXPECT_EQ(w.ItemClasses(4, 0), 2);
    EXPECT_EQ(current(), 5);
}

TEST_F(Waiting, ThePictureThatStayedOnTheScreenIsThereAtOnce) {
    restart();
    auto& w = window();
    support::HangingDisk disk;
    openByChooser("Fern");
    disk.hang(true);
    meanwhile([&] { user::press(w.btnWait); });
    w.GoToItem(4);
    bool waited = false;
    meanwhile([&] {
        waited = true;
        user::press(w.btnWait);
    });
    w.GoToItem(1);
    EXPECT_FALSE(waited);
    EXPECT_EQ(hint(), "");
    EXPECT_EQ(w.kvPictureBox1.FileName(), picture("Fern", 1));
}

TEST_F(Waiting, AFirstPictureThatHangsIsGivenUpWithoutItsSet) {
    auto& w = window();
    support::HangingDisk disk;
    messages.expectPart("Änderungen in", platform::message::no);
    std::string told;
    meanwhile(
        [&] {
            told = w.lblWait.caption();
            disk.hang(false);
            *slow = false;
            user::press(w.btnWait);
        },
        [&] {
            disk.hang(w.set().sampleCount() == 5);
            return w.fraWait.visible();
        });
    openByChooser("Fern");
    EXPECT_EQ(told, "Das Bild wird geladen ...");
    EXPECT_EQ(w.set().sampleCount(), 5);
    EXPECT_EQ(hint(), "bild1.bmp: Das Laden wurde abgebrochen. Zu sehen ist noch das vorige Bild.");
    EXPECT_FALSE(w.fraWait.visible());
}

}  // namespace
