#pragma once

#include <string>

#include "platform/picture.h"

namespace platform::win32 {

// They decode as `decodePicture` and `readRaster` say and work on any thread. `size` becomes the picture's own.

/// The Windows Imaging Component. Answers why it refused, or nothing.
std::string decodeByImagingComponent(const std::string& content, Surface& target, Rect area, Size& size);
std::string readByImagingComponent(const std::string& content, Raster& raster);

/// The older loader of OLE, which takes some bitmaps that the other refuses. It believes a bitmap's
/// header: whatever that speaks of must lie in the content. False when it refused too.
bool decodeByPictureLoader(const std::string& content, Surface& target, Rect area, Size& size);
/// Always gives 24 bits a pixel.
bool readByPictureLoader(const std::string& content, Raster& raster);

/// Makes room for the pixels of a picture. False when it is larger than a raster may be.
bool sizeRaster(Raster& raster, Size size, int bitsPerPixel);

/// COM on a thread, as long as it lives.
class ComApartment {
  public:
    ComApartment();
    ~ComApartment();
    ComApartment(const ComApartment&) = delete;
    ComApartment& operator=(const ComApartment&) = delete;

  private:
    bool entered_;
};

}  // namespace platform::win32
