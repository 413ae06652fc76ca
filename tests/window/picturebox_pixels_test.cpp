// The picture box as a real window: its classes, its device context, and the pixels that stand on the screen.
#include <gtest/gtest.h>

#include <string>

#include "controls/buttonlist/kvButtonList.h"
#include "platform/win32/windows.h"
#include "tests/controls/picture_box_fixture.h"

namespace {

using platform::Colour;
using platform::Point;
using platform::Rect;
using platform::Size;

class PictureBoxPixels : public PictureBoxTest {
  protected:
    /// A bitmap of 256 colours in which neighbours differ.
    void loadPalette(Size size) {
        for (int i = 0; i < 256; ++i)
            palette.push_back(static_cast<Colour>(i << 16 | (255 - i) << 8 | (i * 7 & 255)));
        box.LoadPic(folder.write("a.bmp", support::paletteBitmap(size, palette, index)));
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

}  // namespace
