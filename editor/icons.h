#pragma once

#include <vector>

#include "platform/canvas.h"
#include "platform/icon_image.h"
#include "platform/toolbar.h"

namespace editor {

/// Index of a picture file's icon.
namespace pictureKind {
inline constexpr int bitmap = 0;
inline constexpr int jpeg = 1;
}  // namespace pictureKind

/// Icons of picture files, `size` pixels each way, in the order of pictureKind. They stand out from `ground`.
std::vector<platform::IconImage> pictureIcons(int size, platform::Colour ground);

/// Images of the picture toolbar under the keys of its buttons and menu entries.
std::vector<platform::Toolbar::Image> toolbarImages(int size, platform::Colour ground);

}  // namespace editor
