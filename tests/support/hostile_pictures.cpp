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
constexpr std::uint32_t rle8 = 1, rle4 = 2;

/// The bytes with a number in the place of others, as bitmaps store it.
std::string with(std::string bytes, std::size_t at, std::uint32_t value, std::size_t count = 4) {
    for (std::size_t i = 0; i < count; ++i) bytes.at(at + i) = static_cast<char>(value >> 8 * i);
    return bytes;
}

std::string indexed(int bits) {
    const std::vector<platform::Colour> palette(std::size_t{1} << bits, 0x123456);
    return paletteBitmap(
        {16, 16}, palette, [](int x, int y) { return (x + y) % 2; }, bits);
}

/// A bitmap of 8 or 4 bits whose rows are packed in the way of `compression`.
std::string packed(std::uint32_t compression, const std::string& rows) {
    const std::string plain = indexed(compression == rle8 ? 8 : 4);
    const std::string head = plain.substr(0, paletteAt + (compression == rle8 ? 1024 : 64));
    return with(with(head + rows, compressionAt, compression), bytesAt,
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

std::string runs(int rows) {
    std::string all;
    while (rows-- > 0) all += "\x10\x01\0\0"s;
    return all;
}

void addWrongBitmaps(Pictures& all) {
    const std::string good = trueColourBitmap({16, 16}, distinctColour);
    const std::pair<const char*, std::string> bitmaps[] = {{"24 bits", good},
                                                           {"1 bit", indexed(1)},
                                                           {"8 bits", indexed(8)},
                                                           {"rle8", packed(rle8, runs(16) + "\0\1"s)},
                                                           {"rle4", packed(rle4, runs(16) + "\0\1"s)}};
    constexpr std::size_t fields[] = {pixelsAt, headerSizeAt,  widthAt, heightAt,
                                      planesAt, compressionAt, bytesAt, coloursAt};
    for (const auto& [what, bytes] : bitmaps)
        for (const std::size_t at : fields)
            for (const std::uint32_t n : {0U, 1U, 0x7FFFFFFFU, 0xFFFFFFFFU})
                all.push_back({what + " "s + std::to_string(n) + " at " + std::to_string(at), ".bmp",
                               with(bytes, at, n), mayShow});
    for (const std::uint32_t bits : {0U, 2U, 3U, 7U, 16U, 33U, 64U, 0xFFFFU})
        all.push_back(
            {"bits " + std::to_string(bits), ".bmp", with(good, bitsAt, bits, 2), bits == 2 || bits == 16});
    const auto square = [](const std::string& bytes, std::uint32_t side) {
        return with(with(bytes, widthAt, side), heightAt, side);
    };
    all.push_back({"large, no pixels", ".bmp", square(good, 16000)});
    for (const auto& [what, bytes] : bitmaps) {
        all.push_back({what + " huge"s, ".bmp", square(bytes, 30000)});
        const auto end = static_cast<std::uint32_t>(bytes.size());
        all.push_back({what + " pixels behind the end"s, ".bmp", with(bytes, pixelsAt, end)});
    }
    // The file ends before the palette does.
    for (const int bits : {1, 4, 8})
        all.push_back({std::to_string(bits) + " bits, palette missing", ".bmp",
                       with(indexed(bits).substr(0, paletteAt + 9), pixelsAt, paletteAt), mayShow});
}

void addWrongRuns(Pictures& all) {
    const std::pair<const char*, std::string> wrong[] = {
        {"no end", runs(16)},
        {"nothing", ""},
        {"one byte", "\x10"},
        {"longer than a row", "\xFF\1\xFF\1\xFF\1\xFF\1\xFF\1\xFF\1\0\1"s},
        {"too many rows", runs(48) + "\0\1"s},
        {"beyond the right", "\0\2\xFF\0\x10\1\0\1"s},
        {"beyond the bottom", "\0\2\0\xFF\x10\1\0\2\xFF\xFF\x10\1\0\1"s},
        {"absolute, cut off", "\0\xFF\1\2\3"s},
        {"delta, cut off", "\0\2\1"s},
    };
    for (const std::uint32_t way : {rle8, rle4})
        for (const auto& [what, bytes] : wrong)
            all.push_back({(way == rle8 ? "rle8 "s : "rle4 "s) + what, ".bmp", packed(way, bytes), mayShow});
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
    for (std::size_t offset = 4; offset < 14; ++offset)  // of the frame's numbers
        for (const char* byte : {"\x02", "\x09", "\xFF"})
            all.push_back(
                {"JPEG, frame at " + std::to_string(offset), ".jpg", withFrame(good, offset, byte), mayShow});
    const std::tuple<const char*, std::string, bool> cases[] = {
        {"huge", withFrame(good, 5, "\x75\x30\x75\x30"), false},
        {"the largest", withFrame(good, 5, "\xFF\xDC\xFF\xDC"), false},
        {"header only, large", jpegHeader({16000, 16000}), false},
        {"taller and wider", withFrame(good, 5, "\0\x80\1\0"s), true},
        {"no height", withFrame(good, 5, "\0\0"s), false},
        {"two frames", good.substr(0, frameAt) + frame + good.substr(frameAt), false},
        {"two frames of other sizes",
         good.substr(0, frameAt) + withFrame(frame, 5, "\x10\0\x10\0"s) + good.substr(frameAt), false},
        {"no Huffman tables", without(good, '\xC4'), true},
        {"no quantising tables", without(good, '\xDB'), false},
        {"arithmetic", withFrame(good, 1, "\xC9"), true},
        {"lossless", withFrame(good, 1, "\xC3"), false},
        {"of foreign components", std::string(good).replace(scanAt + 5, 1, "\x77"), false},
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

}  // namespace

std::vector<HostilePicture> hostilePictures() {
    Pictures all;
    addCutOff(all);
    addWrongBitmaps(all);
    addWrongRuns(all);
    addWrongJpegs(all);
    addOtherKinds(all);
    return all;
}

}  // namespace support
