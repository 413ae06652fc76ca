#pragma once

#include "platform/win32/windows.h"

/// The mouse wheel turns what lies under the pointer, whatever has the focus. Some systems do so themselves,
/// others leave it to a setting of the user.
namespace platform::win32::wheel {

/// What a control makes of the wheel.
enum class Use {
    turns,    ///< or leaves it to its parent
    ignores,  ///< a value that nobody would want to change in passing
    keeps     ///< wherever the pointer is: a list that has dropped down
};

/// Makes a message of the wheel one to the window under the pointer; a wheel that turns sideways becomes one
/// with the Shift key. False when it means nothing there. Other messages stay as they are: true.
bool aim(MSG& message);

}  // namespace platform::win32::wheel
