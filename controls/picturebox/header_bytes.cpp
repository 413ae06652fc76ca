#include "controls/picturebox/header_bytes.h"

#include <utility>

#include "platform/files.h"

namespace controls {

namespace {

constexpr std::size_t blockSize = 4096;

}  // namespace

HeaderBytes::HeaderBytes(ReadAt readAt) : readAt_(std::move(readAt)) {}

HeaderBytes HeaderBytes::ofFile(std::string fileName) {
    return HeaderBytes([name = std::move(fileName)](std::uint64_t offset, std::size_t count) {
        return platform::files::readAt(name, offset, count);
    });
}

std::optional<std::uint8_t> HeaderBytes::byte(std::uint64_t at) {
    if (at < blockStart_ || at - blockStart_ >= block_.size()) {
        blockStart_ = at < blockSize ? 0 : at;  // what is asked for first may not be what stands first
        block_ = readAt_(blockStart_, blockSize);
        if (at - blockStart_ >= block_.size()) return std::nullopt;
    }
    return static_cast<std::uint8_t>(block_[at - blockStart_]);
}

std::optional<std::uint16_t> HeaderBytes::big16(std::uint64_t at) {
    const auto high = byte(at);
    const auto low = byte(at + 1);
    if (!high || !low) return std::nullopt;
    return static_cast<std::uint16_t>(*high << 8 | *low);
}

std::optional<std::uint16_t> HeaderBytes::little16(std::uint64_t at) {
    const auto low = byte(at);
    const auto high = byte(at + 1);
    if (!high || !low) return std::nullopt;
    return static_cast<std::uint16_t>(*high << 8 | *low);
}

std::optional<std::uint32_t> HeaderBytes::little32(std::uint64_t at) {
    const auto low = little16(at);
    const auto high = little16(at + 2);
    if (!high || !low) return std::nullopt;
    return std::uint32_t{*high} << 16 | *low;
}

}  // namespace controls
