#include "tests/support/hostile_pictures.h"

#include <cstdint>
#include <tuple>
#include <utility>

#include "platform/files.h"
#include "tests/support/pictures.h"

namespace support {

namespace {

using namespace std::string_literals;
using Pictures = std::vector<HostilePicture>;

constexpr bool mayShow = true;

// Where a bitmap's header keeps its numbers.
constexpr std::size_t pixelsAt = 10, headerSizeAt = 14, widthAt = 18, heightAt = 22, planesAt = 26,
                      bitsAt = 28, compressionAt = 30, bytesAt = 34, coloursAt = 46, paletteAt = 54;
constexpr std::uint32_t rle8 = 1, rle4 = 2, bitFields = 3;
constexpr std::uint32_t minus1 = 0xFFFFFFFF, least = 0x80000000, most = 0x7FFFFFFF;

std::string indexed(int bits) {
    const std::vector<platform::Colour> palette(std::size_t{1} << bits, 0x123456);
    return paletteBitmap(
        {16, 16}, palette, [](int x, int y) { return (x + y) % 2; }, bits);
}

/// A bitmap of 8 or 4 bits whose rows are packed in the way of `compression`.
std::string packed(std::uint32_t compression, const std::string& rows) {
    const std::string plain = indexed(compression == rle8 ? 8 : 4);
    const std::string head = plain.substr(0, paletteAt + (compression == rle8 ? 1024 : 64));
    return with32(with32(head + rows, compressionAt, compression), bytesAt,
                  static_cast<std::uint32_t>(rows.size()));
}

void addCutOff(Pictures& all) {
    const std::pair<const char*, std::string> whole[] = {
        {".bmp", trueColourBitmap({16, 16}, distinctColour)},
        {".bmp", indexed(8)},
        {".bmp", platform::files::read(golden("packed.bmp"))},
        {".jpg", platform::files::read(golden("orange.jpg"))},
        {".jpg", smallJpeg()}};
    for (const auto& [ending, bytes] : whole) {
        const std::size_t size = bytes.size();
        const std::size_t lengths[] = {0, 1, 2, 17, 29, 53, 54, size / 2, size * 3 / 4, size - 20};
        for (const std::size_t length : lengths)
            if (length < size)
                all.push_back({"cut off at " + std::to_string(length), ending, bytes.substr(0, length)});
        // Whether all pixels are there only the decoder knows.
        for (const std::size_t missing : {1U, 3U})
            all.push_back({"without its last " + std::to_string(missing), ending,
                           bytes.substr(0, size - missing), mayShow});
    }
}

void addWrongBitmaps(Pictures& all) {
    const std::string good = trueColourBitmap({16, 16}, distinctColour);
    const auto size = static_cast<std::uint32_t>(good.size());
    const struct {
        const char* what;
        std::size_t at;
        std::vector<std::uint32_t> refused, perhaps;
    } numbers[] = {
        {"pixels", pixelsAt, {size, size - 1, most, minus1}, {0, 13, 30}},
        {"header", headerSizeAt, {0, 11, 13, 39 + least, most, minus1}, {12, 16, 39, 41, 64, 108, 124}},
        {"width", widthAt, {0, minus1, least, most, 65536, 1000}, {1}},
        {"height", heightAt, {0, least, least + 1, most, 65536, 1000}, {1, minus1 - 14}},
        {"compression", compressionAt, {rle8, 4, 5, minus1}, {rle4, bitFields, 6}},
        {"bytes", bytesAt, {}, {0, 1, most, minus1}},
        {"colours", coloursAt, {}, {1, 257, most, minus1}},
    };
    for (const auto& [what, at, refused, perhaps] : numbers) {
        for (const std::uint32_t n : refused)
            all.push_back({what + " "s + std::to_string(n), ".bmp", with32(good, at, n)});
        for (const std::uint32_t n : perhaps)
            all.push_back({what + " "s + std::to_string(n), ".bmp", with32(good, at, n), mayShow});
    }
    for (const std::uint32_t planes : {0U, 2U, 0xFFFFU})
        all.push_back({"planes " + std::to_string(planes), ".bmp", with16(good, planesAt, planes), mayShow});
    for (const std::uint32_t bits : {0U, 2U, 3U, 7U, 33U, 64U, 0xFFFFU})
        all.push_back({"bits " + std::to_string(bits), ".bmp", with16(good, bitsAt, bits), bits == 2});
    all.push_back({"16 bits without masks", ".bmp",
                   with32(with16(good, bitsAt, 16), compressionAt, bitFields), mayShow});
    all.push_back({"huge", ".bmp", with32(with32(good, widthAt, 30000), heightAt, 30000)});
    all.push_back({"large, no pixels", ".bmp", with32(with32(good, widthAt, 16000), heightAt, 16000)});
}

void addWrongPalettes(Pictures& all) {
    for (const int bits : {1, 4, 8}) {
        const std::string good = indexed(bits);
        for (const std::uint32_t used : {1U, 257U, 0x40000000U, minus1})
            all.push_back({std::to_string(bits) + " bits, colours " + std::to_string(used), ".bmp",
                           with32(good, coloursAt, used), mayShow});
        // The pixels begin where colours should be, and the file ends before the palette does.
        const std::string pixels(16 * 16, '\x1');
        all.push_back({std::to_string(bits) + " bits, palette missing", ".bmp",
                       with32(good.substr(0, paletteAt) + pixels, pixelsAt, paletteAt), mayShow});
    }
}

void addWrongRuns(Pictures& all) {
    const std::string row = "\x10\x01\0\0"s;
    std::string rows;
    for (int i = 0; i < 16; ++i) rows += row;
    const std::pair<const char*, std::string> runs[] = {
        {"no end", rows},
        {"nothing", ""},
        {"one byte", "\x10"},
        {"longer than a row", "\xFF\1\xFF\1\xFF\1\xFF\1\xFF\1\xFF\1\0\1"s},
        {"too many rows", rows + rows + rows + "\0\1"s},
        {"beyond the right", "\0\2\xFF\0\x10\1\0\1"s},
        {"beyond the bottom", "\0\2\0\xFF\x10\1\0\2\xFF\xFF\x10\1\0\1"s},
        {"absolute, cut off", "\0\xFF\1\2\3"s},
        {"delta, cut off", "\0\2\1"s},
    };
    for (const std::uint32_t way : {rle8, rle4}) {
        const std::string name = way == rle8 ? "rle8 " : "rle4 ";
        for (const auto& [what, bytes] : runs)
            all.push_back({name + what, ".bmp", packed(way, bytes), mayShow});
        const std::string good = packed(way, rows + "\0\1"s);
        for (const std::uint32_t bytes : {0U, 1U, 0x10000U, most, minus1})
            all.push_back(
                {name + "bytes " + std::to_string(bytes), ".bmp", with32(good, bytesAt, bytes), mayShow});
        for (const std::uint32_t start : {static_cast<std::uint32_t>(good.size()), most, minus1})
            all.push_back({name + "pixels " + std::to_string(start), ".bmp", with32(good, pixelsAt, start)});
        all.push_back({name + "from the top", ".bmp", with32(good, heightAt, minus1 - 15), mayShow});
        all.push_back({name + "huge", ".bmp", with32(with32(good, widthAt, 30000), heightAt, 30000)});
    }
}

/// The JPEG with another number in its frame header, `offset` bytes behind the marker.
std::string withFrame(std::string jpeg, std::size_t offset, const std::string& bytes) {
    return jpeg.replace(jpeg.find("\xFF\xC0") + offset, bytes.size(), bytes);
}

/// Without the segments of that marker.
std::string without(std::string jpeg, char marker) {
    const std::string start{'\xFF', marker};
    for (std::size_t at = jpeg.find(start); at != std::string::npos; at = jpeg.find(start)) {
        const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(jpeg[i]); };
        jpeg.erase(at, 2 + (std::size_t{byte(at + 2)} << 8 | byte(at + 3)));
    }
    return jpeg;
}

void addWrongJpegs(Pictures& all) {
    const std::string good = smallJpeg();
    const std::size_t frameAt = good.find("\xFF\xC0"), scanAt = good.find("\xFF\xDA");
    const std::string frame = good.substr(frameAt, 19);
    const std::tuple<const char*, std::string, bool> cases[] = {
        {"huge", withFrame(good, 5, "\x75\x30\x75\x30"), false},
        {"the largest", withFrame(good, 5, "\xFF\xDC\xFF\xDC"), false},
        {"large", withFrame(good, 5, "\x3E\x80\x3E\x80"), false},
        {"header only, large", jpegHeader({16000, 16000}), false},
        {"taller", withFrame(good, 5, "\0\x80"s), true},
        {"wider", withFrame(good, 7, "\1\0"s), true},
        {"smaller", withFrame(good, 5, "\0\1\0\1"s), true},
        {"no height", withFrame(good, 5, "\0\0"s), false},
        {"255 components", withFrame(good, 9, "\xFF"), false},
        {"two components", withFrame(good, 9, "\2"), false},
        {"12 bits", withFrame(good, 4, "\x0C"), false},
        {"sampling 0", withFrame(good, 11, "\0"s), false},
        {"sampling 15", withFrame(good, 11, "\xFF"), false},
        {"quantising table 9", withFrame(good, 12, "\x09"), false},
        {"two frames", good.substr(0, frameAt) + frame + good.substr(frameAt), false},
        {"two frames of other sizes",
         good.substr(0, frameAt) + withFrame(frame, 5, "\x10\0\x10\0"s) + good.substr(frameAt), false},
        {"no Huffman tables", without(good, '\xC4'), true},
        {"no quantising tables", without(good, '\xDB'), false},
        {"arithmetic", withFrame(good, 1, "\xC9"), true},
        {"lossless", withFrame(good, 1, "\xC3"), false},
        {"progressive", withFrame(good, 1, "\xC2"), true},
        {"of foreign components", std::string(good).replace(scanAt + 5, 1, "\x77"), false},
        {"no pixels", good.substr(0, scanAt + 14) + "\xFF\xD9", true},
        {"noise for pixels", good.substr(0, scanAt + 14) + std::string(5000, '\xA7'), true},
        {"only starts", std::string(100000, '\xFF').replace(0, 2, "\xFF\xD8"), false},
        {"empty segment", "\xFF\xD8\xFF\xE0\0\0"s + good.substr(2), false},
    };
    for (const auto& [what, bytes, shows] : cases) all.push_back({"JPEG "s + what, ".jpg", bytes, shows});
}

/// What is called a picture and is something else; and pictures of other kinds, under the names of theirs.
void addOtherKinds(Pictures& all) {
    const std::string png = platform::files::read(golden("dark.png"));
    const std::string hugePng = std::string(png).replace(16, 8, "\0\0\x75\x30\0\0\x75\x30"s);
    const std::string gif =
        "GIF89a\xFF\xFF\xFF\xFF\x80\0\0\0\0\0\xFF\xFF\xFF,\0\0\0\0\xFF\xFF\xFF\xFF\0\2\2D\1\0;"s;
    const std::string tiff =
        "II*\0\x08\0\0\0\x02\0\0\1\4\0\1\0\0\0\x30\x75\0\0\1\1\4\0\1\0\0\0\x30\x75\0\0\0\0\0\0"s;
    const std::string icon =
        "\0\0\1\0\1\0\0\0\0\0\1\0\x20\0\xFF\xFF\xFF\x7F\x16\0\0\0"s + std::string(40, '\0');
    const std::pair<const char*, std::string> kinds[] = {
        {".png", png},
        {".png", hugePng},
        {".gif", gif},
        {".tif", tiff},
        {".ico", icon},
        {".svg", "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"30000\"/>"},
        {".txt", "Das ist kein Bild."},
        {".exe", "MZ" + std::string(200, '\0')}};
    for (const auto& [ending, bytes] : kinds) {
        for (const char* name : {".jpg", ".bmp"}) all.push_back({ending + " as "s + name, name, bytes});
        all.push_back({ending, ending, bytes, mayShow});
    }
    all.push_back({"no ending, a JPEG beyond all sizes", ".jpeg",
                   withFrame(smallJpeg(), 5, "\xFF\xDC\xFF\xDC"), mayShow});
}

std::string withNumber(std::string bytes, std::size_t at, std::uint32_t value, int count) {
    for (int i = 0; i < count; ++i)
        bytes.at(at + static_cast<std::size_t>(i)) = static_cast<char>(value >> 8 * i);
    return bytes;
}

}  // namespace

std::string with16(std::string bytes, std::size_t at, std::uint32_t value) {
    return withNumber(std::move(bytes), at, value, 2);
}

std::string with32(std::string bytes, std::size_t at, std::uint32_t value) {
    return withNumber(std::move(bytes), at, value, 4);
}

std::vector<HostilePicture> hostilePictures() {
    Pictures all;
    addCutOff(all);
    addWrongBitmaps(all);
    addWrongPalettes(all);
    addWrongRuns(all);
    addWrongJpegs(all);
    addOtherKinds(all);
    return all;
}

}  // namespace support
