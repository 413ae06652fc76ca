#pragma once

#include "platform/win32/form_window.h"

/// Navigation by keyboard, for all windows of the program alike: Tab through all containers in the order in
/// which the controls were made, access keys, Enter on a button, Escape in a dialog, arrow keys among
/// buttons. The system's own serves dialogs only, goes by another order, and lets Escape press buttons.
namespace platform::win32::keyboard {

/// True when the message was such a key and has been dealt with.
bool translate(const MSG& message);

/// The control that gets the focus first.
Control::Native* firstStop(FormWindow& form);

/// A window that can no longer be used gives the focus and the captured mouse away.
void leave(Control::Native& native);

}  // namespace platform::win32::keyboard
