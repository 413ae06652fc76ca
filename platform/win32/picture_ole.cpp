#include <algorithm>

#include "platform/win32/handle.h"
#include "platform/win32/picture_decoders.h"
#include "platform/win32/surface_bitmap.h"

// After <windows.h>, which they need.
#include <olectl.h>
#include <shlwapi.h>

namespace platform::win32 {

namespace {

/// Null when the loader refuses.
UniqueCom<IPicture> loaded(const std::string& content) {
    IStream* opened =
        SHCreateMemStream(reinterpret_cast<const BYTE*>(content.data()), static_cast<UINT>(content.size()));
    if (!opened) return {};
    const UniqueCom<IStream> stream(opened);
    IPicture* picture = nullptr;
    if (FAILED(OleLoadPicture(stream.get(), static_cast<LONG>(content.size()), TRUE, IID_IPicture,
                              reinterpret_cast<void**>(&picture))))
        return {};
    return UniqueCom<IPicture>(picture);
}

/// The bitmap of a picture, which goes on owning it; null when it has none.
HBITMAP bitmapOf(IPicture& picture, BITMAP& description) {
    SHORT type = PICTYPE_UNINITIALIZED;
    OLE_HANDLE handle = 0;
    if (FAILED(picture.get_Type(&type)) || type != PICTYPE_BITMAP || FAILED(picture.get_Handle(&handle)))
        return nullptr;
    const auto bitmap = reinterpret_cast<HBITMAP>(static_cast<INT_PTR>(static_cast<LONG>(handle)));
    return bitmap && GetObjectW(bitmap, sizeof description, &description) ? bitmap : nullptr;
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
    const auto picture = loaded(content);
    BITMAP description{};
    const HBITMAP bitmap = picture ? bitmapOf(*picture.get(), description) : nullptr;
    if (!bitmap) return false;
    size = {description.bmWidth, description.bmHeight};

    const Rect all = Rect::at(0, 0, target.size().width, target.size().height);
    const Rect covered =
        intersect(intersect(area, all), Rect::at(area.left, area.top, size.width, size.height));
    if (covered.empty()) return true;
    const UniqueDc source(CreateCompatibleDC(nullptr));
    const Selected selected(source.get(), bitmap);
    const BitmapDc& pixels = target.native().bitmap;
    const bool drawn = BitBlt(pixels.dc(), covered.left, covered.top, covered.width(), covered.height(),
                              source.get(), covered.left - area.left, covered.top - area.top, SRCCOPY) != 0;
    pixels.giveDcBack();
    if (!drawn) return false;
    clearFourthByte(pixels, covered);
    return true;
}

bool readByPictureLoader(const std::string& content, Raster& raster) {
    const ComApartment apartment;
    const auto picture = loaded(content);
    BITMAP description{};
    const HBITMAP bitmap = picture ? bitmapOf(*picture.get(), description) : nullptr;
    if (!bitmap || !sizeRaster(raster, {description.bmWidth, description.bmHeight}, 24)) return false;

    BITMAPINFO wanted{};
    wanted.bmiHeader.biSize = sizeof wanted.bmiHeader;
    wanted.bmiHeader.biWidth = raster.size.width;
    wanted.bmiHeader.biHeight = -raster.size.height;  // from the top
    wanted.bmiHeader.biPlanes = 1;
    wanted.bmiHeader.biBitCount = 24;
    const auto height = static_cast<std::size_t>(raster.size.height);
    const std::size_t filledUp = (raster.bytesPerRow() + 3) / 4 * 4;  // as it comes
    raster.rows.resize(filledUp * height);
    const UniqueDc dc(CreateCompatibleDC(nullptr));
    if (GetDIBits(dc.get(), bitmap, 0, static_cast<UINT>(height), raster.rows.data(), &wanted,
                  DIB_RGB_COLORS) != raster.size.height)
        return false;
    for (std::size_t y = 1; y < height; ++y)
        std::copy_n(raster.rows.data() + y * filledUp, raster.bytesPerRow(),
                    raster.rows.data() + y * raster.bytesPerRow());
    raster.rows.resize(raster.bytesPerRow() * height);
    return true;
}

}  // namespace platform::win32
