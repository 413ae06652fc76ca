#pragma once

#include <string>
#include <vector>

#include "platform/control.h"
#include "platform/form.h"

namespace platform {

namespace headless {
struct FormWindow;
}

/// A window in memory. The tree is made of plain pointers: a control takes itself out when it goes.
struct Control::Native {
    Native(Native* parentWindow, std::string controlName);
    virtual ~Native();
    Native(const Native&) = delete;
    Native& operator=(const Native&) = delete;

    // What a kind of window does about it; most do nothing.
    virtual void resized() {}
    virtual void focusTaken() {}
    virtual void focusLost() {}
    virtual void captureLost() {}
    virtual void invalidateAll() {}
    virtual void paint() {}

    // Keyboard.
    virtual KeyUse keyUse() const { return KeyUse::none; }
    /// Its texts with the "&" of the access key.
    virtual std::vector<std::string> mnemonics() const { return {}; }
    /// A key that the form leaves to it.
    virtual void key(int /*key*/, int /*shift*/) {}

    bool seen() const;                             ///< visible, with all its parents
    bool usable() const;                           ///< seen, and enabled with all its parents
    bool holds(const Native* other) const;         ///< `other` is this window or stands in it
    virtual bool open() const { return enabled; }  ///< its own part of `usable`
    virtual Size clientSize() const { return {bounds.width(), bounds.height()}; }
    void place(Rect where);
    void queuePaint();
    void appeared();               ///< marks it, and all that stands in it, to be painted
    headless::FormWindow* form();  ///< null when its parent is gone
    virtual void setVisible(bool on);
    void setEnabled(bool on);
    void focus();

    Control* control = nullptr;
    Native* parent;
    std::vector<Native*> children;
    std::string name;
    Rect bounds;
    Font font{.face = "Segoe UI"};
    bool visible = true;
    bool enabled = true;
    bool queued = false;  ///< for painting
};

namespace headless {



/// What the key types: digits, capitals and blanks are all that is needed here.
std::string characterOf(int key, int shift);

/// RuntimeError subscriptOutOfRange unless first <= index <= last. Windows would ignore most such calls; here
/// they shall be noticed.
void checkIndex(int index, int first, int last);

}  // namespace headless
}  // namespace platform
