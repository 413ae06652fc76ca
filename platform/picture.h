#pragma once

#include <string_view>

#include "platform/surface.h"

namespace platform {

/// Decodes a bitmap or JPEG file straight into the surface: the picture's top left comes to the top left
/// of `area`, 1:1, and what does not fit into `area` is left out; what it does not cover stays as it was.
/// Returns the picture's own size. RuntimeError badPicture with the decoder's reason; the surface may then
/// hold a part of the picture.
Size decodePicture(std::string_view fileName, Surface& target, Rect area);

}  // namespace platform
