#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/basic_controls.h"
#include "platform/form.h"
#include "platform/list_view.h"
#include "platform/timer.h"
#include "platform/toolbar.h"
#include "platform/user_control.h"

/// What a person does at the window: tests act through these functions and know nothing of the platform
/// below. One implementation sends real messages to real windows, the other drives the ones in memory.
/// What nobody could do at a real window (press a disabled button, click a control on a hidden page) throws
/// std::logic_error, which fails the test. Indices count as in the headers of the controls.
namespace user {

/// Whether a person could act on it now: the control and all its parents are visible and enabled.
bool reachable(const platform::Control& control);

void press(platform::Button& button);
void check(platform::CheckBox& box, bool on);  ///< a click, when it is not in that state
/// Replaces the whole text in one step, as pasting does.
void type(platform::TextBox& box, const std::string& text);
void type(platform::ComboBox& box, const std::string& text);
void commit(platform::TextBox& box);  ///< Enter
void choose(platform::ComboBox& box, int index);
void selectTab(platform::TabStrip& tabs, int index);

/// Row 0 is the empty space below the rows.
void clickRow(platform::ListView& list, int row, int shift = 0,
              platform::MouseButton button = platform::MouseButton::left);
void doubleClickRow(platform::ListView& list, int row);
void clickColumn(platform::ListView& list, int column);
void key(platform::ListView& list, int key, int shift = 0);
/// A point in the row's text, in the list's client area; the row must be in view.
platform::Point pointOf(platform::ListView& list, int row);
/// The text that the list shows there.
std::string shown(platform::ListView& list, int row, int subItem);
bool editing(platform::ListView& list);
/// Replaces the text being edited and presses Enter, or Escape.
void finishEdit(platform::ListView& list, const std::string& text);
void abandonEdit(platform::ListView& list);

/// Drags the thumb there in one move and lets it go.
void scroll(platform::ScrollBar& bar, int value);
void step(platform::ScrollBar& bar, int count);   ///< clicks its arrows, negative: up or left
void page(platform::ScrollBar& bar, int count);   ///< clicks beside its thumb
void slide(platform::Slider& slider, int value);  ///< by the thumb as well

void press(platform::Toolbar& toolbar, const std::string& key);
/// Opens the drop-down menu of `parentKey` and chooses an entry.
void chooseMenu(platform::Toolbar& toolbar, const std::string& parentKey, const std::string& entryKey);

/// Points lie in the control's client area; while it has the mouse captured they may lie outside. A button
/// that is held down during a move is the one given there.
void mouseDown(platform::UserControl& control, platform::MouseButton button, int shift,
               platform::Point point);
void mouseMove(platform::UserControl& control, platform::MouseButton button, int shift,
               platform::Point point);
void mouseUp(platform::UserControl& control, platform::MouseButton button, int shift, platform::Point point);
/// As in `onWheel`: 120 a notch, away from the person.
void wheel(platform::UserControl& control, int notches, int shift, platform::Point point);
void key(platform::UserControl& control, int key, int shift = 0);
/// Something else takes the mouse away, as another program does that comes to the front.
void takeCapture(platform::UserControl& control);

/// A key goes to whatever has the focus in the window, the window first.
void key(platform::Form& form, int key, int shift = 0);
/// Its texts with the "&" of their access keys.
std::vector<std::string> mnemonics(const platform::Control& control);

/// By the window's border, so its limits hold.
void resize(platform::Form& form, platform::Size client);
/// The close box. True when the window is gone.
bool close(platform::Form& form);
/// Drops files from the Explorer.
void drop(platform::Form& form, const std::vector<std::string>& paths);
/// A message from another program to the window.
void send(platform::Form& form, std::uint32_t message, std::uintptr_t wParam, std::intptr_t lParam);

/// Handles messages until there are none: posted actions run, windows are painted.
void pump();
/// Does so until the condition holds or the time is over; timers tick meanwhile. The condition at the end.
bool pumpUntil(const std::function<bool()>& condition, int milliseconds);
/// One tick of a running timer without waiting for it; nothing happens when it is off.
void tick(platform::Timer& timer);

/// As long as it lives, `act` is called for every form that is shown modally, from the form's own message
/// loop; it may act on the form, and need not end it in one go: it is called until the form is gone.
class ModalUser {
  public:
    explicit ModalUser(std::function<void(platform::Form&)> act);
    ~ModalUser();
    ModalUser(const ModalUser&) = delete;
    ModalUser& operator=(const ModalUser&) = delete;
};

/// The controls that stand in it, in the order in which they were made.
std::vector<platform::Control*> childrenOf(const platform::Control& control);
/// The control of that name in the form, at whatever depth; std::logic_error when there is none.
platform::Control& find(platform::Form& form, std::string_view name);
template <class C>
C& find(platform::Form& form, std::string_view name) {
    return dynamic_cast<C&>(find(form, name));
}

/// Pixels in memory, rows from the top, 0x00RRGGBB.
struct Picture {
    platform::Size size;
    std::vector<platform::Colour> pixels;

    platform::Colour at(platform::Point p) const {
        return pixels.at(static_cast<std::size_t>(p.y) * static_cast<std::size_t>(size.width) +
                         static_cast<std::size_t>(p.x));
    }
    friend bool operator==(const Picture&, const Picture&) = default;
};

/// What stands on the screen, after the repaints that are due. The control must be in view.
Picture screen(platform::UserControl& control);
/// A fresh, full repaint into memory: what should stand on the screen.
Picture printed(platform::UserControl& control);

}  // namespace user
