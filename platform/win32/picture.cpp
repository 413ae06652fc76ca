#include "platform/picture.h"

#include <cstdint>
#include <new>

#include "platform/bitmap_file.h"
#include "platform/errors.h"
#include "platform/files.h"
#include "platform/jpeg_file.h"
#include "platform/win32/picture_decoders.h"

namespace platform {

namespace {

[[noreturn]] void refuse(const std::string& reason) {
    throw RuntimeError(error::badPicture, "Das Bild ist nicht lesbar: " + reason);
}

constexpr const char* outOfMemory = "der Arbeitsspeicher reicht nicht aus";

/// More than the largest picture takes without being compressed; the rest of such a file is something else.
constexpr std::uint64_t longestFile = std::uint64_t{1} << 30;

/// The content of the file; what cannot be read is a bad picture too.
std::string contentOf(std::string_view fileName) {
    const auto version = files::version(fileName);
    if (version && version->size > longestFile) refuse("die Datei ist zu groß");
    std::string content;
    try {
        content = files::read(fileName);
    } catch (const RuntimeError& error) {
        throw RuntimeError(error::badPicture, error.description());
    }
    // Wine's decoder reckons the bytes of a JPEG in 32 bits and would write behind what it made room for.
    const Size size = jpeg_file::size(content).value_or(Size{});
    if (std::int64_t{size.width} * size.height > Raster::mostPixels) refuse("die Größe ist ungültig");
    return content;
}

/// The older loader believes a bitmap's header.
bool mayGoToOlderLoader(const std::string& content) {
    return !bitmap_file::isBitmap(content) || bitmap_file::isWhole(content);
}

}  // namespace

// Read as a whole: decoders that read the file themselves do it in many small steps.
Size decodePicture(std::string_view fileName, Surface& target, Rect area) try {
    const std::string content = contentOf(fileName);
    Size size{};
    const std::string refused = win32::decodeByImagingComponent(content, target, area, size);
    if (refused.empty() ||
        (mayGoToOlderLoader(content) && win32::decodeByPictureLoader(content, target, area, size)))
        return size;
    refuse(refused);
} catch (const std::bad_alloc&) {
    refuse(outOfMemory);
}

Raster readRaster(std::string_view fileName) try {
    const std::string content = contentOf(fileName);
    if (bitmap_file::isCutOff(content))
        refuse("die Datei ist unvollständig");  // before room is made for its pixels
    Raster raster;
    const std::string refused = win32::readByImagingComponent(content, raster);
    if (refused.empty() || (mayGoToOlderLoader(content) && win32::readByPictureLoader(content, raster)))
        return raster;
    refuse(refused);
} catch (const std::bad_alloc&) {
    refuse(outOfMemory);
}

namespace win32 {

bool sizeRaster(Raster& raster, Size size, int bitsPerPixel) {
    if (size.width <= 0 || size.height <= 0 || std::int64_t{size.width} * size.height > Raster::mostPixels)
        return false;
    raster = {size, bitsPerPixel, {}, {}};
    raster.rows.resize(raster.bytesPerRow() * static_cast<std::size_t>(size.height));
    return true;
}

}  // namespace win32

}  // namespace platform
