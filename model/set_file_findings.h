#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/document.h"

namespace model::set_file {

/// Everything in a set file that does not fit: counts, sections and keys that are missing or too many for
/// them, numbers that are none, classes that the set does not have, pictures that do not exist (relative paths
/// are joined to `appPath`). German sentences that begin with their place, in the order of the file; none for a
/// file in order. Texts that have a default when they are absent are not missed. Says more than `Load`, which
/// stops at the first thing that it cannot understand, and takes what does no harm.
std::vector<std::string> findings(const platform::ProfileDocument& document, std::string_view appPath);

}  // namespace model::set_file
