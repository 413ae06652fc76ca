#pragma once

#include <string>
#include <string_view>

namespace platform::win32 {

/// The path on a command line (which is given without the program's own name): the first argument, without
/// quotes; or all of it, if that is the path of one existing file whose blanks nobody has quoted.
std::string commandLinePath(std::wstring_view commandLine);

}  // namespace platform::win32
