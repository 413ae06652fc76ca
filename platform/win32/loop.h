#pragma once

#include <functional>

#include "platform/win32/windows.h"

/// The message loop.
namespace platform::win32 {

/// Handles messages as long as the condition holds, or until the program is told to quit.
void runWhile(const std::function<bool()>& condition);
/// Handles one message: as navigation by keyboard, or by its window.
void dispatch(const MSG& message);
/// Handles what is in the queue; false when there was nothing.
bool handlePending();
/// The same without the mouse and key messages that are not for `only` or a window in it; true when one of
/// these was the Escape key.
bool handlePendingFor(HWND only);

/// Whether the wait pointer is to be shown.
bool waiting();

}  // namespace platform::win32
