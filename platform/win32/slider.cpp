#include "platform/basic_controls.h"
#include "platform/win32/event.h"
#include "platform/win32/range_window.h"

namespace platform {

namespace win32 {

namespace {

class SliderWindow final : public RangeWindow {
  public:
    SliderWindow(Native* parentWindow, const std::string& controlName)
        : RangeWindow(parentWindow, controlName) {
        createControl(TRACKBAR_CLASSW, TBS_HORZ | TBS_NOTICKS | WS_TABSTOP);
        show();
    }

    void show() override {
        send(TBM_SETRANGEMIN, FALSE, minimum());
        send(TBM_SETRANGEMAX, FALSE, maximum());
        send(TBM_SETLINESIZE, 0, smallChange);
        send(TBM_SETPAGESIZE, 0, largeChange);
        send(TBM_SETPOS, TRUE, value());
    }

    long accessibleRole() const override { return win32::role::slider; }
    KeyUse keyUse() const override { return KeyUse::range; }
    wheel::Use wheelUse() const override { return wheel::Use::ignores; }
    HBRUSH ground(HBRUSH behind) const override { return behind; }

    void scrolled(int code, int) override {
        const int before = value();
        value_ = within(static_cast<int>(send(TBM_GETPOS)));
        if (value() == before) return;
        changed();
        if (code == TB_THUMBTRACK && control) raise(slider().onScroll);
    }

  private:
    Slider& slider() const { return *static_cast<Slider*>(control); }
    void changed() const override {
        if (control) raise(slider().onChange);
    }
};

SliderWindow& window(const Slider& slider) {
    return static_cast<SliderWindow&>(slider.native());
}

}  // namespace
}  // namespace win32

using win32::window;

Slider::Slider(Container& parent, const std::string& name)
    : Control(std::make_unique<win32::SliderWindow>(&parent.native(), name)) {}

int Slider::value() const {
    return window(*this).value();
}

void Slider::setValue(int value) {
    window(*this).set(value);
}

int Slider::minimum() const {
    return window(*this).minimum();
}

int Slider::maximum() const {
    return window(*this).maximum();
}

void Slider::setRange(int minimum, int maximum, int smallChange, int largeChange) {
    window(*this).smallChange = smallChange;
    window(*this).largeChange = largeChange;
    window(*this).setRange(minimum, maximum);
}

}  // namespace platform
