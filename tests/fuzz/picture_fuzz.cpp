// Any bytes for a picture: its header is read or refused, in bounded time, and what is read is a picture. All
// readers of its size find the same one, so that none lets pass what another stops, and who decodes it reads
// nothing but the file.
#include <optional>

#include "controls/picturebox/picture_header.h"
#include "fuzz.h"
#include "platform/bitmap_file.h"
#include "platform/errors.h"
#include "platform/jpeg_file.h"
#include "platform/picture.h"

namespace {

using platform::Size;

/// The size that the action answers; empty when it refuses the file.
template <class Action>
std::optional<Size> sizeBy(Action action) {
    try {
        return action();
    } catch (const platform::RuntimeError& error) {
        require(error.number() == platform::error::badPicture && !error.description().empty());
        return std::nullopt;
    }
}

/// The sizes of the picture that is shown and of the one that is cut from, if any.
std::pair<std::optional<Size>, std::optional<Size>> decoded(const std::string& file) {
    return {sizeBy([&] {
                platform::Surface surface({40, 30});
                return platform::decodePicture(file, surface, {-3, 5, 35, 50});
            }),
            sizeBy([&] { return platform::readRaster(file).size; })};
}

void checkHeader(const std::optional<controls::PictureHeader>& header) {
    require(!header || (header->size.width >= 1 && header->size.height >= 1 && header->bitsPerPixel >= 0));
}

void asBitmap(const std::string& bytes, const MemoryFile& stored) {
    controls::HeaderBytes file = controls::HeaderBytes::ofFile(stored.name());
    const auto header = controls::readBitmapHeader(file);
    checkHeader(header);
    const bool isCutOff = platform::bitmap_file::isCutOff(bytes);
    require(!platform::bitmap_file::isWhole(bytes) || !isCutOff);
    if (!platform::bitmap_file::isBitmap(bytes)) return;
    const auto [shown, read] = decoded(stored.name());
    require(!read || !isCutOff);
    require(!shown || !read || shown == read);
    require(!shown || !header || shown == header->size);
}

void asJpeg(const std::string& bytes, const MemoryFile& stored) {
    controls::HeaderBytes file = controls::HeaderBytes::ofFile(stored.name());
    const auto header = controls::readJpegHeader(file);
    checkHeader(header);
    const auto size = platform::jpeg_file::size(bytes);
    require(!header || size == header->size);
    constexpr int small = 1000;  // room for larger ones costs more time than it finds faults
    if (size && size->width <= small && size->height <= small) decoded(stored.name());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t length) {
    static const MemoryFile stored;
    const std::string bytes(reinterpret_cast<const char*>(data), length);
    stored.fill(bytes);
    controls::HeaderBytes file = controls::HeaderBytes::ofFile(stored.name());
    controls::ReadBitmapHeaderWords(file);
    asBitmap(bytes, stored);
    asJpeg(bytes, stored);
    return 0;
}
