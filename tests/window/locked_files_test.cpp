// Files that another program holds open and shares with nobody.
#include <gmock/gmock.h>

#include "platform/win32/handle.h"
#include "platform/win32/wide.h"
#include "tests/editor/editor_fixture.h"

namespace {

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
    LockedFiles() {
        makeSet("Probe", {.pictures = 4});
        makeSet("Andere", {.pictures = 1});
        start();
        openByChooser("Probe");
    }
};

TEST_F(LockedFiles, APictureIsToldWithItsReasonAndShownWhenItIsFree) {
    auto& w = window();
    {
        const UniqueHandle lock = lockOn(picture("Probe", 3));  // not among those that are decoded already
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
    // The editor itself holds none, neither the one that is shown nor, but for a moment, those that come
    // next.
    for (int n = 1; n <= 4; ++n)
        EXPECT_TRUE(user::pumpUntil([&] { return static_cast<bool>(lockOn(picture("Probe", n))); }, 5000));
}

TEST_F(LockedFiles, ASetIsNotOpenedAndNotSavedButNothingIsLost) {
    {
        const UniqueHandle lock = lockOn(setFile("Andere"));
        ASSERT_TRUE(lock);
        messages.expectPart("Die Stichprobe kann nicht geöffnet werden.");
        openByChooser("Andere");
        EXPECT_EQ(window().cboSets.text(), "Probe");
    }
    pressClass(2);
    {
        const UniqueHandle lock = lockOn(setFile("Probe"));
        ASSERT_TRUE(lock) << "the editor holds it open itself";
        messages.expectPart("bereits vorhanden")
            .expectPart("Die Stichprobe konnte nicht gespeichert werden.");
        user::press(window().btnSave);
        EXPECT_FALSE(window().unchanged());
    }
    EXPECT_EQ(platform::files::list(folder.file("TestSets")).size(), 2U) << "nothing is left beside it";
    messages.expectPart("bereits vorhanden");
    user::press(window().btnSave);
    EXPECT_EQ(stored("Probe", "ROI0", "1"), "3");
}

}  // namespace
