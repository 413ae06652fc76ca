#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace controls {

/// The bytes of a picture file for one who looks at a few of them only. They are read in blocks, when they
/// are asked for: the size of a picture stands in the first block, or behind some long segments that are
/// skipped unread. What lies behind the end of the file is empty.
class HeaderBytes {
  public:
    /// Up to `count` bytes from `offset`; fewer at the end.
    using ReadAt = std::function<std::string(std::uint64_t offset, std::size_t count)>;

    explicit HeaderBytes(ReadAt readAt);
    /// A file that cannot be read is an empty one.
    static HeaderBytes ofFile(std::string fileName);

    std::optional<std::uint8_t> byte(std::uint64_t at);
    std::optional<std::uint16_t> big16(std::uint64_t at);
    std::optional<std::uint16_t> little16(std::uint64_t at);
    std::optional<std::uint32_t> little32(std::uint64_t at);

  private:
    ReadAt readAt_;
    std::uint64_t blockStart_ = 0;
    std::string block_;
};

}  // namespace controls
