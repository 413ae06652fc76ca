#pragma once

#include <functional>

#include "platform/control.h"
#include "platform/win32/windows.h"

/// The message loop.
namespace platform::win32 {

/// Handles messages as long as the condition holds, or until the program is told to quit.
void runWhile(const std::function<bool()>& condition);
/// Handles one message: as navigation by keyboard, or by its window.
void dispatch(const MSG& message);
/// Handles what is in the queue; false when there was nothing.
bool handlePending();
/// The same while the program waits, see application::doEventsFor.
bool handlePendingFor(Control::Native& only);

/// Whether the control may be used now: not while the program waits and it stands outside of what can be used
/// meanwhile.
bool takesInput(const Control::Native& native);
/// What had the focus before the program began to wait with this one; null when nothing had that still has a
/// use for it.
HWND focusBefore(const Control::Native& waitedWith);

/// Whether the wait pointer is to be shown.
bool waiting();

}  // namespace platform::win32
