#include "controls/picturebox/picture_header.h"

#include <limits>

namespace controls {

namespace {

// JPEG: no honest file has more segments before its frame, or more stray bytes between them.
constexpr int mostSegments = 4096;
constexpr int mostStrayBytes = 65536;

constexpr std::uint16_t startOfImage = 0xFFD8;

// Before so much room is made for a picture that it could be missed, its file is asked whether it is long
// enough.
constexpr std::int64_t manyPixels = std::int64_t{1} << 24;

constexpr std::int64_t pixelsOf(platform::Size size) {
    return std::int64_t{size.width} * size.height;
}

bool isAtLeast(HeaderBytes& file, std::int64_t bytes) {
    return file.byte(static_cast<std::uint64_t>(bytes) - 1).has_value();
}

constexpr bool isFrame(std::uint8_t marker) {
    // C4, C8 and CC lie in the frames' range but are tables.
    return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

constexpr bool standsAlone(std::uint8_t marker) {
    return marker == 0x01 || (marker >= 0xD0 && marker <= 0xD8);
}

constexpr bool endsHeaders(std::uint8_t marker) {
    return marker == 0xD9 || marker == 0xDA;
}

/// Walks from marker to marker.
class JpegSegments {
  public:
    explicit JpegSegments(HeaderBytes& file) : file_(file) {}

    /// The next marker; the position is then behind it. Decoders pass over stray bytes, and so does this.
    std::optional<std::uint8_t> nextMarker() {
        bool prefixed = false;
        for (; stray_ < mostStrayBytes; ++stray_) {
            const auto byte = file_.byte(at_++);
            if (!byte) return std::nullopt;
            if (prefixed && *byte != 0xFF && *byte != 0x00) return byte;
            prefixed = *byte == 0xFF;
        }
        return std::nullopt;
    }

    /// Goes behind the segment whose length stands here.
    bool skip() {
        const auto length = file_.big16(at_);
        if (!length || *length < 2) return false;
        at_ += *length;
        return true;
    }

    std::optional<PictureHeader> frame() {
        const auto length = file_.big16(at_);
        const auto precision = file_.byte(at_ + 2);
        const auto height = file_.big16(at_ + 3);
        const auto width = file_.big16(at_ + 5);
        const auto components = file_.byte(at_ + 7);
        if (!length || !precision || !height || !width || !components) return std::nullopt;
        if (*precision == 0 || *height == 0 || *width == 0 || *components == 0) return std::nullopt;
        if (*length < 8 + 3 * *components) return std::nullopt;
        // A block of 8 x 8 pixels takes a bit at least.
        const platform::Size size{*width, *height};
        if (pixelsOf(size) > manyPixels && !isAtLeast(file_, pixelsOf(size) / (8 * 8 * 8)))
            return std::nullopt;
        return PictureHeader{size, *components * *precision};
    }

  private:
    HeaderBytes& file_;
    std::uint64_t at_ = 2;
    int stray_ = 0;
};

}  // namespace

std::optional<PictureHeader> readJpegHeader(HeaderBytes& file) {
    if (file.big16(0) != startOfImage) return std::nullopt;
    JpegSegments segments(file);
    for (int i = 0; i < mostSegments; ++i) {
        const auto marker = segments.nextMarker();
        if (!marker || endsHeaders(*marker)) return std::nullopt;
        if (isFrame(*marker)) return segments.frame();
        if (!standsAlone(*marker) && !segments.skip()) return std::nullopt;
    }
    return std::nullopt;
}

namespace {

constexpr std::uint16_t bitmapMagic = 0x4D42;      // "BM"
constexpr std::uint32_t coreHeader = 12;           // OS/2 1: sizes of 16 bits
constexpr std::uint32_t shortestHeader = 16;       // OS/2 2, cut off behind the bits per pixel
constexpr std::uint32_t longestHeader = 124;       // Windows, version 5
constexpr std::uint32_t runsOf8 = 1, runsOf4 = 2;  // ways to pack rows, so that a file may be of any length

std::optional<PictureHeader> readCoreHeader(HeaderBytes& file) {
    const auto width = file.little16(18);
    const auto height = file.little16(20);
    const auto bits = file.little16(24);
    if (!width || !height || !bits || *width == 0 || *height == 0) return std::nullopt;
    return PictureHeader{{*width, *height}, *bits};
}

std::optional<PictureHeader> readInfoHeader(HeaderBytes& file) {
    const auto storedWidth = file.little32(18);
    const auto storedHeight = file.little32(22);
    const auto bits = file.little16(28);
    if (!storedWidth || !storedHeight || !bits) return std::nullopt;
    const auto width = static_cast<std::int32_t>(*storedWidth);
    const auto height = static_cast<std::int32_t>(*storedHeight);  // negative: rows from the top
    if (width <= 0 || height == 0 || height == std::numeric_limits<std::int32_t>::min()) return std::nullopt;
    const platform::Size size{width, height < 0 ? -height : height};
    const auto compression = file.little32(30);
    const bool packed = compression == runsOf8 || compression == runsOf4;
    // A pixel takes a bit at least.
    if (pixelsOf(size) > manyPixels && !packed && !isAtLeast(file, pixelsOf(size) / 8)) return std::nullopt;
    return PictureHeader{size, *bits};
}

}  // namespace

std::optional<PictureHeader> readBitmapHeader(HeaderBytes& file) {
    if (file.little16(0) != bitmapMagic) return std::nullopt;
    const auto headerSize = file.little32(14);
    if (headerSize == coreHeader) return readCoreHeader(file);
    if (!headerSize || *headerSize < shortestHeader || *headerSize > longestHeader) return std::nullopt;
    return readInfoHeader(file);
}

std::optional<PictureHeader> readPictureHeader(HeaderBytes& file) {
    return file.little16(0) == bitmapMagic ? readBitmapHeader(file) : readJpegHeader(file);
}

HeaderWords ReadBitmapHeaderWords(HeaderBytes& file) {
    return {static_cast<std::int16_t>(file.little16(26).value_or(0)),
            static_cast<std::int16_t>(file.little16(28).value_or(0))};
}

}  // namespace controls
