#include "controls/picturebox/picture_header.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <limits>
#include <optional>
#include <string>

namespace {

using namespace controls;
using platform::Size;

HeaderBytes in(const std::string& bytes) {
    return HeaderBytes([bytes](std::uint64_t offset, std::size_t count) {
        return offset < bytes.size() ? bytes.substr(offset, count) : std::string();
    });
}

std::string number(std::uint32_t value, int count) {
    std::string bytes;
    for (int i = 0; i < count; ++i) bytes += static_cast<char>(value >> 8 * i);
    return bytes;
}

std::string bitmap(std::uint32_t headerSize, std::int32_t width, std::int32_t height, std::uint32_t bits) {
    const std::string start = "BM" + std::string(12, '\0') + number(headerSize, 4);
    const int bytes = headerSize == 12 ? 2 : 4;
    return start + number(static_cast<std::uint32_t>(width), bytes) +
           number(static_cast<std::uint32_t>(height), bytes) + number(1, 2) + number(bits, 2);
}

struct Case {
    const char* what;
    std::string bytes;
    int bits = 0;  ///< 0: refused
    Size size{640, 480};
};

void expectRead(const Case& c, const std::function<std::optional<PictureHeader>(HeaderBytes&)>& read) {
    HeaderBytes file = in(c.bytes);
    const auto header = read(file);
    ASSERT_EQ(header.has_value(), c.bits > 0) << c.what;
    if (!header) return;
    EXPECT_EQ(header->size, c.size) << c.what;
    EXPECT_EQ(header->bitsPerPixel, c.bits) << c.what;
}

TEST(BitmapHeader, IsReadInEveryVersionAndRefusedWhereItIsNone) {
    const std::int32_t least = std::numeric_limits<std::int32_t>::min();
    const std::string good = bitmap(40, 640, 480, 24);
    const Case cases[] = {
        {"usual", good, 24},
        {"rows from the top", bitmap(40, 640, -480, 32), 32},
        {"OS/2", bitmap(12, 640, 480, 8), 8},
        {"OS/2 has no negative numbers", bitmap(12, 65535, 40000, 1), 1, {65535, 40000}},
        {"version 4", bitmap(108, 640, 480, 16), 16},
        {"too large for so short a file", bitmap(40, 30000, 30000, 24)},
        {"empty", ""},
        {"another kind", "BA" + good.substr(2)},
        {"one byte short", good.substr(0, good.size() - 1)},
        {"header before the shortest", bitmap(15, 640, 480, 24)},
        {"header between the versions", bitmap(13, 640, 480, 24)},
        {"header behind the longest", bitmap(125, 640, 480, 24)},
        {"negative width", bitmap(40, -640, 480, 24)},
        {"height that has no positive", bitmap(40, 640, least, 24)},
        {"no width", bitmap(40, 0, 480, 24)},
        {"no height", bitmap(40, 640, 0, 24)},
        {"OS/2 without width", bitmap(12, 0, 480, 24)},
        {"OS/2 without height", bitmap(12, 640, 0, 24)},
    };
    for (const Case& c : cases) expectRead(c, readBitmapHeader);
}

std::string segment(int marker, std::size_t content) {
    const std::size_t length = content + 2;
    return std::string{'\xFF', static_cast<char>(marker), static_cast<char>(length >> 8),
                       static_cast<char>(length)} +
           std::string(content, '\xFF');  // content that looks like markers
}

/// Length, precision, height, width and components of a frame.
std::string frame(int marker, Size size, int components = 3, int precision = 8, int length = -1) {
    std::string bytes{'\xFF', static_cast<char>(marker), 0,
                      static_cast<char>(length < 0 ? 8 + 3 * components : length),
                      static_cast<char>(precision)};
    for (const int n : {size.height, size.width}) {
        bytes += static_cast<char>(n >> 8);
        bytes += static_cast<char>(n);
    }
    return bytes + static_cast<char>(components);
}

const std::string soi = "\xFF\xD8";

TEST(JpegHeader, IsReadWhereverTheFrameStandsAndRefusedWithoutASize) {
    const std::string good = frame(0xC0, {640, 480});
    const Case cases[] = {
        {"at once", soi + good, 24},
        {"progressive", soi + frame(0xC2, {640, 480}), 24},
        {"the last kind", soi + frame(0xCF, {640, 480}), 24},
        {"grey", soi + frame(0xC0, {640, 480}, 1), 8},
        {"four colours of 12 bits", soi + frame(0xC1, {640, 480}, 4, 12), 48},
        {"behind tables that have frames' numbers",
         soi + segment(0xC4, 20) + segment(0xC8, 3) + segment(0xCC, 2) + good, 24},
        {"behind the longest segments", soi + segment(0xE1, 65533) + segment(0xE2, 65533) + good, 24},
        {"behind an empty segment and a restart marker", soi + segment(0xFE, 0) + "\xFF\xD0\xFF\x01" + good,
         24},
        {"behind fill bytes and stray ones",
         soi + "\xFF\xFF" + segment(0xE0, 14) + std::string("\0\0ab\xFF\0", 6) + good, 24},
        {"too large for so short a file", soi + frame(0xC0, {65535, 65500})},
        {"empty", ""},
        {"one byte short", soi + good.substr(0, good.size() - 1)},
        {"no height (it would follow the pixels)", soi + frame(0xC0, {640, 0})},
        {"no width", soi + frame(0xC0, {0, 480})},
        {"no components", soi + frame(0xC0, {640, 480}, 0)},
        {"no precision", soi + frame(0xC0, {640, 480}, 3, 0)},
        {"frame shorter than its components", soi + frame(0xC0, {640, 480}, 3, 8, 16)},
        {"the pixels start first", soi + segment(0xDA, 10) + good},
        {"the file ends first", soi + "\xFF\xD9" + good},
        {"a segment without room for its length", soi + std::string("\xFF\xE0\0\1", 4) + good},
        {"a segment behind the end", soi + segment(0xE1, 60000).substr(0, 50)},
    };
    for (const Case& c : cases) expectRead(c, readJpegHeader);
}

TEST(JpegHeader, GivesUpInFilesMadeToHoldItUp) {
    HeaderBytes endless([](std::uint64_t, std::size_t count) { return std::string(count, '\xFF'); });
    EXPECT_FALSE(readJpegHeader(endless));
    int reads = 0;
    HeaderBytes segments([&](std::uint64_t offset, std::size_t count) {
        ++reads;
        std::string bytes = offset == 0 ? soi : "";
        while (bytes.size() < count) bytes += segment(0xE1, 0);
        return bytes.substr(0, count);
    });
    EXPECT_FALSE(readJpegHeader(segments));
    EXPECT_LT(reads, 100);
}

TEST(PictureHeader, OfALargePictureIsBelievedWhenTheFileIsLongEnough) {
    const std::string start = soi + frame(0xC0, {65535, 65500});
    constexpr std::uint64_t enough = 65535ULL * 65500 / 512;
    for (const std::uint64_t length : {enough - 1, enough}) {
        HeaderBytes file([&](std::uint64_t offset, std::size_t count) {
            std::string bytes = offset < start.size() ? start.substr(offset, count) : std::string();
            if (offset < length) bytes.resize(std::min<std::uint64_t>(count, length - offset));
            return bytes;
        });
        EXPECT_EQ(readPictureHeader(file).has_value(), length == enough);
    }
}

TEST(HeaderWords, AreWhateverStandsThere) {
    const struct {
        std::string bytes;
        int planes, bitCount;
    } cases[] = {
        {bitmap(40, 640, 480, 24), 1, 24},
        {std::string(26, '\xAA') + std::string("\x34\x92\xFF\xFF", 4), static_cast<std::int16_t>(0x9234), -1},
        {std::string(28, '\1'), 0x0101, 0},  // ends between the two
        {"", 0, 0},
    };
    for (const auto& c : cases) {
        HeaderBytes file = in(c.bytes);
        const HeaderWords words = ReadBitmapHeaderWords(file);
        EXPECT_EQ(words.planes, c.planes) << c.bytes.size();
        EXPECT_EQ(words.bitCount, c.bitCount) << c.bytes.size();
    }
}

}  // namespace
