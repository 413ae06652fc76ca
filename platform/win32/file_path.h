#pragma once

#include <string>
#include <string_view>

namespace platform::files {

/// A path as the system's functions take it, however long it is.
std::wstring systemPath(std::string_view path);

}  // namespace platform::files
