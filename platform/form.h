#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/control.h"
#include "platform/icon_image.h"

namespace platform {

/// What the control that has the focus makes of keys itself.
enum class KeyUse {
    none,     ///< nothing, or arrows: a picture, a tab
    text,     ///< all that is typed goes into it; also a text edited in a list, and a list that has dropped down
    reading,  ///< a text that cannot be changed: Home and End move in it
    press,    ///< Space presses it: buttons of every kind
    rows,     ///< Page Up and Down, Home and End move among its rows, Space chooses one
    range     ///< the same keys but Space move its value: a chooser, a slider
};

/// A top-level window. It is made hidden, laid out for the size that it asks for, and its window class
/// carries its name.
class Form : public Container {
  public:
    struct Options {
        Size clientSize{640, 400};   ///< at first, at 96 dots per inch
        bool dialog = false;         ///< no minimise and maximise boxes, no taskbar entry
        Form* owner = nullptr;
    };

    Form(const std::string& name, const std::string& caption, Options options);
    ~Form() override;

    std::string caption() const;
    void setCaption(const std::string& caption);
    /// In its title bar and where the system shows the window; the program's own at first.
    void setIcon(const IconImage& icon);

    /// Shows and activates the window and paints it.
    void show();
    /// Hides it; ends a `showModal`.
    void hide();
    /// Shows it over its owner, which takes no input meanwhile, and returns when it is hidden or unloaded.
    void showModal();

    /// Asks `onQueryUnload`; unless that refuses, raises `onUnload` and takes the window off the screen for
    /// good. True when it is gone (also when it was already). A running Application ends with its form.
    bool unload();
    bool loaded() const;
    /// Whether a message, one of the system's dialogs or a modal form stands before it and takes its input.
    bool blocked() const;

    /// Smaller than this (outer size, pixels) the user cannot make it. Dialogs use it; the main window has
    /// its Subclassing answer for it.
    void setMinimumSize(Size size);

    /// Position and size in restored state, and whether it is maximised, as text, to be kept between runs.
    /// Set before it is shown it comes in the same size to the eye, whatever the resolution is there now, and
    /// wholly on its monitor, or on the nearest one when that is gone; a text that is none changes nothing.
    std::string placement() const;
    void setPlacement(const std::string& placement);

    std::function<void()> onResize;           ///< also after the font or the resolution changed
    std::function<bool()> onQueryUnload;      ///< false keeps the window
    std::function<void()> onUnload;
    std::function<void()> onActivate;
    /// Files and folders were dropped on the window, by their full paths. Not raised while a dialog blocks it.
    std::function<void(const std::vector<std::string>& paths)> onFilesDropped;
    /// A key without Alt, before the control that has the focus gets it. True: taken.
    std::function<bool(int key, int shift, KeyUse focus)> onKeyDown;
};

/// A frame: holds the controls of one page and is shown and hidden with them. Without a border.
class Panel : public Container {
  public:
    Panel(Container& parent, const std::string& name);
    std::function<void()> onResize;
};

/// Sees a window's messages before the window does.
class Subclassing {
  public:
    explicit Subclassing(Form& form);
    ~Subclassing();
    Subclassing(const Subclassing&) = delete;
    Subclassing& operator=(const Subclassing&) = delete;

    /// Asks for one message, by its number.
    void watch(std::uint32_t message);

    /// Window handle, message number, wParam, lParam and the handled flag, which is 0; -1 says that the
    /// message has been dealt with and goes no further.
    std::function<void(std::intptr_t window, std::uint32_t message, std::uintptr_t wParam,
                       std::intptr_t& lParam, std::int16_t& handled)>
        onMessage;

    struct Native;

  private:
    std::unique_ptr<Native> native_;
};

/// The record that lParam of the message GetMinMaxInfo (36) points to.
struct SizeLimits {
    Point reserved, maxSize, maxPosition, minTrackSize, maxTrackSize;
};
static_assert(sizeof(SizeLimits) == 40);
inline constexpr std::uint32_t getMinMaxInfoMessage = 36;

}  // namespace platform
