#pragma once

#include <string>

namespace platform {

/// A text as the user reads it: without the "&" of the access key, "&&" as "&".
std::string withoutMnemonic(const std::string& text);
/// A text that shall be shown as it is, where "&" would be taken for an access key.
std::string asMnemonic(const std::string& text);

}  // namespace platform
