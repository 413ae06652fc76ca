#include <algorithm>

#include "platform/headless/basic_windows.h"
#include "platform/headless/event.h"

namespace platform {

using headless::ProgressBarWindow;
using headless::RangeWindow;
using headless::ScrollBarWindow;
using headless::SliderWindow;

namespace headless {

int RangeWindow::within(int wanted) const {
    return std::min(std::max(wanted, minimum), maximum);
}

void RangeWindow::set(int wanted) {
    const int before = value;
    value = within(wanted);
    if (value != before) changed();
}

void RangeWindow::setRange(int least, int most) {
    minimum = least;
    maximum = std::max(least, most);
    set(value);
}

void ScrollBarWindow::changed() const {
    raise(static_cast<ScrollBar&>(*control).onChange);
}

void ScrollBarWindow::scrolled() const {
    raise(static_cast<ScrollBar&>(*control).onScroll);
}

void ScrollBarWindow::draggedTo(int wanted) {
    const int before = value;
    value = within(wanted);
    if (value == before) return;
    scrolled();
    changed();
}

void SliderWindow::changed() const {
    raise(static_cast<Slider&>(*control).onChange);
}

void SliderWindow::scrolled() const {
    raise(static_cast<Slider&>(*control).onScroll);
}

void SliderWindow::draggedTo(int wanted) {
    if (within(wanted) == value) return;
    set(wanted);
    scrolled();
}

}  // namespace headless

namespace {

RangeWindow& window(const Control& bar) {
    return static_cast<RangeWindow&>(bar.native());
}

}  // namespace

ScrollBar::ScrollBar(Container& parent, const std::string& name, Direction)
    : Control(std::make_unique<ScrollBarWindow>(&parent.native(), name)) {}

int ScrollBar::value() const {
    return window(*this).value;
}

void ScrollBar::setValue(int value) {
    window(*this).set(value);
}

int ScrollBar::minimum() const {
    return window(*this).minimum;
}

int ScrollBar::maximum() const {
    return window(*this).maximum;
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
}

Slider::Slider(Container& parent, const std::string& name)
    : Control(std::make_unique<SliderWindow>(&parent.native(), name)) {}

int Slider::value() const {
    return window(*this).value;
}

void Slider::setValue(int value) {
    window(*this).set(value);
}

int Slider::minimum() const {
    return window(*this).minimum;
}

int Slider::maximum() const {
    return window(*this).maximum;
}

void Slider::setRange(int minimum, int maximum, int smallChange, int largeChange) {
    RangeWindow& self = window(*this);
    self.smallChange = smallChange;
    self.largeChange = largeChange;
    self.setRange(minimum, maximum);
}

ProgressBar::ProgressBar(Container& parent, const std::string& name)
    : Control(std::make_unique<ProgressBarWindow>(&parent.native(), name)) {}

int ProgressBar::value() const {
    return static_cast<ProgressBarWindow&>(native()).value;
}

void ProgressBar::setValue(int value) {
    static_cast<ProgressBarWindow&>(native()).value = std::clamp(value, 0, maximum());
}

int ProgressBar::maximum() const {
    return static_cast<ProgressBarWindow&>(native()).maximum;
}

void ProgressBar::setMaximum(int maximum) {
    static_cast<ProgressBarWindow&>(native()).maximum = std::max(1, maximum);
    setValue(value());
}

bool ProgressBar::marquee() const {
    return static_cast<ProgressBarWindow&>(native()).marquee;
}

void ProgressBar::setMarquee(bool on) {
    static_cast<ProgressBarWindow&>(native()).marquee = on;
}

}  // namespace platform
