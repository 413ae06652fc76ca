// A day's work by the keyboard alone: real keys to the real program, from a folder of pictures to a saved
// set.
#include <gmock/gmock.h>

#include "model/kvTamSampleSet.h"
#include "platform/files.h"
#include "program.h"

// After <windows.h>, which it needs.
#include <commctrl.h>

namespace {

using testing::ElementsAre;

constexpr WORD alt = VK_MENU, control = VK_CONTROL;

class KeyboardDay : public testing::Test {
  protected:
    static void send(WORD key, bool up = false) {
        INPUT input{};
        input.type = INPUT_KEYBOARD;
        input.ki.wVk = key;
        input.ki.wScan = static_cast<WORD>(::MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
        input.ki.dwFlags = up ? KEYEVENTF_KEYUP : 0;
        EXPECT_EQ(::SendInput(1, &input, sizeof input), 1u);
    }
    static void press(WORD key, WORD with = 0) {
        if (with != 0) send(with);
        send(key);
        send(key, true);
        if (with != 0) send(with, true);
    }
    /// Digits and small letters, given as capitals.
    static void type(const std::string& keys) {
        for (const char key : keys) press(static_cast<WORD>(key));
    }
    static bool hasFocus(const Program& stich, HWND window) {
        return waitFor([&] {
            GUITHREADINFO info{};
            info.cbSize = sizeof info;
            ::GetGUIThreadInfo(::GetWindowThreadProcessId(stich.window(), nullptr), &info);
            return window != nullptr && info.hwndFocus == window;
        });
    }
    static bool hasFocus(const Program& stich, const char* name) {
        return hasFocus(stich, stich.control(name));
    }
    /// A digit for the picture that is seen, as long after it came as the quickest person needs.
    static void label(WORD key) {
        ::Sleep(60);
        press(key);
    }
    static bool edits(const Program& stich, const char* list) {
        return waitFor([&] { return ::SendMessageW(stich.control(list), LVM_GETEDITCONTROL, 0, 0) != 0; });
    }
    static bool names(const Program& stich, const char* list, const std::vector<std::string>& wanted) {
        return waitFor([&] { return stich.column(list, 0) == wanted; });
    }

    void choosePictures(const Program& stich) const;
    static void makeClassesAndARegion(const Program& stich);
    static void labelAll(const Program& stich);

    ProgramFolder folder_{4, {400, 300}, {"alt"}};
};

void KeyboardDay::choosePictures(const Program& stich) const {
    press('Q', alt);
    ASSERT_TRUE(hasFocus(stich, "txtPath"));
    press(VK_TAB);
    ASSERT_TRUE(hasFocus(stich, "btnPath"));
    press(VK_SPACE);
    ASSERT_TRUE(stich.choosePath(folder_.file("Picture")));
    ASSERT_TRUE(waitFor([&] { return stich.rows("ListView1") == 4; }));
    ASSERT_TRUE(hasFocus(stich, "btnPath"));
    press(VK_TAB);
    ASSERT_TRUE(hasFocus(stich, "ListView1"));
    press('A', control);
    press(VK_RETURN);
    ASSERT_TRUE(waitFor([&] { return stich.rows("lvCItems") == 4; }));
}

void KeyboardDay::makeClassesAndARegion(const Program& stich) {
    press('K', alt);
    ASSERT_TRUE(hasFocus(stich, "TabStrip1"));
    press(VK_TAB);
    ASSERT_TRUE(hasFocus(stich, "lvCClasses"));
    press(VK_F2);
    ASSERT_TRUE(edits(stich, "lvCClasses"));
    type("GUT1");
    press(VK_RETURN);
    ASSERT_TRUE(names(stich, "lvCClasses", {"gut1"}));
    press('N', alt);
    ASSERT_TRUE(edits(stich, "lvCClasses"));
    type("RISS");
    press(VK_RETURN);
    ASSERT_TRUE(names(stich, "lvCClasses", {"gut1", "riss"}));

    press(VK_TAB, control);
    ASSERT_TRUE(hasFocus(stich, "TabStrip1"));
    press('N', alt);
    ASSERT_TRUE(edits(stich, "lvROIs"));
    type("KOPF");
    press(VK_RETURN);
    ASSERT_TRUE(names(stich, "lvROIs", {"kopf"}));
}

void KeyboardDay::labelAll(const Program& stich) {
    press('R', alt);
    ASSERT_TRUE(hasFocus(stich, "cboROI"));
    press(VK_HOME);  // the whole picture
    ASSERT_TRUE(waitFor(
        [&] { return Program::text(stich.control("txtInfo")).find("gesamtes") != std::string::npos; }));
    label('2');
    ASSERT_TRUE(stich.shows("Bild 2.bmp"));
    label(VK_NUMPAD1);
    ASSERT_TRUE(stich.shows("Bild 3.bmp"));
    ::Sleep(60);
    for (int i = 0; i < 5; ++i) send('2');  // a key that is held down
    send('2', true);
    ASSERT_TRUE(stich.shows("Bild 4.bmp"));
    press(VK_TAB);
    ASSERT_TRUE(hasFocus(stich, "lvCItems"));
    EXPECT_EQ(stich.selectedRow("lvCItems"), 4) << "one picture for one press";
    press(VK_HOME);
    ASSERT_TRUE(stich.shows("Bild 1.bmp"));
}

TEST_F(KeyboardDay, MakesLabelsAndSavesASetWithoutAMouse) {
    Program stich(folder_.program());
    ASSERT_TRUE(stich.opens());
    ASSERT_TRUE(waitFor([&] { return ::GetForegroundWindow() == stich.window(); }));
    ASSERT_NO_FATAL_FAILURE(choosePictures(stich));
    ASSERT_NO_FATAL_FAILURE(makeClassesAndARegion(stich));
    ASSERT_NO_FATAL_FAILURE(labelAll(stich));

    press('P', alt);
    ASSERT_TRUE(hasFocus(stich, ::GetWindow(stich.control("cboSets"), GW_CHILD)));
    type("TAG2");
    press('S', control);
    const std::string file = folder_.file("TestSets\\tag2.kvs");
    ASSERT_TRUE(waitFor([&] { return platform::files::fileExists(file); }));
    press(VK_F4, alt);
    ASSERT_EQ(stich.exitCode(), 0) << "saved: nothing to ask";

    model::kvTamSampleSet saved;
    saved.AppPath(folder_.path());
    ASSERT_TRUE(saved.Load(file));
    EXPECT_EQ(saved.kvtamROIs().Item(2).Name, "kopf");
    std::vector<int> labels;
    for (int i = 1; i <= saved.kvtamSamples().Count(); ++i)
        labels.push_back(saved.kvtamSamples().Item(i).ItemClasses.front());
    EXPECT_THAT(labels, ElementsAre(2, 1, 2, 1));
}

}  // namespace
