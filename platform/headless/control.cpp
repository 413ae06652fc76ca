#include "platform/control.h"

#include "platform/headless/desk.h"

namespace platform {

Control::Control(std::unique_ptr<Native> native) : native_(std::move(native)) {
    native_->control = this;
}

Control::~Control() = default;

const std::string& Control::name() const {
    return native_->name;
}

void Control::move(Rect bounds) {
    native_->place(bounds);
}

Rect Control::bounds() const {
    return native_->bounds;
}

void Control::setVisible(bool visible) {
    native_->setVisible(visible);
}

bool Control::visible() const {
    return native_->visible;
}

void Control::setEnabled(bool enabled) {
    native_->setEnabled(enabled);
}

bool Control::enabled() const {
    return native_->enabled;
}

void Control::focus() {
    native_->focus();
}

bool Control::focused() const {
    return headless::Desk::instance().focus() == native_.get();
}

// Nobody listens to a window in memory, and no mouse rests on it.
void Control::setAccessibleName(const std::string&) {}
void Control::setToolTip(const std::string&) {}

Font Control::font() const {
    return native_->font;
}

void Control::setFont(const Font& font) {
    native_->font = font;
}

void Control::update() {
    native_->paint();
}

Size Container::clientSize() const {
    return native_->clientSize();
}

}  // namespace platform
