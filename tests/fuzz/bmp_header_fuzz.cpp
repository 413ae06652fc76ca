// Any bytes for a bitmap: its header is read or refused, in bounded time, and what is read is a picture. Who
// decodes it reads nothing but the file, and finds the same picture.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>

#include "controls/picturebox/picture_header.h"
#include "memory_file.h"
#include "platform/bitmap_file.h"
#include "platform/errors.h"
#include "platform/picture.h"

namespace {

using platform::Size;

void require(bool holds) {
    if (!holds) std::abort();
}

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

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t length) {
    static const MemoryFile stored;
    const std::string bytes(reinterpret_cast<const char*>(data), length);
    stored.fill(bytes);
    controls::HeaderBytes file = controls::HeaderBytes::ofFile(stored.name());
    controls::ReadBitmapHeaderWords(file);
    const auto header = controls::readBitmapHeader(file);
    require(!header || (header->size.width >= 1 && header->size.height >= 1 && header->bitsPerPixel >= 0));

    const bool whole = platform::bitmap_file::isWhole(bytes);
    require(!whole || !platform::bitmap_file::isCutOff(bytes));
    if (!platform::bitmap_file::isBitmap(bytes)) return 0;
    const auto decoded = sizeBy([] {
        platform::Surface surface({40, 30});
        return platform::decodePicture(stored.name(), surface, {-3, 5, 35, 50});
    });
    const auto read = sizeBy([] { return platform::readRaster(stored.name()).size; });
    require(!read || !platform::bitmap_file::isCutOff(bytes));
    require(!decoded || !read || decoded == read);
    require(!decoded || !header || decoded == header->size);
    return 0;
}
