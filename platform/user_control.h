#pragma once

#include <functional>
#include <string>

#include "platform/canvas.h"
#include "platform/control.h"
#include "platform/list_view.h"

namespace platform {

enum class Pointer { arrow = 0, sizeNESW = 6, sizeNS = 7, sizeNWSE = 8, sizeWE = 9, hourglass = 11, move = 99 };

/// A control that the program draws itself and whose mouse and keys it sees. Its window class has the name
/// given for it. Painting is double free: a repaint never erases first, so the paint handler covers all.
class UserControl : public Container {
  public:
    UserControl(Container& parent, const std::string& name, const std::string& windowClass);

    /// Marks all of it, or a part, to be painted anew.
    void invalidate();
    void invalidate(Rect area);
    /// Draws on the control at once, outside a repaint.
    void draw(const std::function<void(Canvas&)>& drawing);

    void setPointer(Pointer pointer);
    Pointer pointer() const;
    void setCapture(bool capture);
    /// Whether the Tab key stops here and a press of the mouse gives it the focus.
    void setTabStop(bool tabStop);
    /// Whether it has the focus and is to show that, as it came by the keyboard; it is painted when this
    /// changes.
    bool showsFocus() const;
    enum class Role { graphic, grouping, separator };
    void setRole(Role role);   ///< what a screen reader takes it for

    std::intptr_t hWnd() const;
    std::intptr_t hDC() const;   ///< valid until the control is gone

    std::function<void(Canvas&)> onPaint;   ///< also for a canvas that is not the screen's
    std::function<void()> onResize;   ///< all of it is marked to be painted
    std::function<void()> onClick;
    std::function<void(MouseButton, int shift, Point)> onMouseDown;
    std::function<void(MouseButton, int shift, Point)> onMouseMove;   ///< the button that is down, or none
    std::function<void(MouseButton, int shift, Point)> onMouseUp;
    std::function<void()> onCaptureLost;   ///< something else took it; giving it back raises nothing
    std::function<void(int notches, int shift, Point)> onWheel;   ///< positive: away from the user; 120 a notch
    std::function<bool(int key, int shift)> onKeyDown;   ///< true: taken; arrows come here too then
};

}  // namespace platform
