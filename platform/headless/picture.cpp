#include "platform/picture.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdlib>
#include <string>
#include <vector>

#include "platform/errors.h"
#include "platform/files.h"

/// Uncompressed bitmaps of 1, 4, 8, 24 or 32 bits a pixel are decoded in full. A JPEG becomes a plain grey
/// picture of the size that its header gives: nothing that runs without Windows looks at its pixels.
namespace platform {

namespace {

constexpr Colour jpegGrey = 0x808080;

[[noreturn]] void refuse(const std::string& reason) {
    throw RuntimeError(error::badPicture, "Das Bild kann nicht gelesen werden: " + reason);
}

/// The bytes of a file; what lies behind their end is refused.
class Bytes {
  public:
    explicit Bytes(std::string content) : content_(std::move(content)) {}

    std::uint32_t byte(std::size_t at) const {
        if (at >= content_.size()) refuse("die Datei ist unvollständig.");
        return static_cast<unsigned char>(content_[at]);
    }
    std::uint32_t little16(std::size_t at) const { return byte(at) | byte(at + 1) << 8; }
    std::uint32_t little32(std::size_t at) const { return little16(at) | little16(at + 2) << 16; }
    std::uint32_t big16(std::size_t at) const { return byte(at) << 8 | byte(at + 1); }
    bool startsWith(std::string_view start) const { return content_.starts_with(start); }

  private:
    std::string content_;
};

/// The part of the picture that has a place in the target.
Rect shown(Size picture, const Surface& target, Rect area) {
    const Rect all = Rect::at(0, 0, target.size().width, target.size().height);
    return intersect(intersect(area, all), Rect::at(area.left, area.top, picture.width, picture.height));
}

class Bitmap {
  public:
    explicit Bitmap(const Bytes& bytes) : bytes_(bytes) {
        const std::uint32_t headerSize = bytes.little32(14);
        const auto height = static_cast<std::int32_t>(bytes.little32(22));
        bits_ = bytes.little16(28);
        topDown_ = height < 0;
        if (headerSize < 40 || bytes.little32(30) != 0) refuse("diese Art von Bitmap ist nicht bekannt.");
        if (bits_ != 1 && bits_ != 4 && bits_ != 8 && bits_ != 24 && bits_ != 32)
            refuse("unbekannte Farbtiefe.");
        const auto width = static_cast<std::int32_t>(bytes.little32(18));
        const std::int64_t rows = std::abs(std::int64_t{height});
        if (width <= 0 || rows <= 0 || width * rows > Raster::mostPixels) refuse("die Größe ist ungültig.");
        size_ = {width, static_cast<int>(rows)};
        pixels_ = bytes.little32(10);
        stride_ = (static_cast<std::size_t>(width) * bits_ + 31) / 32 * 4;
        if (bits_ <= 8) readPalette(14 + std::size_t{headerSize}, bytes.little32(46));
    }

    Size size() const { return size_; }

    /// Before room is made for pixels that are not there.
    void requirePixels() const {
        bytes_.byte(pixels_ + stride_ * static_cast<std::size_t>(size_.height) - 1);
    }

    bool hasPlacesInPalette() const { return bits_ == 8; }
    std::vector<Colour> palette() const { return {palette_.begin(), palette_.begin() + colours_}; }
    std::uint8_t place(int y, int x) const {
        return static_cast<std::uint8_t>(bytes_.byte(startOf(y) + static_cast<std::size_t>(x)));
    }

    void decodeRow(int y, int columns, Colour* target) const {
        const std::size_t start = startOf(y);
        for (std::size_t x = 0; x < static_cast<std::size_t>(columns); ++x) target[x] = pixel(start, x);
    }

  private:
    std::size_t startOf(int y) const {
        return pixels_ + static_cast<std::size_t>(topDown_ ? y : size_.height - 1 - y) * stride_;
    }

    void readPalette(std::size_t start, std::uint32_t used) {
        const std::uint32_t possible = 1u << bits_;
        colours_ = used == 0 || used > possible ? possible : used;
        for (std::uint32_t i = 0; i < colours_; ++i) palette_[i] = bytes_.little32(start + 4 * i) & 0xFFFFFF;
    }

    Colour pixel(std::size_t row, std::size_t x) const {
        if (bits_ > 8) {
            const std::size_t at = row + x * bits_ / 8;
            return bytes_.little16(at) | bytes_.byte(at + 2) << 16;
        }
        const std::size_t perByte = 8 / bits_;
        const std::size_t shift =
            bits_ * (perByte - 1 - x % perByte);  // the leftmost pixel in the highest bits
        return palette_[bytes_.byte(row + x / perByte) >> shift & ((1u << bits_) - 1)];
    }

