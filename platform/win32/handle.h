#pragma once

#include <utility>

#include "platform/win32/windows.h"

/// Owners of what Windows hands out. All of them are counted, windows included, because Windows itself counts
/// too late to find a leak: a test opens and closes everything and expects the count that it began with.
namespace platform::win32 {

/// Handles that are held at the moment.
int liveHandles();
void countHandles(int difference);

/// Move-only; `Close` is a function object.
template <class Handle, class Close>
class Unique {
  public:
    Unique() = default;
    explicit Unique(Handle handle) : handle_(handle) { count(1); }
    Unique(Unique&& other) noexcept : handle_(std::exchange(other.handle_, Handle{})) {}
    Unique& operator=(Unique&& other) noexcept {
        if (this != &other) {
            reset();
            handle_ = std::exchange(other.handle_, Handle{});
        }
        return *this;
    }
    Unique(const Unique&) = delete;
    Unique& operator=(const Unique&) = delete;
    ~Unique() { reset(); }

    Handle get() const { return handle_; }
    explicit operator bool() const { return handle_ != Handle{}; }
    void reset() {
        if (!handle_) return;
        count(-1);
        Close{}(std::exchange(handle_, Handle{}));
    }

  private:
    void count(int difference) {
        if (handle_) countHandles(difference);
    }
    Handle handle_{};
};

struct CloseGdiObject {
    void operator()(HGDIOBJ object) const { ::DeleteObject(object); }
};
struct CloseDc {
    void operator()(HDC dc) const { ::DeleteDC(dc); }
};
struct CloseIcon {
    void operator()(HICON icon) const { ::DestroyIcon(icon); }
};
struct CloseMenu {
    void operator()(HMENU menu) const { ::DestroyMenu(menu); }
};
struct CloseKey {
    void operator()(HKEY key) const { ::RegCloseKey(key); }
};
struct CloseHandle {
    void operator()(HANDLE handle) const { ::CloseHandle(handle); }
};
/// Of a COM object.
struct Release {
    template <class Interface>
    void operator()(Interface* object) const {
        object->Release();
    }
};

using UniqueBitmap = Unique<HBITMAP, CloseGdiObject>;
using UniqueBrush = Unique<HBRUSH, CloseGdiObject>;
using UniqueFont = Unique<HFONT, CloseGdiObject>;
using UniqueDc = Unique<HDC, CloseDc>;
using UniqueIcon = Unique<HICON, CloseIcon>;
using UniqueMenu = Unique<HMENU, CloseMenu>;
using UniqueKey = Unique<HKEY, CloseKey>;
using UniqueHandle = Unique<HANDLE, CloseHandle>;
template <class Interface>
using UniqueCom = Unique<Interface*, Release>;

/// As long as it lives the object is the one that the device context draws with.
class Selected {
  public:
    Selected(HDC dc, HGDIOBJ object) : dc_(dc), before_(::SelectObject(dc, object)) {}
    ~Selected() { ::SelectObject(dc_, before_); }
    Selected(const Selected&) = delete;
    Selected& operator=(const Selected&) = delete;

  private:
    HDC dc_;
    HGDIOBJ before_;
};

}  // namespace platform::win32
