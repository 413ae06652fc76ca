#pragma once

#include <string>

#include "platform/win32/native.h"

/// What screen readers are told of a window. They get the system's own objects, to which names and roles are
/// pinned here; where the system keeps no such notes the window answers for itself.
namespace platform::win32 {

void setAccessibleName(Control::Native& native, const std::string& name);
void setAccessibleRole(const Control::Native& native, long role);

/// The answer to a WM_GETOBJECT; none when the system's is right.
Handled accessibleObject(const Control::Native& native, const Message& m);

}  // namespace platform::win32
