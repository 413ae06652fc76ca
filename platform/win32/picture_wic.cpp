#include <algorithm>
#include <vector>

#include "platform/win32/failure.h"
#include "platform/win32/handle.h"
#include "platform/win32/picture_decoders.h"
#include "platform/win32/surface_bitmap.h"

// After <windows.h>, which it needs.
#include <wincodec.h>

namespace platform::win32 {

namespace {

/// What the decoder's own codes mean; Windows has no texts for them.
std::string reasonOf(HRESULT result) {
    switch (static_cast<unsigned long>(result)) {
        case static_cast<unsigned long>(WINCODEC_ERR_COMPONENTNOTFOUND):
        case static_cast<unsigned long>(WINCODEC_ERR_UNKNOWNIMAGEFORMAT):
            return "unbekanntes Bildformat";
        case static_cast<unsigned long>(WINCODEC_ERR_BADHEADER):
        case static_cast<unsigned long>(WINCODEC_ERR_BADIMAGE):
        case static_cast<unsigned long>(WINCODEC_ERR_FRAMEMISSING):
        case static_cast<unsigned long>(WINCODEC_ERR_STREAMREAD):
        case static_cast<unsigned long>(WINCODEC_ERR_BADSTREAMDATA):
        case static_cast<unsigned long>(E_FAIL):
            return "die Datei ist beschädigt";
        case static_cast<unsigned long>(WINCODEC_ERR_IMAGESIZEOUTOFRANGE):
            return "die Größe ist ungültig";
        case static_cast<unsigned long>(E_OUTOFMEMORY):
            return "der Arbeitsspeicher reicht nicht aus";
        default:
            return resultText(result);
    }
}

IWICImagingFactory* makeFactory() {
    IWICImagingFactory* made = nullptr;
    requireOk(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER, IID_IWICImagingFactory,
                               reinterpret_cast<void**>(&made)),
              "Bilddecoder laden");
    return made;
}

/// What makes decoders, and the apartment that it lives in.
struct Workshop {
    ComApartment apartment;  // gone after the factory
    UniqueCom<IWICImagingFactory> factory{makeFactory()};
};

/// Of all threads that enter no apartment, together; never given back.
IWICImagingFactory* makeForWorkers() {
    CO_MTA_USAGE_COOKIE apartment{};
    requireOk(CoIncrementMTAUsage(&apartment), "Bilddecoder laden");
    return makeFactory();
}

const DWORD mainThread = GetCurrentThreadId();

/// Making the factory costs more than decoding a small picture, so one is kept for the main thread, with its
/// single-threaded apartment, and one for the others. Not one for each of these: what is given back only when
/// a thread ends takes a lock of the compiler's thread library along, and the program then hangs at its own
/// end.
IWICImagingFactory* factoryHere() {
    if (GetCurrentThreadId() == mainThread) {
        static const Workshop own;
        return own.factory.get();
    }
    static IWICImagingFactory* const shared = makeForWorkers();
    return shared;
}

/// A failed call on the way to the pixels; goes no further than this file.
struct Refused {
    HRESULT result;
};

/// Makes a COM object by a call with an out parameter.
template <class Interface, class Call>
UniqueCom<Interface> made(Call call) {
    Interface* object = nullptr;
    const HRESULT result = call(&object);
    if (FAILED(result)) throw Refused{result};
    return UniqueCom<Interface>(object);
}

void check(HRESULT result) {
    if (FAILED(result)) throw Refused{result};
}

/// The first frame of a file, whose content must outlive it.
UniqueCom<IWICBitmapFrameDecode> firstFrame(IWICImagingFactory* factory, const std::string& content) {
    const auto stream = made<IWICStream>([&](auto out) { return factory->CreateStream(out); });
    auto* bytes = reinterpret_cast<BYTE*>(const_cast<char*>(content.data()));  // only read
    check(stream.get()->InitializeFromMemory(bytes, static_cast<DWORD>(content.size())));
    const auto decoder = made<IWICBitmapDecoder>([&](auto out) {
        return factory->CreateDecoderFromStream(stream.get(), nullptr, WICDecodeMetadataCacheOnDemand, out);
    });
    return made<IWICBitmapFrameDecode>([&](auto out) { return decoder.get()->GetFrame(0, out); });
}

Size sizeOf(IWICBitmapSource& source) {
    UINT width = 0;
    UINT height = 0;
    check(source.GetSize(&width, &height));
    constexpr UINT longestSide = 1U << 20;  // of what any kind of picture can be
    if (width == 0 || height == 0 || width > longestSide || height > longestSide)
        throw Refused{WINCODEC_ERR_IMAGESIZEOUTOFRANGE};
    return {static_cast<int>(width), static_cast<int>(height)};
}

WICPixelFormatGUID formatOf(IWICBitmapSource& source) {
    WICPixelFormatGUID format{};
    check(source.GetPixelFormat(&format));
    return format;
}

/// The frame in that pixel format; itself when it is stored so.
UniqueCom<IWICBitmapSource> converted(IWICImagingFactory* factory, IWICBitmapFrameDecode& frame,
                                      const WICPixelFormatGUID& wanted) {
    if (formatOf(frame) == wanted) {
        frame.AddRef();
        return UniqueCom<IWICBitmapSource>(&frame);
    }
    auto converter = made<IWICFormatConverter>([&](auto out) { return factory->CreateFormatConverter(out); });
    check(converter.get()->Initialize(&frame, wanted, WICBitmapDitherTypeNone, nullptr, 0.0,
                                      WICBitmapPaletteTypeCustom));
    converter.get()->AddRef();
    return UniqueCom<IWICBitmapSource>(converter.get());
}

std::vector<Colour> paletteOf(IWICImagingFactory* factory, IWICBitmapFrameDecode& frame) {
    const auto palette = made<IWICPalette>([&](auto out) { return factory->CreatePalette(out); });
    check(frame.CopyPalette(palette.get()));
    std::vector<WICColor> colours(256);
    UINT count = 0;
    check(palette.get()->GetColors(static_cast<UINT>(colours.size()), colours.data(), &count));
    std::vector<Colour> result;
    for (UINT i = 0; i < count; ++i) result.push_back(colours[i] & 0xFFFFFF);
    return result;
}

/// Copies what lies within the area, without a bitmap in between: a band at a time, because a converter may
/// hold what it converts once more.
void copyPixels(IWICBitmapSource& source, Size size, Surface& target, Rect area) {
    const Rect all = Rect::at(0, 0, target.size().width, target.size().height);
    const Rect covered =
        intersect(intersect(area, all), Rect::at(area.left, area.top, size.width, size.height));
    if (covered.empty()) return;
    const auto stride = static_cast<UINT>(target.size().width) * 4U;
    constexpr int bandHeight = 64;  // rows
    for (int top = covered.top; top < covered.bottom; top += bandHeight) {
        const int height = std::min(bandHeight, covered.bottom - top);
        const WICRect part{covered.left - area.left, top - area.top, covered.width(), height};
        const UINT bytes = stride * static_cast<UINT>(height - 1) + static_cast<UINT>(covered.width()) * 4U;
        check(source.CopyPixels(&part, stride, bytes,
                                reinterpret_cast<BYTE*>(target.row(top) + covered.left)));
        // The fourth byte of a pixel is whatever the decoder left there.
        for (int y = top; y < top + height; ++y) {
            std::uint32_t* row = target.row(y) + covered.left;
            for (int x = 0; x < covered.width(); ++x) row[x] &= 0xFFFFFF;
        }
    }
}

}  // namespace

