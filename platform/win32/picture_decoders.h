#pragma once

#include <string>

#include "platform/surface.h"

namespace platform::win32 {

// Both decode as `decodePicture` says and set `size` to the picture's own. They work on any thread.

/// The Windows Imaging Component. Answers why it refused, or nothing.
std::string decodeByImagingComponent(const std::string& content, Surface& target, Rect area, Size& size);

/// The older loader of OLE, which takes some bitmaps that the other refuses. False when it refused too.
bool decodeByPictureLoader(const std::string& content, Surface& target, Rect area, Size& size);

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
