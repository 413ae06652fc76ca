// Presses as real queues bring them: what they were made for is not always what is on the screen when they
// are handled.
#include <set>

#include "platform/application.h"
#include "tests/editor/editor_fixture.h"
#include "tests/support/win32/input.h"

namespace {

class Unseen : public EditorTest {
  protected:
    void SetUp() override {
        makeSet("A", {.pictures = 9});
        makeSet("B", {});
        start();
        openByChooser("A");
        look();
    }

    static void look() { ::Sleep(platform::application::inputTimeStep * 2); }

    HWND button(int slot) {
        return user::find<platform::Button>(window().form, "Command1(" + std::to_string(slot) + ")")
            .native()
            .window;
    }
    /// In the queue; handled by the next pump.
    static void queueClick(HWND target, const RECT& area, UINT down = WM_LBUTTONDOWN) {
        const LPARAM at = user::input::packed(user::input::centre(area));
        PostMessageW(target, down, MK_LBUTTON, at);
        PostMessageW(target, WM_LBUTTONUP, 0, at);
    }
    void queueClick(int slot, UINT down = WM_LBUTTONDOWN) {
        RECT area{};
        GetClientRect(button(slot), &area);
        queueClick(button(slot), area, down);
    }
    int labelled() {
        int count = 0;
        for (int row = 1; row <= window().set().sampleCount(); ++row)
            count += window().ItemClasses(row, 0) != 0;
        return count;
    }
};

TEST_F(Unseen, ClicksThatWaitedInTheQueueLabelNothing) {
    for (int i = 0; i < 4; ++i) queueClick(1);
    user::pump();
    EXPECT_EQ(labelled(), 1);
    EXPECT_EQ(current(), 2);
    look();
    queueClick(2);
    user::pump();
    EXPECT_EQ(window().ItemClasses(2, 0), 2) << "the second picture was seen";
    EXPECT_EQ(current(), 3);
}

TEST_F(Unseen, TheSecondHalfOfADoubleClickLabelsNothing) {
    queueClick(1);
    user::pump();
    look();
    queueClick(1, WM_LBUTTONDBLCLK);
    user::pump();
    EXPECT_EQ(labelled(), 1);
    // Who labels quickly presses as often within the system's time for a double click.
    ::Sleep(300);
    queueClick(1, WM_LBUTTONDBLCLK);
    user::pump();
    EXPECT_EQ(labelled(), 2);
}

TEST_F(Unseen, ASetThatIsChosenByTheMouseLeavesTheFocusToItsItems) {
    const HWND box = window().cboSets.native().window;
    SendMessageW(box, CB_SHOWDROPDOWN, TRUE, 0);
    COMBOBOXINFO info{};
    info.cbSize = sizeof info;
    ASSERT_TRUE(GetComboBoxInfo(box, &info));
    RECT row{};
    SendMessageW(info.hwndList, LB_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&row));
    queueClick(info.hwndList, row);
    user::pump();
    EXPECT_EQ(window().set().sampleCount(), 3);
    EXPECT_TRUE(window().lvCItems.focused());
}

TEST_F(Unseen, ALabelHasTheNumbersOfItsClassesPaintedAnew) {
    auto& w = window();
    w.TabStrip1.select(2);
    w.TabStrip1_Click();
    user::pump();
    std::set<int> painted;
    w.lvCClasses.cell = [&painted, cell = w.lvCClasses.cell](int row, int column) {
        painted.insert(row);
        return cell(row, column);
    };
    look();
    queueClick(1);
    user::pump();
    EXPECT_EQ(painted, (std::set{1, 2})) << "one more, one less";
}

}  // namespace
