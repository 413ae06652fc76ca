#include "platform/win32/handle.h"
#include "platform/win32/picture_decoders.h"
#include "platform/win32/surface_bitmap.h"

// After <windows.h>, which they need.
#include <olectl.h>
#include <shlwapi.h>

namespace platform::win32 {

namespace {

/// The bitmap of a picture, which goes on owning it.
HBITMAP bitmapOf(IPicture& picture) {
    SHORT type = PICTYPE_UNINITIALIZED;
    OLE_HANDLE handle = 0;
    if (FAILED(picture.get_Type(&type)) || type != PICTYPE_BITMAP || FAILED(picture.get_Handle(&handle)))
        return nullptr;
    return reinterpret_cast<HBITMAP>(static_cast<INT_PTR>(static_cast<LONG>(handle)));
}

/// 0x00RRGGBB in every pixel, whatever the fourth byte was before.
void clearFourthByte(const BitmapDc& pixels, const Rect& covered) {
    GdiFlush();
    for (int y = covered.top; y < covered.bottom; ++y) {
        std::uint32_t* row = pixels.row(y);
        for (int x = covered.left; x < covered.right; ++x) row[x] &= 0xFFFFFF;
    }
}

}  // namespace

bool decodeByPictureLoader(const std::string& content, Surface& target, Rect area, Size& size) {
    const ComApartment apartment;
    IStream* opened =
        SHCreateMemStream(reinterpret_cast<const BYTE*>(content.data()), static_cast<UINT>(content.size()));
    if (!opened) return false;
    const UniqueCom<IStream> stream(opened);
    IPicture* loaded = nullptr;
    if (FAILED(OleLoadPicture(stream.get(), static_cast<LONG>(content.size()), TRUE, IID_IPicture,
                              reinterpret_cast<void**>(&loaded))))
        return false;
    const UniqueCom<IPicture> picture(loaded);
    const HBITMAP bitmap = bitmapOf(*picture.get());
    BITMAP description{};
    if (!bitmap || !GetObjectW(bitmap, sizeof description, &description)) return false;
    size = {description.bmWidth, description.bmHeight};

    const Rect all = Rect::at(0, 0, target.size().width, target.size().height);
    const Rect covered =
        intersect(intersect(area, all), Rect::at(area.left, area.top, size.width, size.height));
    if (covered.empty()) return true;
    const UniqueDc source(CreateCompatibleDC(nullptr));
    const Selected selected(source.get(), bitmap);
    const BitmapDc& pixels = target.native().bitmap;
    if (!BitBlt(pixels.dc(), covered.left, covered.top, covered.width(), covered.height(), source.get(),
                covered.left - area.left, covered.top - area.top, SRCCOPY))
        return false;
    clearFourthByte(pixels, covered);
    return true;
}

}  // namespace platform::win32
