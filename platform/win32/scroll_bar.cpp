#include <cstdint>
#include <limits>
#include <optional>

#include "platform/basic_controls.h"
#include "platform/win32/event.h"
#include "platform/win32/range_window.h"

namespace platform {

namespace win32 {

namespace {

int clamped(std::int64_t value) {
    return static_cast<int>(std::min<std::int64_t>(value, std::numeric_limits<int>::max()));
}

class ScrollBarWindow final : public RangeWindow {
  public:
    long accessibleRole() const override { return win32::role::scrollBar; }
    ScrollBarWindow(Native* parentWindow, const std::string& controlName, ScrollBar::Direction direction)
        : RangeWindow(parentWindow, controlName) {
        const bool upright = direction == ScrollBar::Direction::vertical;
        createControl(WC_SCROLLBARW, WS_TABSTOP | (upright ? SBS_VERT : SBS_HORZ));
        show();
    }

    void show() override {
        SCROLLINFO info{};
        info.cbSize = sizeof info;
        info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS | SIF_DISABLENOSCROLL;
        const int page = std::max(1, largeChange);
        info.nMin = minimum();
        info.nMax = clamped(std::int64_t{maximum()} + page - 1);  // the thumb's far end reaches it
        info.nPage = static_cast<UINT>(page);
        info.nPos = value();
        SetScrollInfo(window, SB_CTL, &info, TRUE);
        // The system enables and disables the bar by what there is to scroll; here the program decides.
        if ((IsWindowEnabled(window) != 0) != enabled) EnableWindow(window, enabled);
    }

    void scrolled(int code, int position) override {
        switch (code) {
            case SB_LINEUP:
                return set(clamped(std::int64_t{value()} - smallChange));
            case SB_LINEDOWN:
                return set(clamped(std::int64_t{value()} + smallChange));
            case SB_PAGEUP:
                return set(clamped(std::int64_t{value()} - largeChange));
            case SB_PAGEDOWN:
                return set(clamped(std::int64_t{value()} + largeChange));
            case SB_TOP:
                return set(minimum());
            case SB_BOTTOM:
                return set(maximum());
            case SB_THUMBTRACK:
                return drag(trackPosition(position));
            case SB_THUMBPOSITION:
                drag(trackPosition(position));
                return drop();
            case SB_ENDSCROLL:
                return drop();
            default:
                return;
        }
    }

  private:
    ScrollBar& bar() const { return *static_cast<ScrollBar*>(control); }
    void changed() const override {
        if (control) raise(bar().onChange);
    }

    /// The message carries 16 bits only; the bar knows all of them, while it is dragged by the mouse.
    int trackPosition(int lowBits) const {
        SCROLLINFO info{};
        info.cbSize = sizeof info;
        info.fMask = SIF_TRACKPOS;
        GetScrollInfo(window, SB_CTL, &info);
        return (info.nTrackPos & 0xFFFF) == lowBits ? info.nTrackPos : lowBits;
    }

    void drag(int wanted) {
        const int to = within(wanted);
        if (to == value()) return;
        if (!dragStart_) dragStart_ = value();
        value_ = to;
        if (control) raise(bar().onScroll);
    }

    void drop() {
        const std::optional<int> from = std::exchange(dragStart_, std::nullopt);
        if (!from) return;
        show();
        if (value() != *from) changed();
    }

    std::optional<int> dragStart_;  // the value before the thumb was dragged
};

ScrollBarWindow& window(const ScrollBar& bar) {
    return static_cast<ScrollBarWindow&>(bar.native());
}

}  // namespace
}  // namespace win32

using win32::window;

ScrollBar::ScrollBar(Container& parent, const std::string& name, Direction direction)
    : Control(std::make_unique<win32::ScrollBarWindow>(&parent.native(), name, direction)) {}

int ScrollBar::value() const {
    return window(*this).value();
}

void ScrollBar::setValue(int value) {
    window(*this).set(value);
}

int ScrollBar::minimum() const {
    return window(*this).minimum();
}

int ScrollBar::maximum() const {
    return window(*this).maximum();
}

void ScrollBar::setRange(int minimum, int maximum) {
    window(*this).setRange(minimum, maximum);
}

int ScrollBar::smallChange() const {
    return window(*this).smallChange;
}

int ScrollBar::largeChange() const {
    return window(*this).largeChange;
}

void ScrollBar::setSmallChange(int change) {
    window(*this).smallChange = change;
}

void ScrollBar::setLargeChange(int change) {
    window(*this).largeChange = change;
    window(*this).show();
}

}  // namespace platform
