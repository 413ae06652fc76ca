#include <atomic>

#include "platform/application.h"
#include "tests/editor/editor_fixture.h"

namespace {

// A share on the network that takes its time.
class Waiting : public EditorTest {
  protected:
    Waiting() {
        makeSet("Probe", {});
        makeSet("Fern", {.pictures = 5});
        environment.fileNames = [this](std::string_view directory, const platform::files::Continue& goOn) {
            for (std::size_t asked = 0; slow; ++asked) {
                if (!goOn(asked)) return std::vector<std::string>{};
                std::this_thread::sleep_for(std::chrono::milliseconds(5));
            }
            return platform::files::foldedFileNames(directory, goOn);
        };
        start();
        openByChooser("Probe");
        pressClass(1);
    }
    ~Waiting() override { slow = false; }

    std::atomic<bool> slow = false;
};

TEST_F(Waiting, ASetThatTakesLongToCheckCanBeGivenUp) {
    auto& w = window();
    messages.expectPart("Änderungen in", platform::message::yes).expectPart("überschreiben?");
    slow = true;
    std::string told;
    platform::application::post(w.form, [&] {
        told = w.lblWait.caption();
        EXPECT_FALSE(w.form.unload()) << "the close box gives up as well, and does not close";
        slow = false;  // "Probe" is read again
        user::press(w.btnWait);
    });
    openByChooser("Fern");
    EXPECT_EQ(told, "Die Stichprobe wird gelesen und ihre Bilder gesucht ...");
    EXPECT_EQ(w.cboSets.text(), "Probe");
    EXPECT_EQ(w.set().sampleCount(), 3);
    EXPECT_EQ(w.ItemClasses(1, 0), 1);
    EXPECT_FALSE(w.fraWait.visible());
}

TEST_F(Waiting, HowFarItIsIsSeenUntilItIsThere) {
    auto& w = window();
    messages.expectPart("Änderungen in", platform::message::no);
    slow = true;
    int before = -1;
    int done = -1;
    platform::application::post(w.form, [&] { before = w.kvProgressBar1.value(); });
    platform::application::post(w.form, [&] {
        platform::application::post(w.form, [&] {
            done = w.kvProgressBar1.value();
            EXPECT_EQ(w.kvProgressBar1.maximum(), 5);
            slow = false;
        });
    });
    openByChooser("Fern");
    EXPECT_GE(before, 0);
    EXPECT_GE(done, before);
    EXPECT_EQ(w.set().sampleCount(), 5);
    EXPECT_EQ(w.cboSets.text(), "Fern");
    EXPECT_FALSE(w.fraWait.visible());
}

}  // namespace