ComApartment::ComApartment() : entered_(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {}

ComApartment::~ComApartment() {
    if (entered_) CoUninitialize();
}

std::string decodeByImagingComponent(const std::string& content, Surface& target, Rect area, Size& size) {
    try {
        IWICImagingFactory* const factory = factoryHere();
        const auto frame = firstFrame(factory, content);
        size = sizeOf(*frame.get());
        copyPixels(*converted(factory, *frame.get(), GUID_WICPixelFormat32bppBGR).get(), size, target, area);
        return {};
    } catch (const Refused& refused) {
        return reasonOf(refused.result);
    }
}

std::string readByImagingComponent(const std::string& content, Raster& raster) {
    try {
        IWICImagingFactory* const factory = factoryHere();
        const auto frame = firstFrame(factory, content);
        const bool indexed = formatOf(*frame.get()) == GUID_WICPixelFormat8bppIndexed;
        if (!sizeRaster(raster, sizeOf(*frame.get()), indexed ? 8 : 24)) return "die Größe ist ungültig";
        if (indexed) raster.palette = paletteOf(factory, *frame.get());
        const auto pixels = converted(factory, *frame.get(),
                                      indexed ? GUID_WICPixelFormat8bppIndexed : GUID_WICPixelFormat24bppBGR);
        check(pixels.get()->CopyPixels(nullptr, static_cast<UINT>(raster.bytesPerRow()),
                                       static_cast<UINT>(raster.rows.size()), raster.rows.data()));
        return {};
    } catch (const Refused& refused) {
        return reasonOf(refused.result);
    }
}

}  // namespace platform::win32
