#pragma once

#include <memory>
#include <string>

#include "platform/geometry.h"

/// What a window is made of. Every control is a plain member of the form (or control) that holds it, under
/// its own name, and stands in its parent from its construction to its destruction. Positions are pixels in
/// the parent's client area. All of it belongs to the one user-interface thread.
///
/// Events are std::function members that the holder sets. Unless a member says otherwise they are raised by
/// what the user does, not by what the program sets. A RuntimeError that leaves a handler is reported to the
/// user in a message box; the window lives on.
namespace platform {

class Container;

struct Font {
    std::string face;
    int tenthPoints = 90;   ///< 90 is 9 pt
    bool bold = false;
    bool italic = false;
    friend bool operator==(const Font&, const Font&) = default;
};

class Control {
  public:
    struct Native;   ///< the system's side of it, defined by each platform

    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    virtual ~Control();

    const std::string& name() const;

    void move(Rect bounds);
    Rect bounds() const;

    /// Its own flag; a control is seen when its parents are visible too.
    void setVisible(bool visible);
    bool visible() const;
    void setEnabled(bool enabled);
    bool enabled() const;

    void focus();
    bool focused() const;

    /// What a screen reader says for a control that shows no text of its own.
    void setAccessibleName(const std::string& name);
    /// Shown while the mouse rests on the control; empty for none.
    void setToolTip(const std::string& text);

    /// The window's font unless another is set; sized for the monitor, whatever its resolution.
    Font font() const;
    void setFont(const Font& font);

    /// Brings the control's picture on the screen up to date now.
    void update();

    Native& native() const { return *native_; }

  protected:
    explicit Control(std::unique_ptr<Native> native);
    std::unique_ptr<Native> native_;
};

/// A control that others stand in.
class Container : public Control {
  public:
    Size clientSize() const;

  protected:
    using Control::Control;
};

}  // namespace platform
