#pragma once

#include <string>
#include <string_view>

#include "platform/win32/windows.h"

namespace platform {

/// UTF-8 as Windows takes it. Lone surrogates survive both ways, so every file name does.
std::wstring wide(std::string_view utf8);
std::string narrow(std::wstring_view utf16);

/// The system's text for one of its error codes, on one line. A code without a text gives "Fehler <number>.".
std::string lastErrorText(DWORD code);

}  // namespace platform
