#include "tests/support/pictures.h"

#include <cstddef>

#include "platform/files.h"

namespace support {

namespace {

constexpr std::uint32_t fileHeaderSize = 14;
constexpr std::uint32_t infoHeaderSize = 40;

std::string little(std::uint32_t value, int count) {
    std::string bytes;
    for (int i = 0; i < count; ++i) bytes += static_cast<char>(i < 4 ? value >> (8 * i) : 0);
    return bytes;
}

/// Both headers, the palette and the pixels, of which less than 8 bits are packed into bytes.
std::string bitmap(platform::Size size, int bits, RowOrder order,
                   const std::vector<platform::Colour>& palette, const Pattern& value) {
    std::string rows;
    for (int row = 0; row < size.height; ++row) {
        const int y = order == RowOrder::topDown ? row : size.height - 1 - row;
        const int together = bits < 8 ? 8 / bits : 1;
        for (int x = 0; x < size.width; x += together) {
            std::uint32_t packed = value(x, y);  // the leftmost pixel in the highest bits
            for (int i = x + 1; i < x + together; ++i)
                packed = packed << bits | (i < size.width ? value(i, y) : 0);
            rows += little(packed, bits < 8 ? 1 : bits / 8);
        }
        while (rows.size() % 4 != 0) rows += '\0';
    }
    const auto start = static_cast<std::uint32_t>(fileHeaderSize + infoHeaderSize + 4 * palette.size());
    const int height = order == RowOrder::topDown ? -size.height : size.height;
    std::string bytes = "BM" + little(start + static_cast<std::uint32_t>(rows.size()), 4) + little(0, 4) +
                        little(start, 4) + little(infoHeaderSize, 4);
    for (const int extent : {size.width, height}) bytes += little(static_cast<std::uint32_t>(extent), 4);
    bytes += little(1, 2) + little(static_cast<std::uint32_t>(bits), 2) + little(0, 4);  // not compressed
    bytes += little(static_cast<std::uint32_t>(rows.size()), 4) + little(0, 4) + little(0, 4);
    bytes += little(static_cast<std::uint32_t>(palette.size()), 4) + little(0, 4);
    for (const platform::Colour colour : palette) bytes += little(colour, 4);
    return bytes + rows;
}

}  // namespace

platform::Colour distinctColour(int x, int y) {
    const auto column = static_cast<platform::Colour>(x);
    const auto row = static_cast<platform::Colour>(y);
    return (column * 7 % 256) << 16 | (row * 11 % 256) << 8 | (column + row * 16) % 256;
}

std::string trueColourBitmap(platform::Size size, const Pattern& pattern, int bitsPerPixel, RowOrder order) {
    return bitmap(size, bitsPerPixel, order, {}, pattern);
}

std::string paletteBitmap(platform::Size size, const std::vector<platform::Colour>& palette,
                          const std::function<int(int x, int y)>& index, int bitsPerPixel, RowOrder order) {
    return bitmap(size, bitsPerPixel, order, palette,
                  [&](int x, int y) { return static_cast<platform::Colour>(index(x, y)); });
}

std::string golden(const std::string& name) {
    return platform::files::fullPath(STICH_SOURCE_DIR "/tests/golden/" + name);
}

std::string smallJpeg() {
    return platform::files::read(golden("halves.jpg"));
}

std::string jpegHeader(platform::Size size) {
    const auto word = [](int value) {
        return std::string{static_cast<char>(value >> 8), static_cast<char>(value)};  // big-endian
    };
    using namespace std::string_literals;
    return "\xFF\xD8\xFF\xE0\x00\x10JFIF\x00\x01\x01\x00\x00\x01\x00\x01\x00\x00"s + "\xFF\xC0\x00\x0B\x08"s +
           word(size.height) + word(size.width) + "\x01\x01\x11\x00"s;
}

}  // namespace support
