#pragma once

#include <string>
#include <vector>

namespace platform {

/// What a command line tool does, in UTF-8 from its arguments (without the program's own name) to its
/// output. The platform's entry point calls it and returns its result as the exit code. Each tool has one.
int consoleMain(const std::vector<std::string>& arguments);

}  // namespace platform
