// Any bytes for a bitmap: its header is read or refused, in bounded time, and what is read is a picture.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "controls/picturebox/picture_header.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    controls::HeaderBytes file([&](std::uint64_t offset, std::size_t count) {
        return offset < bytes.size() ? bytes.substr(offset, count) : std::string();
    });
    controls::ReadBitmapHeaderWords(file);
    const auto header = controls::readBitmapHeader(file);
    if (header && (header->size.width < 1 || header->size.height < 1 || header->bitsPerPixel < 0))
        std::abort();
    return 0;
}
