// Files that another program holds open and shares with nobody.
#include <gmock/gmock.h>

#include "platform/win32/handle.h"
#include "platform/win32/wide.h"
#include "tests/editor/editor_fixture.h"

namespace {

namespace message = platform::message;
using platform::wide;
using platform::win32::UniqueHandle;
using testing::HasSubstr;

/// As long as it lives nobody else can open the file. False when somebody has it open already.
UniqueHandle lockOn(const std::string& file) {
    const HANDLE handle =
        ::CreateFileW(wide(file).c_str(), GENERIC_READ | DELETE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    return handle == INVALID_HANDLE_VALUE ? UniqueHandle() : UniqueHandle(handle);
}

class LockedFiles : public EditorTest {
  protected:
    void SetUp() override {
        makeSet("Probe", {.pictures = 4});
        makeSet("Andere", {.pictures = 1});
        ASSERT_TRUE(start());
        openByChooser("Probe");
    }
    std::string picture(int number) const {
        return folder.file("Picture\\Probe\\bild" + std::to_string(number) + ".bmp");
    }
    std::string setFile(const std::string& name) const { return folder.file("TestSets\\" + name + ".kvs"); }
    std::string hint() { return window().lblHint.caption(); }
};

TEST_F(LockedFiles, NoneIsHeldByTheEditorItself) {
    auto& w = window();
    folder.write("Picture\\Probe\\bild3.bmp", "kein Bild");
    // What is fetched for the next step is read in a moment and let go of again.
    const auto noneIsHeld = [&] {
        for (int n = 1; n <= 4; ++n)
            if (!user::pumpUntil([&] { return static_cast<bool>(lockOn(picture(n))); }, 5000)) return false;
        return true;
    };
    for (int row = 1; row <= 4; ++row) {
        w.GoToItem(row);
        EXPECT_TRUE(noneIsHeld()) << row;
    }
    EXPECT_TRUE(lockOn(setFile("Probe")));
    support::DialogScript dialogs;
    dialogs.answer(folder.file("Picture\\Probe"));
    user::press(w.btnPath);
    EXPECT_TRUE(noneIsHeld());
}

TEST_F(LockedFiles, APictureIsToldWithItsReasonAndShownWhenItIsFree) {
    auto& w = window();
    {
        const UniqueHandle lock = lockOn(picture(3));  // not among those that are decoded already
        ASSERT_TRUE(lock);
        pressClass(1);
        pressClass(1);
        EXPECT_EQ(current(), 3);
        EXPECT_TRUE(w.kvPictureBox1.Failed());
        EXPECT_THAT(hint(), HasSubstr("bild3.bmp: "));
        EXPECT_THAT(hint(), HasSubstr("kann nicht gelesen werden"));
        EXPECT_EQ(w.ItemClasses(2, 0), 1);
    }
    w.GoToItem(4);
    w.GoToItem(3);
    EXPECT_EQ(hint(), "");
    EXPECT_EQ(w.kvPictureBox1.PicWidth(), 11);
    EXPECT_EQ(w.ItemClasses(3, 0), 0);
}

TEST_F(LockedFiles, ASetIsNotOpenedAndNotSavedButNothingIsLost) {
    auto& w = window();
    {
        const UniqueHandle lock = lockOn(setFile("Andere"));
        ASSERT_TRUE(lock);
        messages.expectPart("Die Stichprobe kann nicht geöffnet werden.");
        openByChooser("Andere");
        EXPECT_EQ(w.cboSets.text(), "Probe");
        EXPECT_EQ(w.set().sampleCount(), 4);
    }
    pressClass(2);
    {
        const UniqueHandle lock = lockOn(setFile("Probe"));
        ASSERT_TRUE(lock);
        messages.expectPart("bereits vorhanden")
            .expectPart("Die Stichprobe konnte nicht gespeichert werden.");
        user::press(w.btnSave);
        EXPECT_FALSE(w.unchanged());
        EXPECT_EQ(w.ItemClasses(1, 0), 2);
    }
    EXPECT_EQ(stored("Probe", "ROI0", "1"), "1");
    EXPECT_EQ(platform::files::list(folder.file("TestSets")).size(), 2U) << "nothing is left beside it";
    messages.expectPart("bereits vorhanden");
    user::press(w.btnSave);
    EXPECT_TRUE(w.unchanged());
    EXPECT_EQ(stored("Probe", "ROI0", "1"), "3");
}

}  // namespace
