#include "platform/win32/image_list.h"

#include <algorithm>

#include "platform/win32/failure.h"
#include "platform/win32/surface_bitmap.h"

namespace platform::win32 {

namespace {

UniqueIcon makeIcon(const IconImage& image) {
    const BitmapDc colours({image.size, image.size});
    std::copy(image.pixels.begin(), image.pixels.end(), colours.row(0));
    // Where the system does not know transparency by degrees, a mask of one bit decides.
    const UniqueBitmap mask(require(CreateBitmap(image.size, image.size, 1, 1, nullptr), "Symbol anlegen"));
    ICONINFO info{};
    info.fIcon = TRUE;
    info.hbmColor = colours.bitmap();
    info.hbmMask = mask.get();
    return UniqueIcon(require(CreateIconIndirect(&info), "Symbol anlegen"));
}

}  // namespace

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