    const Bytes& bytes_;
    Size size_;
    std::uint32_t bits_ = 0;
    bool topDown_ = false;
    std::size_t pixels_ = 0;
    std::size_t stride_ = 0;
    std::array<Colour, 256> palette_{};
    std::uint32_t colours_ = 0;  // of the palette
};

Size decodeBitmap(const Bytes& bytes, Surface& target, Rect area) {
    const Bitmap bitmap(bytes);
    const Rect visible = shown(bitmap.size(), target, area);
    if (visible.empty()) return bitmap.size();
    // The area may begin outside of the target.
    const int skipped = visible.left - area.left;
    std::vector<Colour> row(static_cast<std::size_t>(skipped + visible.width()));
    for (int y = visible.top; y < visible.bottom; ++y) {
        bitmap.decodeRow(y - area.top, skipped + visible.width(), row.data());
        std::copy(row.begin() + skipped, row.end(), target.row(y) + visible.left);
    }
    return bitmap.size();
}

/// The size in the frame header, found by walking the segments before it.
Size jpegSize(const Bytes& bytes) {
    for (std::size_t at = 2;; at += 2 + bytes.big16(at + 2)) {
        if (bytes.byte(at) != 0xFF) refuse("die Datei ist beschädigt.");
        while (bytes.byte(at + 1) == 0xFF) ++at;  // fill bytes
        const std::uint32_t marker = bytes.byte(at + 1);
        const bool frame =
            marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
        if (marker == 0xD9 || marker == 0xDA) refuse("die Datei enthält keine Bildgröße.");
        if (!frame) continue;
        const Size size{static_cast<int>(bytes.big16(at + 7)), static_cast<int>(bytes.big16(at + 5))};
        if (size.width == 0 || size.height == 0) refuse("die Größe ist ungültig.");
        return size;
    }
}

Size decodeJpeg(const Bytes& bytes, Surface& target, Rect area) {
    const Size size = jpegSize(bytes);
    const Rect visible = shown(size, target, area);
    for (int y = visible.top; y < visible.bottom; ++y)
        std::fill_n(target.row(y) + visible.left, visible.width(), jpegGrey);
    return size;
}

/// Room for the rows of a picture of 24 bits.
Raster trueColour(Size size) {
    if (std::int64_t{size.width} * size.height > Raster::mostPixels) refuse("die Größe ist ungültig.");
    Raster raster{size, 24, {}, {}};
    raster.rows.reserve(raster.bytesPerRow() * static_cast<std::size_t>(size.height));
    return raster;
}

Raster bitmapRaster(const Bytes& bytes) {
    const Bitmap bitmap(bytes);
    bitmap.requirePixels();
    const auto [width, height] = bitmap.size();
    if (bitmap.hasPlacesInPalette()) {
        Raster raster{bitmap.size(), 8, bitmap.palette(), {}};
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x) raster.rows.push_back(bitmap.place(y, x));
        return raster;
    }
    Raster raster = trueColour(bitmap.size());
    std::vector<Colour> row(static_cast<std::size_t>(width));
    for (int y = 0; y < height; ++y) {
        bitmap.decodeRow(y, width, row.data());
        for (const Colour colour : row)
            for (const int shift : {0, 8, 16})
                raster.rows.push_back(static_cast<std::uint8_t>(colour >> shift));
    }
    return raster;
}

Raster jpegRaster(const Bytes& bytes) {
    Raster raster = trueColour(jpegSize(bytes));
    raster.rows.resize(raster.rows.capacity(), static_cast<std::uint8_t>(jpegGrey));
    return raster;
}

std::string contentOf(std::string_view fileName) {
    try {
        return files::read(fileName);
    } catch (const RuntimeError& error) {
        refuse(error.description());
    }
}

}  // namespace

Size decodePicture(std::string_view fileName, Surface& target, Rect area) {
    const Bytes bytes(contentOf(fileName));
    if (bytes.startsWith("BM")) return decodeBitmap(bytes, target, area);
    if (bytes.startsWith("\xFF\xD8")) return decodeJpeg(bytes, target, area);
    refuse("das Format ist nicht bekannt.");
}

Raster readRaster(std::string_view fileName) {
    const Bytes bytes(contentOf(fileName));
    if (bytes.startsWith("BM")) return bitmapRaster(bytes);
    if (bytes.startsWith("\xFF\xD8")) return jpegRaster(bytes);
    refuse("das Format ist nicht bekannt.");
}

}  // namespace platform
