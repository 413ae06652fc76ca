#pragma once

#include <functional>
#include <string>

#include "platform/files.h"

namespace shell {

/// Where the program finds its things. Made once by the entry; a test makes its own, so that it touches
/// neither the user's settings nor his folders.
struct Environment {
    std::string programDirectory;                    ///< without a backslash at its end
    std::string registryRoot = "Software\\Veltor2";  ///< of the application's settings
    /// How the files of a directory are learned; called on a thread of its own.
    std::function<std::vector<std::string>(std::string_view directory, const platform::files::Continue& goOn)>
        fileNames = platform::files::foldedFileNames;
    /// Where changes that are not saved are kept in case the program breaks down; empty keeps none.
    std::string journalDirectory{};
};

}  // namespace shell
