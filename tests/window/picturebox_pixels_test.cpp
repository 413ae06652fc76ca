// The picture box as a real window: its classes, its device context, and the pixels that stand on the screen.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "controls/buttonlist/kvButtonList.h"
#include "platform/win32/windows.h"
#include "res/resource.h"
#include "tests/controls/picture_box_fixture.h"
#include "tests/support/win32/input.h"

namespace {

using platform::Colour;
using platform::Point;
using platform::Rect;
using platform::Size;

class PictureBoxPixels : public PictureBoxTest {
  protected:
    /// A bitmap of 256 colours in which neighbours differ.
    void loadPalette(Size size, const std::string& name = "a.bmp") {
        for (int i = 0; i < 256; ++i)
            palette.push_back(static_cast<Colour>(i << 16 | (255 - i) << 8 | (i * 7 & 255)));
        box.LoadPic(folder.write(name, support::paletteBitmap(size, palette, index)));
    }
    static int index(int x, int y) { return (x * 3 + y * 5) & 255; }
    Colour source(int x, int y) const { return palette[static_cast<std::size_t>(index(x, y))]; }

    std::vector<Colour> palette;
};

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
    loadPalette({120, 80});
    const user::Picture screen = user::screen(box);
    const Point at = offset();
    for (int y = 0; y < 80; ++y)
        for (int x = 0; x < 120; ++x)
            ASSERT_EQ(screen.at({at.x + x, at.y + y}), source(x, y)) << x << ", " << y;
    const HDC dc = reinterpret_cast<HDC>(box.hDC());
    const COLORREF pixel = GetPixel(dc, at.x + 7, at.y + 9);
    EXPECT_EQ(static_cast<Colour>(GetRValue(pixel) << 16 | GetGValue(pixel) << 8 | GetBValue(pixel)),
              source(7, 9));
}

TEST_F(PictureBoxPixels, ScrollingLeavesNothingBehind) {
    loadPalette({600, 400});
    user::step(hScroll, 3);
    user::page(vScroll, 1);
    user::scroll(hScroll, 250);
    const Point at = offset();
    EXPECT_EQ(at, (Point{-250, -100}));
    const user::Picture screen = user::screen(box);
    for (int y = 0; y < 100; ++y)
        for (int x = 0; x < 200; ++x)
            ASSERT_EQ(screen.at({x, y}), source(x - at.x, y - at.y)) << x << ", " << y;
}

