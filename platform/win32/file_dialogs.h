#pragma once

#include <string>

#include "platform/dialogs.h"
#include "platform/win32/windows.h"

namespace platform::win32 {

/// The system's dialogs behind `showOpenFile` and `chooseFolder`.
std::string askForFile(HWND owner, const OpenFileRequest& request);
std::string askForFolder(HWND owner, const std::string& title, const std::string& start);

}  // namespace platform::win32
