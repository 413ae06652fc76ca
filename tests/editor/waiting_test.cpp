#include <atomic>
#include <chrono>
#include <memory>
#include <thread>

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

}  // namespace
