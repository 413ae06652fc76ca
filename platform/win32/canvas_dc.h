#pragma once

#include "platform/canvas.h"
#include "platform/win32/windows.h"

namespace platform {

struct Canvas::Native {
    HDC dc;
    bool flush = false;  ///< the pixels are also looked at without the system
};

namespace win32 {

inline RECT toRect(const Rect& r) {
    return {r.left, r.top, r.right, r.bottom};
}
inline Rect fromRect(const RECT& r) {
    return {r.left, r.top, r.right, r.bottom};
}

}  // namespace win32
}  // namespace platform
