#pragma once

#include <optional>
#include <string_view>

#include "platform/geometry.h"

namespace platform::jpeg_file {

/// The size that the first frame header of a JPEG tells, before its pixels begin; empty for other content.
/// Whatever a decoder passes over on its way there is passed over here.
std::optional<Size> size(std::string_view content);

}  // namespace platform::jpeg_file
