#pragma once

#include <string>

#include "platform/win32/windows.h"

namespace platform::win32 {

/// What screen readers say for a window, instead of what they would guess. A system that cannot keep such
/// names goes without.
void setAccessibleName(HWND window, const std::string& name);

}  // namespace platform::win32
