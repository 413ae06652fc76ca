#pragma once

#include <string>
#include <string_view>

namespace platform::files {

/// The path of this machine that is meant: drive Z: is the root, and case does not count. Empty for another
/// drive or a share.
std::string systemPath(std::string_view path);

}  // namespace platform::files
