#include "platform/bitmap_file.h"

#include <cstdint>
#include <cstdlib>

namespace platform::bitmap_file {

namespace {

constexpr std::int64_t fileHeader = 14;
constexpr std::int64_t coreHeader = 12;  // OS/2: sizes of 16 bits, no compression, colours of three bytes
constexpr std::int64_t infoHeader = 40;
constexpr std::int64_t longestSide = std::int64_t{1} << 31;

enum Compression : std::uint32_t { plain = 0, runs8 = 1, runs4 = 2, masks = 3 };

/// Numbers of the file; what lies behind its end is 0.
struct Numbers {
    std::int64_t at(std::size_t offset, int bytes) const {
        std::uint32_t number = 0;
        for (int i = bytes - 1; i >= 0; --i) {
            const std::size_t place = offset + static_cast<std::size_t>(i);
            number = number << 8 | (place < content.size() ? static_cast<unsigned char>(content[place]) : 0U);
        }
        return number;
    }
    std::int64_t side(std::size_t offset) const {
        return std::abs(std::int64_t{static_cast<std::int32_t>(at(offset, 4))});
    }
    std::string_view content;
};

struct Header {
    explicit Header(std::string_view content) {
        const Numbers n{content};
        pixels = n.at(10, 4);
        bytes = n.at(14, 4);
        const bool core = bytes == coreHeader;
        width = core ? n.at(18, 2) : n.side(18);
        height = core ? n.at(20, 2) : n.side(22);
        bits = n.at(core ? 24 : 28, 2);
        if (!core) {
            compression = static_cast<std::uint32_t>(n.at(30, 4));
            packedBytes = n.at(34, 4);
            colours = n.at(46, 4);
        }
        bytesPerColour = core ? 3 : 4;
        present = static_cast<std::int64_t>(content.size()) - pixels;
    }

    bool known() const { return bytes == coreHeader || bytes >= infoHeader; }
    bool packed() const { return compression == runs8 || compression == runs4; }

    /// Where the palette and the masks end.
    std::int64_t endOfColours() const {
        const std::int64_t possible = bits <= 8 ? std::int64_t{1} << bits : 0;
        const std::int64_t masksBytes = compression == masks && bytes == infoHeader ? 12 : 0;
        return fileHeader + bytes + masksBytes + bytesPerColour * (colours == 0 ? possible : colours);
    }

    /// No product here is larger than 64 bits, whatever numbers stand in the file.
    bool hasItsRows() const {
        const std::int64_t bytesPerRow = (width * bits + 31) / 32 * 4;
        return present >= 0 && (bytesPerRow == 0 || height <= present / bytesPerRow);
    }

    std::int64_t pixels, bytes, width, height, bits;
    std::uint32_t compression = plain;
    std::int64_t packedBytes = 0, colours = 0, bytesPerColour, present;
};

/// Whether no run asks for bytes behind the last one.
bool runsEndWithin(std::string_view runs, bool twoPixelsInAByte) {
    std::size_t at = 0;
    while (at + 1 < runs.size()) {
        const auto count = static_cast<unsigned char>(runs[at]);
        const auto code = static_cast<unsigned char>(runs[at + 1]);
        at += 2;
        if (count != 0 || code == 0) continue;  // a run of one colour, or the end of a row
        if (code == 1) return true;             // the end of the picture
        if (code == 2) {
            at += 2;  // a way to go
        } else {
            const std::size_t stored = twoPixelsInAByte ? (code + 1U) / 2 : code;
            at += (stored + 1) / 2 * 2;
        }
    }
    return at <= runs.size();
}

bool isPossible(const Header& header) {
    const auto bits = header.bits;
    if (header.width == 0 || header.height == 0 || header.width >= longestSide ||
        header.height >= longestSide)
        return false;
    switch (header.compression) {
        case plain:
            return bits == 1 || bits == 4 || bits == 8 || bits == 16 || bits == 24 || bits == 32;
        case runs8:
            return bits == 8;
        case runs4:
            return bits == 4;
        case masks:
            return bits == 16 || bits == 32;
        default:
            return false;
    }
}

}  // namespace

bool isBitmap(std::string_view content) {
    return content.starts_with("BM");
}

bool isCutOff(std::string_view content) {
    const Header header(content);
    return isBitmap(content) && header.known() &&
           (header.compression == plain || header.compression == masks) && !header.hasItsRows();
}

bool isWhole(std::string_view content) {
    const Header header(content);
    if (!isBitmap(content) || !header.known() || !isPossible(header)) return false;
    if (header.endOfColours() > header.pixels || header.present < 0) return false;
    if (!header.packed()) return header.hasItsRows();
    if (header.packedBytes == 0 || header.packedBytes > header.present) return false;
    const auto start = static_cast<std::size_t>(header.pixels);
    return runsEndWithin(content.substr(start, static_cast<std::size_t>(header.packedBytes)),
                         header.compression == runs4);
}

}  // namespace platform::bitmap_file
