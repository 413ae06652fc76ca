#pragma once

#include <string>

namespace shell {

/// Where the program finds its things. Made once by the entry; a test makes its own, so that it touches
/// neither the user's settings nor his folders.
struct Environment {
    std::string programDirectory;                    ///< without a backslash at its end
    std::string registryRoot = "Software\\Veltor2";  ///< of the application's settings
};

}  // namespace shell
