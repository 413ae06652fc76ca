// The control's view of its picture: layout, scrolling and the properties that have no file of their own.
#include "controls/picturebox/kvPictureBox.h"

#include <algorithm>

#include "platform/metrics.h"

namespace controls {

using platform::MouseButton;
using platform::Point;
using platform::Rect;
using platform::ScrollBar;

namespace {

constexpr int wheelNotch = 120;
constexpr int stepsPerNotch = 3;

}  // namespace

kvPictureBox::kvPictureBox(platform::Container& parent, const std::string& name)
    : UserControl(parent, name, "kvPictureBox"),
      HScroll1(*this, "HScroll1", ScrollBar::Direction::horizontal),
      VScroll1(*this, "VScroll1", ScrollBar::Direction::vertical) {
    for (ScrollBar* bar : {&HScroll1, &VScroll1}) {
        bar->setEnabled(false);
        bar->setRange(0, 0);
        bar->onChange = bar->onScroll = [this] { scrolled(); };
    }
    onResize = [this] { layOut(); };
    onPaint = [this](platform::Canvas& canvas) { paint(canvas); };
    onWheel = [this](int notches, int shift, Point) { wheel(notches, shift); };
    onClick = [this] {
        if (Click) Click();
    };
    onMouseDown = [this](MouseButton button, int, Point at) { mouseDown(button, at); };
    onMouseMove = [this](MouseButton held, int, Point at) { mouseMove(held, at); };
    onMouseUp = [this](MouseButton, int, Point) { endDrag(); };
    onCaptureLost = [this] { endDrag(); };
    onKeyDown = [this](int key, int shift) { return keyDown(key, shift); };
    setTabStop(true);
    setRole(Role::graphic);
    HScroll1.setAccessibleName("Bild waagrecht rollen");
    VScroll1.setAccessibleName("Bild senkrecht rollen");
}

Rect kvPictureBox::inner() const {
    const platform::Size size = clientSize();
    return Rect::at(0, 0, size.width, size.height);
}

int kvPictureBox::viewWidth() const {
    return inner().right - platform::metricsOf(*this).vScrollWidth;
}

int kvPictureBox::viewHeight() const {
    return inner().bottom - platform::metricsOf(*this).hScrollHeight;
}

Rect kvPictureBox::seenOfPicture() const {
    const Rect picture{0, 0, PicWidth(), PicHeight()};
    if (stretch_) return picture;
    return intersect(picture, Rect::at(-OffsetX_, -OffsetY_, viewWidth(), viewHeight()));
}

void kvPictureBox::layOut() {
    if (!stretch_) {
        const int vBar = platform::metricsOf(*this).vScrollWidth;
        const int hBar = platform::metricsOf(*this).hScrollHeight;
        const AxisView x = viewAxis(PicWidth(), inner().right, vBar, OffsetX_);
        const AxisView y = viewAxis(PicHeight(), inner().bottom, hBar, OffsetY_);
        // The bars report the new values; one paint at the end serves both.
        settingBars_ = true;
        VScroll1.move(Rect::at(viewWidth(), 0, vBar, viewHeight()));
        HScroll1.move(Rect::at(0, viewHeight(), viewWidth(), hBar));
        layOut(x, HScroll1);
        layOut(y, VScroll1);
        settingBars_ = false;
        OffsetX_ = x.offset;
        OffsetY_ = y.offset;
    }
    repaint();
}

void kvPictureBox::layOut(const AxisView& axis, ScrollBar& bar) {
    bar.setEnabled(axis.scrollable);
    if (!axis.scrollable) return;
    // Each of these draws the bar anew; from one picture to the next of the same size nothing changes.
    bar.setSmallChange(axis.smallChange);
    if (bar.largeChange() != axis.largeChange) bar.setLargeChange(axis.largeChange);
    if (bar.maximum() != axis.maximum) bar.setRange(0, axis.maximum);
    if (bar.value() != -axis.offset) bar.setValue(-axis.offset);
}

void kvPictureBox::scrolled() {
    if (settingBars_) return;
    const Point before = offset();
    if (HScroll1.enabled()) OffsetX_ = -HScroll1.value();
    if (VScroll1.enabled()) OffsetY_ = -VScroll1.value();
    if (offset() != before) repaint();
}

void kvPictureBox::scrollTo(Point wanted) {
    const auto set = [](ScrollBar& bar, int value) {
        if (bar.enabled()) bar.setValue(std::clamp(value, 0, bar.maximum()));
    };
    // Both directions are one step to the eye.
    settingBars_ = true;
    set(HScroll1, -wanted.x);
    set(VScroll1, -wanted.y);
    settingBars_ = false;
    scrolled();
}

void kvPictureBox::wheel(int notches, int shift) {
    ScrollBar& bar = (shift & platform::shiftKey::shift) != 0 ? HScroll1 : VScroll1;
    if (stretch_ || !bar.enabled()) return;
    // Fine wheels turn in parts of a notch, of which each may be less than a pixel.
    std::int64_t& rest = wheelRest_[&bar == &HScroll1];
    rest += std::int64_t{notches} * stepsPerNotch * bar.smallChange();
    const std::int64_t way = rest / wheelNotch;
    rest -= way * wheelNotch;
    bar.setValue(static_cast<int>(std::clamp<std::int64_t>(bar.value() - way, 0, bar.maximum())));
}

void kvPictureBox::repaint() {
    invalidate();
    update();
}

void kvPictureBox::Refresh() {
    touchRegions();
    update();
}

void kvPictureBox::Clear() {
    endDrag();
    regions_.clear();
    layOut();
}

void kvPictureBox::Picture(const PictureObject& picture) {
    shown_.reset();
    buffer_.assign(picture.get());
    changed("Picture");
}

void kvPictureBox::FileName(const std::string& FileName) {
    fileName_ = FileName;
    givenUp_ = false;  // it was not asked for
    changed("FileName");
}

void kvPictureBox::Stretch(bool Stretch) {
    stretch_ = Stretch;
    changed("Stretch");
    HScroll1.setVisible(!stretch_);
    VScroll1.setVisible(!stretch_);
    layOut();
}

void kvPictureBox::SizeGrip(bool SizeGrip) {
    sizeGrip_ = SizeGrip;
    changed("SizeGrip");
}

void kvPictureBox::AllowROImove(bool AllowROImove) {
    allowROImove_ = AllowROImove;
    changed("AllowROImove");
}

void kvPictureBox::ShowROIs(bool ShowROIs) {
    showROIs_ = ShowROIs;
    changed("ShowROIs");
    Refresh();
}

void kvPictureBox::changed(std::string_view key) const {
    if (onPropertyChanged) onPropertyChanged(key);
}

void kvPictureBox::ReadProperties(const PropertyBag& bag) {
    Picture(bag.read("Picture", PictureObject()));
    fileName_ = bag.read("FileName", std::string());
    allowROImove_ = bag.read("AllowROImove", true);
    showROIs_ = bag.read("ShowROIs", true);
    sizeGrip_ = bag.read("SizeGrip", false);
    stretch_ = bag.read("Stretch", false);
}

void kvPictureBox::WriteProperties(PropertyBag& bag) const {
    bag.write("Picture", Picture());
    bag.write("FileName", fileName_);
    bag.write("AllowROImove", allowROImove_);
    bag.write("ShowROIs", showROIs_);
    bag.write("SizeGrip", sizeGrip_);
    bag.write("Stretch", stretch_);
}

}  // namespace controls
