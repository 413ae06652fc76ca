#pragma once

#include <string>

#include "shell/editor_window.h"
#include "shell/environment.h"

namespace shell {

/// The program: opens the editor, on the set that the command line names if it is there, and returns the
/// exit code once the user is done.
int Main(const std::string& commandLine);

/// The steps up to the window on the screen. False when the set on the command line was given up and the
/// program ends at once.
bool start(EditorWindow& editor, const Environment& environment, const std::string& commandLine);

}  // namespace shell
