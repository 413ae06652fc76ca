#pragma once

#include <vector>

#include "platform/icon_image.h"
#include "platform/win32/handle.h"

// After <windows.h>, which it needs.
#include <commctrl.h>

namespace platform::win32 {

struct CloseImageList {
    void operator()(HIMAGELIST list) const { ImageList_Destroy(list); }
};
using UniqueImageList = Unique<HIMAGELIST, CloseImageList>;

UniqueIcon makeIcon(const IconImage& image);

/// The pictures in the order given, all of the first one's size.
UniqueImageList makeImageList(const std::vector<const IconImage*>& images);

}  // namespace platform::win32
