#pragma once

#include <memory>

#include "shell/editor_window.h"
#include "shell/environment.h"

namespace editor {

/// The editor's window, not yet shown.
std::unique_ptr<shell::EditorWindow> makeWindow(const shell::Environment& environment);

}  // namespace editor
