#include <algorithm>

#include "platform/basic_controls.h"
#include "platform/win32/native.h"

namespace platform {

namespace win32 {

namespace {

constexpr LPARAM marqueeStep = 30;  // milliseconds

class ProgressBarWindow final : public Control::Native {
  public:
    ProgressBarWindow(Native* parentWindow, const std::string& controlName)
        : Native(parentWindow, controlName) {
        createControl(PROGRESS_CLASSW, PBS_SMOOTH);
        setMaximum(maximum_);
    }

    int value() const { return value_; }
    int maximum() const { return maximum_; }

    void setMaximum(int most) {
        maximum_ = std::max(1, most);
        send(PBM_SETRANGE32, 0, maximum_);
        setValue(value_);
    }

    void setValue(int wanted) {
        value_ = std::clamp(wanted, 0, maximum_);
        send(PBM_SETPOS, static_cast<WPARAM>(value_));
    }

    bool marquee() const { return (GetWindowLongW(window, GWL_STYLE) & PBS_MARQUEE) != 0; }

    void setMarquee(bool on) {
        if (on == marquee()) return;
        SetWindowLongW(window, GWL_STYLE, GetWindowLongW(window, GWL_STYLE) ^ PBS_MARQUEE);
        send(PBM_SETMARQUEE, on, marqueeStep);
        if (!on) setMaximum(maximum_);
    }

    bool tabStop() const override { return false; }
    long accessibleRole() const override { return win32::role::progressBar; }

  private:
    int value_ = 0;
    int maximum_ = 100;
};

ProgressBarWindow& window(const ProgressBar& bar) {
    return static_cast<ProgressBarWindow&>(bar.native());
}

}  // namespace
}  // namespace win32

using win32::window;

ProgressBar::ProgressBar(Container& parent, const std::string& name)
    : Control(std::make_unique<win32::ProgressBarWindow>(&parent.native(), name)) {}

int ProgressBar::value() const {
    return window(*this).value();
}

void ProgressBar::setValue(int value) {
    window(*this).setValue(value);
}

int ProgressBar::maximum() const {
    return window(*this).maximum();
}

void ProgressBar::setMaximum(int maximum) {
    window(*this).setMaximum(maximum);
}

bool ProgressBar::marquee() const {
    return window(*this).marquee();
}

void ProgressBar::setMarquee(bool on) {
    window(*this).setMarquee(on);
}

}  // namespace platform
