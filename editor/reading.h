#pragma once

#include <memory>

#include "editor/journal_file.h"
#include "editor/set_file.h"
#include "editor/set_io.h"

namespace editor {

/// What is read beside the window; the thread that reads holds it, too.
struct Reading {
    SetFile file;
    std::unique_ptr<JournalFile> left;  ///< when this is read instead of the file
    LoadedSet loaded;
    PictureFiles pictures;  ///< of the set that was loaded
};

}  // namespace editor