TEST_F(PictureBoxPixels, StretchedDropsAndDoublesWholePixels) {
    loadPalette({60, 40});
    box.move(Rect::at(10, 10, 240, 200));
    box.Stretch(true);
    const user::Picture screen = user::screen(box);
    for (int y = 0; y < 40; ++y)
        for (int x = 0; x < 60; ++x) {
            ASSERT_EQ(screen.at({4 * x, 20 + 4 * y}), source(x, y)) << x << ", " << y;
            ASSERT_EQ(screen.at({4 * x + 3, 20 + 4 * y + 3}), source(x, y)) << x << ", " << y;
        }
    EXPECT_EQ(screen.at({100, 19}), background);
    EXPECT_EQ(screen.at({100, 180}), background);
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

/// Drags with real messages, in steps, and compares the screen with a fresh repaint after each step.
class PictureBoxDrags : public PictureBoxPixels {
  protected:
    void expectFresh(const std::string& what) {
        EXPECT_TRUE(user::screen(box) == user::printed(box)) << what;
    }
    /// Points on the picture.
    void drag(Point from, const std::vector<Point>& way, const std::string& what) {
        const auto onControl = [at = offset()](Point p) { return Point{p.x + at.x, p.y + at.y}; };
        user::mouseDown(box, platform::MouseButton::left, 0, onControl(from));
        expectFresh(what + ", pressed");
        for (const Point p : way) {
            user::mouseMove(box, platform::MouseButton::left, 0, onControl(p));
            expectFresh(what + ", at " + std::to_string(p.x) + ", " + std::to_string(p.y));
        }
        user::mouseUp(box, platform::MouseButton::left, 0, onControl(way.back()));
        expectFresh(what + ", released");
    }
    void dragAround() {
        box.ROI_Clear();
        const Point o{std::max(0, -box.OffsetX()), std::max(0, -box.OffsetY())};
        const auto at = [o](int x, int y) { return Point{o.x + x, o.y + y}; };
        box.ROI_Load(o.x + 60, o.y + 25, 40, 30);
        box.ROI_Load(o.x + 20, o.y + 10, 50, 40);
        box.ROI_Load(o.x + 30, o.y + 30, 8, 3);
        drag(at(45, 20), {at(46, 20), at(46, 21), at(80, 50), at(0, 0), at(-60, -60), at(110, 60)}, "moved");
        drag(at(70, 30), {at(71, 31), at(190, 95), at(30, 25)}, "another one");
        const Rect r = box.regionRect(1);
        const Point middle{(r.left + r.right) / 2, (r.top + r.bottom) / 2};
        drag({r.right + 4, middle.y}, {{r.left - 9, middle.y}, {r.left, middle.y}, {r.right + 30, middle.y}},
             "the right handle, across");
        drag({r.left - 4, r.top - 4},
             {{r.right + 40, r.bottom + 9}, {o.x - 30, o.y - 30}, {r.left - 7, r.top - 5}},
             "the corner, across and to the edge");
        drag(at(190, 5), {at(170, 15), at(195, 2)}, "the picture");
    }
};

TEST_F(PictureBoxDrags, LeaveNothingBehind) {
    loadPalette({600, 400});
    dragAround();
    user::scroll(hScroll, 150);
    user::scroll(vScroll, 77);
    dragAround();
    user::scroll(hScroll, 400);
    user::scroll(vScroll, 300);
    dragAround();
    palette.clear();
    loadPalette({150, 80}, "small.bmp");
    dragAround();
}

TEST_F(PictureBoxDrags, DoNothingToAStretchedPicture) {
    loadPalette({60, 40});
    box.Stretch(true);
    const user::Picture before = user::screen(box);
    box.ROI_Add(5, 5, 30, 20);
    std::string events;
    box.ROIselect = box.ROImove = [&](int&, int&, int&, int&, int&) { events += "!"; };
    drag({20, 15}, {{30, 20}, {40, 30}}, "stretched");
    EXPECT_TRUE(user::screen(box) == before);
    EXPECT_EQ(events, "");
}

TEST_F(PictureBoxDrags, ShowTheProgramsOwnCursor) {
    loadPalette({600, 400});
    user::mouseDown(box, platform::MouseButton::left, 0, {100, 50});
    const auto window = reinterpret_cast<HWND>(box.hWnd());
    SendMessageW(window, WM_SETCURSOR, reinterpret_cast<WPARAM>(window), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
    EXPECT_EQ(GetCursor(), LoadCursorW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDC_MOVE)));
    EXPECT_TRUE(GetCursor());
    EXPECT_EQ(GetCapture(), window);
    user::mouseUp(box, platform::MouseButton::left, 0, {100, 50});
    EXPECT_FALSE(GetCapture());
}

TEST_F(PictureBoxDrags, LeaveTheFocusForTheTabKey) {
    platform::Button button(form, "btn", "Weiter");
    loadPalette({200, 100});  // nothing to scroll: the bars are passed over
    box.ROI_Add(10, 10, 30, 20);
    drag({20, 20}, {{21, 20}}, "clicked");
    user::input::key(GetFocus(), VK_RIGHT, 0);
    EXPECT_EQ(box.X(), 21);
    user::input::key(GetFocus(), VK_TAB, 0);
    EXPECT_TRUE(button.focused());
    user::input::key(GetFocus(), VK_TAB, platform::shiftKey::shift);
    EXPECT_TRUE(box.focused());
}

}  // namespace
