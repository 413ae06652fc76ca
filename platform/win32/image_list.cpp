#include "platform/win32/image_list.h"

#include <algorithm>

#include "platform/win32/failure.h"
#include "platform/win32/surface_bitmap.h"

namespace platform::win32 {

namespace {

using Images = std::vector<const IconImage*>;

/// One bit a pixel, set where it is transparent, for systems that know no transparency by degrees; they also
/// go by it when no pixel of a picture is opaque at all. The pictures stand side by side.
UniqueBitmap makeMask(const Images& images) {
    const auto side = static_cast<std::size_t>(images.front()->size);
    const std::size_t width = side * images.size();
    const std::size_t stride = (width + 15) / 16 * 2;  // bytes of a row: whole words
    std::vector<unsigned char> bits(stride * side);
    for (std::size_t y = 0; y < side; ++y)
        for (std::size_t x = 0; x < width; ++x)
            if (images[x / side]->pixels[y * side + x % side] < 0x80000000)
                bits[y * stride + x / 8] |= static_cast<unsigned char>(0x80 >> x % 8);
    return UniqueBitmap(require(
        CreateBitmap(static_cast<int>(width), static_cast<int>(side), 1, 1, bits.data()), "Symbol anlegen"));
}

/// Their colours, side by side; selected nowhere.
UniqueBitmap makeStrip(const Images& images) {
    const int side = images.front()->size;
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = side * static_cast<int>(images.size());
    info.bmiHeader.biHeight = -side;  // rows from the top
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    UniqueBitmap strip(
        require(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0), "Symbole anlegen"));
    auto* to = static_cast<std::uint32_t*>(bits);
    for (int y = 0; y < side; ++y)
        for (const IconImage* image : images)
            to = std::copy_n(image->pixels.begin() + static_cast<std::ptrdiff_t>(y) * side, side, to);
    return strip;
}

}  // namespace

UniqueIcon makeIcon(const IconImage& image) {
    const BitmapDc colours({image.size, image.size});
    std::copy(image.pixels.begin(), image.pixels.end(), colours.row(0));
    const UniqueBitmap mask = makeMask({&image});
    ICONINFO info{};
    info.fIcon = TRUE;
    info.hbmColor = colours.bitmap();
    info.hbmMask = mask.get();
    return UniqueIcon(require(CreateIconIndirect(&info), "Symbol anlegen"));
}

// All at once: each picture by itself costs as much as all of them.
UniqueImageList makeImageList(const std::vector<const IconImage*>& images) {
    const int size = images.empty() ? 1 : images.front()->size;
    UniqueImageList list(
        require(ImageList_Create(size, size, ILC_COLOR32 | ILC_MASK, static_cast<int>(images.size()), 1),
                "Symbole anlegen"));
    if (images.empty()) return list;
    const UniqueBitmap strip = makeStrip(images), mask = makeMask(images);
    if (ImageList_Add(list.get(), strip.get(), mask.get()) < 0) fail("Symbole anlegen");
    return list;
}

}  // namespace platform::win32
