// What a real window does while the program waits.
#include <gtest/gtest.h>

#include "platform/application.h"
#include "platform/win32/native.h"
#include "shell/wait_line.h"
#include "tests/support/user.h"
#include "tests/support/win32/input.h"

namespace {

using namespace platform;

/// As another program acts, while the window goes on as `goOn` says.
void fromOutside(std::function<void()> act, const std::function<void()>& goOn) {
    const auto run = [](void* todo) -> DWORD {
        (*static_cast<std::function<void()>*>(todo))();
        return 0;
    };
    const HANDLE thread = CreateThread(nullptr, 0, run, &act, 0, nullptr);
    while (WaitForSingleObject(thread, 5) == WAIT_TIMEOUT) goOn();
    CloseHandle(thread);
}

struct Wait : testing::Test {
    Form form{"frmWait", "Warten", {}};
    ListView list{form, "list", {{"Name", 20}}, {}};
    Button btnOne{form, "btnOne", "&Los"};
    ComboBox box{form, "box", ComboBox::Style::list};
    Panel frame{form, "fraWait"};
    Label label{frame, "lblWait", {}};
    ProgressBar bar{frame, "kvProgressBar1"};
    Button btnWait{frame, "btnWait", "Abbrechen"};
    int clicks = 0, asked = 0;

    Wait() {
        int y = 0;
        for (Control* control : std::initializer_list<Control*>{&btnOne, &box, &frame})
            control->move(Rect::at(200, y += 40, 200, 30));
        btnWait.move(Rect::at(0, 0, 100, 30));
        list.move(Rect::at(0, 0, 190, 200));
        list.cell = [](int row, int) { return std::to_string(row); };
        list.setCount(10);
        box.add({"eins", "zwei", "drei"});
        btnOne.onClick = [this] { ++clicks; };
        form.onQueryUnload = [this] {
            ++asked;
            return false;
        };
        form.show();
        list.focus();
        user::pump();
    }
    void wait() { application::doEventsFor(frame); }
};

TEST_F(Wait, LeavesTheFrameOfTheWindowAliveAndNothingElse) {
    const auto screenReader = [this] {
        const HWND button = btnOne.native().window;
        SendMessageW(button, BM_CLICK, 0, 0);
        SendMessageW(form.native().window, WM_COMMAND, BN_CLICKED, reinterpret_cast<LPARAM>(button));
        LVITEMW item{};
        item.state = item.stateMask = LVIS_SELECTED;
        SendMessageW(list.native().window, LVM_SETITEMSTATE, 3, reinterpret_cast<LPARAM>(&item));
    };
    constexpr LPARAM alt = 1 << 29;
    const auto accessKey = [] { PostMessageW(GetFocus(), WM_SYSCHAR, L'L', alt); };
    fromOutside(screenReader, [this] { wait(); });
    EXPECT_TRUE(list.focused());
    btnWait.focus();
    accessKey();
    wait();
    EXPECT_TRUE(btnWait.focused());
    EXPECT_EQ(clicks, 0);
    EXPECT_EQ(list.selectedCount(), 0);

    list.focus();
    PostMessageW(GetFocus(), WM_SYSKEYDOWN, VK_F4, alt);
    wait();
    EXPECT_EQ(asked, 1);
    PostMessageW(form.native().window, WM_NCLBUTTONDBLCLK, HTCAPTION, 0);
    wait();
    EXPECT_TRUE(IsZoomed(form.native().window));

    fromOutside(screenReader, user::pump);
    accessKey();
    user::pump();
    EXPECT_EQ(clicks, 3) << "when it waits no more";
    EXPECT_EQ(list.firstSelected(), 4);
}

TEST_F(Wait, IsGivenUpByEscapeAndClosesAListThatHadDroppedDown) {
    frame.setVisible(false);
    box.focus();
    box.native().send(CB_SHOWDROPDOWN, TRUE);
    SetCapture(box.native().window);  // as some systems' lists do
    Timer timer(form);
    timer.setInterval(10);
    timer.onTick = [&] {
        if (!frame.visible() || box.native().send(CB_GETDROPPEDSTATE) || GetCapture()) return;
        timer.setEnabled(false);
        PostMessageW(GetFocus(), WM_KEYDOWN, VK_ESCAPE, 1);
    };
    timer.setEnabled(true);
    BackgroundTask task([](BackgroundTask::Progress& progress) {
        for (int i = 0; i < 10000 && !progress.cancelled; ++i) Sleep(1);
    });
    bool givenUp = false;
    const shell::WaitLine line{frame, label, bar, [this](bool on) { frame.setVisible(on); }};
    EXPECT_FALSE(shell::waitFor(line, "Es dauert ...", task, givenUp));
    EXPECT_TRUE(box.focused());
}

}  // namespace
