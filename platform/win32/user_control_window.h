#pragma once

#include "platform/user_control.h"
#include "platform/win32/container_window.h"

namespace platform::win32 {

class UserControlWindow : public ContainerWindow {
  public:
    UserControlWindow(Native* parentWindow, const std::string& controlName, const std::string& windowClass);

    Handled handle(const Message& m) override;

    /// The window's own, which its class keeps for it.
    HDC dc() const { return dc_; }
    void setPointer(Pointer pointer);
    Pointer pointer() const { return pointer_; }
    void setCapture(bool on);
    void setTabStop(bool on);
    bool showsFocus() const { return showsFocus_; }
    void setRole(UserControl::Role wanted);
    long accessibleRole() const override { return role_; }

  private:
    UserControl& user() const { return *static_cast<UserControl*>(control); }
    void paintOn(HDC target);

    Handled paint();
    Handled print(HDC target);
    Handled erase(HDC) { return 1; }  // painting covers all of it
    void resized(WPARAM kind, Size size);
    Handled buttonDown(MouseButton button, int shift, Point point);
    Handled buttonUp(MouseButton button, int shift, Point point);
    Handled mouseMoved(MouseButton button, int shift, Point point);
    Handled wheelTurned(int distance, int shift, Point onScreen);
    void captureChanged(HWND now);
    Handled keyDown(int key, int shift);
    Handled wantedKeys();
    void focused();
    void unfocused();
    Handled marksChanged(const Message& m);
    void showFocus(bool on);
    Handled choosePointer(HWND below, int hit);

    HDC dc_ = nullptr;
    Pointer pointer_ = Pointer::arrow;
    bool focusByMouse_ = false;  // while it comes
    bool showsFocus_ = false;
    long role_ = 0;
    bool pressed_ = false;   // by the left button
    bool captured_ = false;  // by the program, which has not let go yet
};

}  // namespace platform::win32
