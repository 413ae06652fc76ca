#pragma once

#include <optional>
#include <string>

#include "editor/set_io.h"
#include "platform/files.h"

namespace editor {

/// The file of a set, as it was when this window read or wrote it last.
struct SetFile {
    std::string path;                                 ///< empty: the set has no file yet
    std::optional<platform::files::Version> version;  ///< empty: not known

    /// Whether there is a file that somebody else wrote since.
    bool isReplaced() const;
    /// readSet, and `version` becomes that of exactly what was read. RuntimeError as there.
    LoadedSet read(const std::string& appPath);
};

}  // namespace editor
