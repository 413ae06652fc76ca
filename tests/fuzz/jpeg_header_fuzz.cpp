// Any bytes for a JPEG: its header is read or refused, in bounded time, and what is read is a picture. Both
// readers of its size find the same one, so that none lets pass what the other stops.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "controls/picturebox/picture_header.h"
#include "memory_file.h"
#include "platform/errors.h"
#include "platform/jpeg_file.h"
#include "platform/picture.h"

namespace {

void require(bool holds) {
    if (!holds) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t length) {
    static const MemoryFile stored;
    const std::string bytes(reinterpret_cast<const char*>(data), length);
    stored.fill(bytes);
    controls::HeaderBytes file = controls::HeaderBytes::ofFile(stored.name());
    controls::ReadBitmapHeaderWords(file);
    const auto header = controls::readJpegHeader(file);
    require(!header || (header->size.width >= 1 && header->size.height >= 1 && header->bitsPerPixel >= 0));
    const auto size = platform::jpeg_file::size(bytes);
    require(!header || size == header->size);

    constexpr int small = 1000;  // room for larger ones costs more time than it finds faults
    if (!size || size->width > small || size->height > small) return 0;
    try {
        platform::Surface surface({40, 30});
        platform::decodePicture(stored.name(), surface, {-3, 5, 35, 50});
        platform::readRaster(stored.name());
    } catch (const platform::RuntimeError& error) {
        require(error.number() == platform::error::badPicture && !error.description().empty());
    }
    return 0;
}
