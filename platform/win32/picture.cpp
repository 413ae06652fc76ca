#include "platform/picture.h"

#include "platform/errors.h"
#include "platform/files.h"
#include "platform/win32/picture_decoders.h"

namespace platform {

namespace {

/// The content of the file; what cannot be read is a bad picture too.
std::string contentOf(std::string_view fileName) {
    try {
        return files::read(fileName);
    } catch (const RuntimeError& error) {
        throw RuntimeError(error::badPicture, error.description());
    }
}

}  // namespace

// Read as a whole: decoders that read the file themselves do it in many small steps.
Size decodePicture(std::string_view fileName, Surface& target, Rect area) {
    const std::string content = contentOf(fileName);
    Size size{};
    const std::string refused = win32::decodeByImagingComponent(content, target, area, size);
    if (refused.empty() || win32::decodeByPictureLoader(content, target, area, size)) return size;
    throw RuntimeError(error::badPicture,
                       "Das Bild " + std::string(fileName) + " ist nicht lesbar: " + refused);
}

}  // namespace platform
