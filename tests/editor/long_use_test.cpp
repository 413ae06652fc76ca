// A long day at the editor: nothing that it does again and again leaves anything behind.
//
// STICH_LONG_USE says how much is done, in percent of a day of a thousand sets, ten thousand pictures and a
// hundred openings of each dialog.
#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "editor_fixture.h"
#include "tests/support/memory.h"

namespace {

#ifdef _WIN32
constexpr int usualPercent = 1;               // real windows take their time
constexpr std::size_t allowed = 1024 * 1024;  // the heap of the system rests nowhere exactly
#else
constexpr int usualPercent = 20;
constexpr std::size_t allowed = 64 * 1024;
#endif

int percent() {
    const char* text = std::getenv("STICH_LONG_USE");
    return text == nullptr ? usualPercent : std::atoi(text);
}

class LongUse : public EditorTest {
  protected:
    LongUse() {
        makeSet("A", {.pictures = 20, .regions = {"Kopf", "Fuß"}});
        makeSet("B", {.pictures = 30, .classes = {"eins", "zwei", "drei", "vier", "fünf"}});
        makeSet("fehlt", {.pictures = 5});
        for (int i = 1; i <= 5; ++i)
            platform::files::remove(folder.file("Picture\\fehlt\\bild" + std::to_string(i) + ".bmp"));
        for (int i = 1; i <= 30; i += 3)  // a refused one leaves as little as a shown one
            folder.write("Picture\\B\\bild" + std::to_string(i) + ".bmp", "kein Bild");
        folder.write("Scripts\\Extract.kvr", platform::files::read(std::string("Z:") + STICH_SOURCE_DIR +
                                                                   "\\res\\Scripts\\Extract.kvr"));
        registry.write("Stich", "PathROI", folder.file("Aus"));
        start();
        openByChooser("B");
        openByChooser("A");
    }

    /// Does it so often, and expects handles and memory to be what they were after the first times. What the
    /// system makes once, at whatever moment, is not made in a second round.
    void expectNothingKept(const char* what, int times, const std::function<void()>& act) {
        const int counted = std::max(1, times * percent() / 100);
        for (int i = 0; i < 3 + counted / 10; ++i) act();
        Kept before = settled(), after = before;
        for (int round = 1; round <= 2; ++round) {
            before = after;
            for (int i = 0; i < counted; ++i) act();
            after = settled();
            std::printf("%s x %d: %d -> %d ours, %d -> %d system, %.3f -> %.3f MB\n", what, counted,
                        before.handles.ours, after.handles.ours, before.handles.system, after.handles.system,
                        static_cast<double>(before.memory) / 1e6, static_cast<double>(after.memory) / 1e6);
            if (after.handles.system <= before.handles.system && after.memory <= before.memory + allowed)
                break;
        }
        EXPECT_EQ(after.handles.ours, before.handles.ours) << what;
        EXPECT_LE(after.handles.system, before.handles.system) << what;
        EXPECT_LE(after.memory, before.memory + allowed) << what;
    }

  private:
    struct Kept {
        support::Handles handles;
        std::size_t memory;
    };
    Kept settled() {
        // How many neighbours are decoded already depends on the item: always the same one.
        if (window().set().sampleCount() > 0) window().GoToItem(1);
        user::pumpUntil([this] { return !window().Timer3.enabled(); }, 60'000);
        user::pumpUntil([] { return false; }, 200);  // what goes on beside the window comes to its end
        return {support::handles(), support::memoryInUse()};
    }
};

TEST_F(LongUse, SwitchingSetsKeepsNothing) {
    expectNothingKept("sets", 1000, [this] { openByChooser(window().cboSets.text() == "A" ? "B" : "A"); });
}

TEST_F(LongUse, ShowingPicturesKeepsNothing) {
    openByChooser("B");
    expectNothingKept("pictures", 10000, [this] { user::press(window().Toolbar1, "btnF"); });
    expectNothingKept("labels", 1000, [this] { pressClass(current() % 5); });
    platform::files::remove(folder.file("TestSets\\B.kvs"));
    user::press(window().btnSave);
}

TEST_F(LongUse, OpeningDialogsKeepsNothing) {
    user::ModalUser person([](platform::Form& form) {
        if (form.name() == "frmError") user::press(user::find<platform::Button>(form, "btnAbbr"));
    });
    expectNothingKept("frmError", 100, [this] { openByChooser("fehlt"); });
    user::chooseMenu(window().Toolbar1, "btnSave", "btnSaveAllROI");
    expectNothingKept("frmSave", 100, [this] { user::press(window().Toolbar1, "btnSave"); });
    EXPECT_TRUE(platform::files::fileExists(folder.file("Aus\\bild1_Kopf.bmp")));
}

TEST_F(LongUse, TheWindowItselfKeepsNothing) {
    expectNothingKept("window", 100, [this] { restart(folder.file("TestSets\\A.kvs")); });
}

}  // namespace
