#pragma once

#include <vector>

#include "platform/headless/pixels.h"
#include "platform/headless/window.h"
#include "platform/user_control.h"

namespace platform::headless {

struct UserControlWindow : Control::Native {
    using Native::Native;

    UserControl& userControl() const { return static_cast<UserControl&>(*control); }
    void resized() override;
    void captureLost() override;
    void focusTaken() override { showFocus(!focusByMouse_); }
    void focusLost() override { showFocus(false); }
    void key(int key, int shift) override;
    void invalidateAll() override;
    void paint() override;
    void invalidate(Rect area);
    Rect client() const { return Rect::at(0, 0, bounds.width(), bounds.height()); }
    Surface& screen() { return screen_; }  ///< its part of the screen

    void mouseDown(MouseButton button, int shift, Point point);
    void mouseUp(MouseButton button, int shift, Point point);

    Pointer pointer = Pointer::arrow;
    bool tabStop = false;  // there is no Tab key here, but a press of the mouse goes by it

    bool showsFocus = false;

  private:
    void showFocus(bool on);

    bool focusByMouse_ = false;  // while it comes
    Surface screen_;
    std::vector<Rect> invalid_;
    bool pressed_ = false;  // by the left button
};

}  // namespace platform::headless
