// The picture box as a real window: its classes, its device context, and the pixels that stand on the screen.
#include <gtest/gtest.h>

#include <string>

#include "controls/buttonlist/kvButtonList.h"
#include "platform/win32/windows.h"
#include "res/resource.h"
#include "tests/controls/picture_box_fixture.h"
#include "tests/support/win32/input.h"

namespace {

using platform::Colour;
using platform::Point;

using PictureBoxPixels = PictureBoxTest;

std::wstring className(std::intptr_t window) {
    wchar_t name[64] = {};
    GetClassNameW(reinterpret_cast<HWND>(window), name, 64);
    return name;
}

TEST_F(PictureBoxPixels, WindowClassesCarryTheControlsNames) {
    EXPECT_EQ(className(box.hWnd()), L"kvPictureBox");
    controls::kvButtonList list(form, "kvButtonList1");
    EXPECT_EQ(className(list.hWnd()), L"kvButtonList");
}

TEST_F(PictureBoxPixels, OneToOneShowsTheFilesOwnColours) {
    box.LoadPic(bitmap("a.bmp", {120, 80}));
    const user::Picture screen = user::screen(box);
    const Point at = offset();
    for (int y = 0; y < 80; ++y)
        for (int x = 0; x < 120; ++x)
            ASSERT_EQ(screen.at({at.x + x, at.y + y}), support::distinctColour(x, y)) << x << ", " << y;
    const COLORREF pixel = GetPixel(reinterpret_cast<HDC>(box.hDC()), at.x + 7, at.y + 9);
    EXPECT_EQ(static_cast<Colour>(GetRValue(pixel) << 16 | GetGValue(pixel) << 8 | GetBValue(pixel)),
              support::distinctColour(7, 9));
}

TEST_F(PictureBoxPixels, JpegIsDecodedInPlace) {
    box.LoadPic(folder.write("a.jpg", support::smallJpeg()));
    EXPECT_EQ(picture(), support::smallJpegSize);
    const auto channel = [&](int x, int shift) {
        const Point at = offset();
        return static_cast<int>(user::screen(box).at({at.x + x, at.y + 8}) >> shift & 0xFF);
    };
    EXPECT_GT(channel(3, 16), channel(3, 8) + 50) << "the left half is red";
    EXPECT_GT(channel(20, 8), channel(20, 16) + 20) << "the right half is green";
    EXPECT_EQ(user::screen(box), user::printed(box));
}

TEST_F(PictureBoxPixels, ADragShowsTheProgramsOwnCursor) {
    box.LoadPic(bitmap("a.bmp", {600, 400}));
    user::mouseDown(box, platform::MouseButton::left, 0, {100, 50});
    const auto window = reinterpret_cast<HWND>(box.hWnd());
    SendMessageW(window, WM_SETCURSOR, reinterpret_cast<WPARAM>(window), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
    EXPECT_EQ(GetCursor(), LoadCursorW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDC_MOVE)));
    EXPECT_TRUE(GetCursor());
    EXPECT_EQ(GetCapture(), window);
    user::mouseUp(box, platform::MouseButton::left, 0, {100, 50});
    EXPECT_FALSE(GetCapture());
}

TEST_F(PictureBoxPixels, APressLeavesTheFocusForTheTabKey) {
    platform::Button button(form, "btn", "Weiter");
    box.LoadPic(bitmap("a.bmp", {200, 100}));  // nothing to scroll: the bars are passed over
    box.ROI_Add(10, 10, 30, 20);
    user::mouseDown(box, platform::MouseButton::left, 0, {20, 20});
    user::mouseUp(box, platform::MouseButton::left, 0, {20, 20});
    user::input::key(GetFocus(), VK_RIGHT, 0);
    EXPECT_EQ(box.X(), 20);
    user::input::key(GetFocus(), VK_TAB, 0);
    EXPECT_TRUE(button.focused());
    user::input::key(GetFocus(), VK_TAB, platform::shiftKey::shift);
    EXPECT_TRUE(box.focused());
}

}  // namespace
