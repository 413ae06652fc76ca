#pragma once

#include "platform/win32/native.h"

namespace platform::win32 {

/// A window of our own that others stand in: gives back to them what they tell their parent.
class ContainerWindow : public Control::Native {
  public:
    using Native::Native;
    Handled handle(const Message& m) override;
    /// What is behind its children.
    virtual HBRUSH background();

  private:
    Handled reflectCommand(const Message& m);
    Handled reflectNotification(const Message& m);
    Handled reflectScroll(const Message& m);
    Handled chooseGround(const Message& m);
};

class PanelWindow : public ContainerWindow {
  public:
    PanelWindow(Native* parentWindow, std::string controlName);
    Handled handle(const Message& m) override;
    HBRUSH background() override;
    void fontChanged() override;

  private:
    void resized(WPARAM kind, Size size);
    Handled paintBackground(HDC dc);
    UniqueBrush page_;  // the ground of a tab's page, once it was asked for
};

}  // namespace platform::win32
