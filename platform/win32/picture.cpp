#include "platform/picture.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <new>

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

std::uint32_t numberAt(const std::string& content, std::size_t offset) {
    std::uint32_t number = 0;
    if (content.size() >= offset + sizeof number)
        std::memcpy(&number, content.data() + offset, sizeof number);
    return number;
}

/// An uncompressed bitmap whose pixels end before its header says so. The older loader would show whatever
/// lies in memory behind them.
bool isCutOffBitmap(const std::string& content) {
    constexpr std::uint32_t informationHeader = 40;
    if (!content.starts_with("BM") || numberAt(content, 14) < informationHeader) return false;
    constexpr std::uint32_t uncompressed = 0, masked = 3;
    const std::uint32_t compression = numberAt(content, 30);
    if (compression != uncompressed && compression != masked) return false;
    // Any numbers may stand in a header, so nothing is multiplied that could be larger than 64 bits.
    const auto magnitude = [&](std::size_t offset) {
        return std::abs(static_cast<std::int64_t>(static_cast<std::int32_t>(numberAt(content, offset))));
    };
    const std::int64_t bitsPerPixel = numberAt(content, 28) & 0xFFFF;
    const std::int64_t bytesPerRow = (magnitude(18) * bitsPerPixel + 31) / 32 * 4;
    const std::int64_t present = static_cast<std::int64_t>(content.size()) - numberAt(content, 10);
    return present < 0 || (bytesPerRow > 0 && magnitude(22) > present / bytesPerRow);
}

[[noreturn]] void refuse(const std::string& reason) {
    throw RuntimeError(error::badPicture, "Das Bild ist nicht lesbar: " + reason);
}

}  // namespace

// Read as a whole: decoders that read the file themselves do it in many small steps.
Size decodePicture(std::string_view fileName, Surface& target, Rect area) {
    const std::string content = contentOf(fileName);
    Size size{};
    const std::string refused = win32::decodeByImagingComponent(content, target, area, size);
    if (refused.empty()) return size;
    if (!isCutOffBitmap(content) && win32::decodeByPictureLoader(content, target, area, size)) return size;
    refuse(refused);
}

Raster readRaster(std::string_view fileName) try {
    const std::string content = contentOf(fileName);
    if (isCutOffBitmap(content)) refuse("die Datei ist unvollständig");  // before room is made for its pixels
    Raster raster;
    const std::string refused = win32::readByImagingComponent(content, raster);
    if (!refused.empty() && !win32::readByPictureLoader(content, raster)) refuse(refused);
    return raster;
} catch (const std::bad_alloc&) {
    refuse("der Arbeitsspeicher reicht nicht aus");
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
