#include "platform/win32/native.h"
#include "platform/win32/surface_bitmap.h"
#include "tests/support/user.h"
#include "tests/support/win32/input.h"

namespace user {

using namespace platform;

namespace {

/// The pixels, with black where other controls stand in this one: they are not what it draws.
Picture pictureOf(const win32::BitmapDc& bitmap, const UserControl& control) {
    for (const Control::Native* child : control.native().children) {
        const Rect area = child->bounds();
        if (child->visible) PatBlt(bitmap.dc(), area.left, area.top, area.width(), area.height(), BLACKNESS);
    }
    GdiFlush();
    Picture picture{bitmap.size(), {}};
    for (int y = 0; y < picture.size.height; ++y)
        for (int x = 0; x < picture.size.width; ++x) picture.pixels.push_back(bitmap.row(y)[x] & 0xFFFFFF);
    return picture;
}

}  // namespace

Picture screen(UserControl& control) {
    const HWND window = control.native().window;
    input::require(IsWindowVisible(window), "the control is not in view");
    control.update();
    const win32::BitmapDc copy(control.clientSize());
    BitBlt(copy.dc(), 0, 0, copy.size().width, copy.size().height, reinterpret_cast<HDC>(control.hDC()), 0, 0,
           SRCCOPY);
    return pictureOf(copy, control);
}

Picture printed(UserControl& control) {
    const win32::BitmapDc copy(control.clientSize());
    control.native().send(WM_PRINTCLIENT, reinterpret_cast<WPARAM>(copy.dc()), PRF_CLIENT);
    return pictureOf(copy, control);
}

}  // namespace user
