#include "platform/win32/image_list.h"

#include <algorithm>

#include "platform/win32/failure.h"
#include "platform/win32/surface_bitmap.h"

namespace platform::win32 {

namespace {

/// One bit a pixel, set where it is transparent, for systems that know no transparency by degrees; they also
/// go by it when no pixel of the picture is opaque at all.
UniqueBitmap makeMask(const IconImage& image) {
    const auto side = static_cast<std::size_t>(image.size);
    const std::size_t stride = (side + 15) / 16 * 2;  // bytes of a row: whole words
    std::vector<unsigned char> bits(stride * side);
    for (std::size_t y = 0; y < side; ++y)
        for (std::size_t x = 0; x < side; ++x)
            if (image.pixels[y * side + x] < 0x80000000)
                bits[y * stride + x / 8] |= static_cast<unsigned char>(0x80 >> x % 8);
    return UniqueBitmap(require(CreateBitmap(image.size, image.size, 1, 1, bits.data()), "Symbol anlegen"));
}

}  // namespace

UniqueIcon makeIcon(const IconImage& image) {
    const BitmapDc colours({image.size, image.size});
    std::copy(image.pixels.begin(), image.pixels.end(), colours.row(0));
    const UniqueBitmap mask = makeMask(image);
    ICONINFO info{};
    info.fIcon = TRUE;
    info.hbmColor = colours.bitmap();
    info.hbmMask = mask.get();
    return UniqueIcon(require(CreateIconIndirect(&info), "Symbol anlegen"));
}

UniqueImageList makeImageList(const std::vector<const IconImage*>& images) {
    const int size = images.empty() ? 1 : images.front()->size;
    UniqueImageList list(
        require(ImageList_Create(size, size, ILC_COLOR32 | ILC_MASK, static_cast<int>(images.size()), 1),
                "Symbole anlegen"));
    for (const IconImage* image : images)
        if (ImageList_ReplaceIcon(list.get(), -1, makeIcon(*image).get()) < 0) fail("Symbole anlegen");
    return list;
}

}  // namespace platform::win32
