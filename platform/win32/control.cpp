#include "platform/control.h"

#include "platform/win32/accessible.h"
#include "platform/win32/form_window.h"

namespace platform {

Control::Control(std::unique_ptr<Native> native) : native_(std::move(native)) {
    native_->control = this;
}

Control::~Control() {
    native_->control = nullptr;
}

const std::string& Control::name() const {
    return native_->name;
}

void Control::move(Rect bounds) {
    native_->move(bounds);
}

Rect Control::bounds() const {
    return native_->bounds();
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
    return native_->hasFocus();
}

void Control::setAccessibleName(const std::string& name) {
    win32::setAccessibleName(*native_, name);
}

void Control::setToolTip(const std::string& text) {
    native_->form().setToolTip(*native_, text);
}

Font Control::font() const {
    return native_->ownFont.value_or(native_->form().windowFontName());
}

void Control::setFont(const Font& font) {
    native_->setFont(font);
}

void Control::update() {
    RedrawWindow(native_->window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

Size Container::clientSize() const {
    return native_->clientSize();
}

}  // namespace platform
