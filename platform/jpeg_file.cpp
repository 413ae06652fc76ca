#include "platform/jpeg_file.h"

#include <cstddef>

namespace platform::jpeg_file {

namespace {

constexpr int startOfScan = 0xDA;

constexpr bool isFrame(int marker) {
    // C4, C8 and CC lie in the frames' range but are tables.
    return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

constexpr bool hasLength(int marker) {
    return marker != 0x01 && (marker < 0xD0 || marker > 0xD9);
}

}  // namespace

std::optional<Size> size(std::string_view content) {
    if (!content.starts_with("\xFF\xD8")) return std::nullopt;
    const auto byte = [&](std::size_t at) {
        return at < content.size() ? static_cast<unsigned char>(content[at]) : 0;
    };
    const auto word = [&](std::size_t at) { return byte(at) << 8 | byte(at + 1); };
    for (std::size_t at = 2; at < content.size();) {
        const int marker = byte(at) == 0xFF ? byte(at + 1) : 0;
        if (isFrame(marker)) return Size{word(at + 7), word(at + 5)};
        if (marker == startOfScan) return std::nullopt;
        const bool isSegment = marker != 0 && marker != 0xFF && hasLength(marker);
        // Stray bytes, and fill bytes before a marker, go by one at a time.
        at += isSegment ? 2 + static_cast<std::size_t>(word(at + 2)) : 1;
    }
    return std::nullopt;
}

}  // namespace platform::jpeg_file
