#include "platform/headless/window.h"

#include <algorithm>
#include <utility>

#include "platform/errors.h"
#include "platform/headless/desk.h"
#include "platform/list_view.h"

namespace platform {

Control::Native::Native(Native* parentWindow, std::string controlName)
    : parent(parentWindow), name(std::move(controlName)) {
    if (parent) parent->children.push_back(this);
}

Control::Native::~Native() {
    headless::Desk::instance().forget(*this);
    if (parent) std::erase(parent->children, this);
    for (Native* child : children) child->parent = nullptr;
}

bool Control::Native::seen() const {
    const Native* window = this;
    while (window->visible && window->parent) window = window->parent;
    return window->visible && dynamic_cast<const headless::FormWindow*>(window);
}

bool Control::Native::usable() const {
    for (const Native* window = this; window; window = window->parent)
        if (!window->open()) return false;
    return seen();
}

bool Control::Native::holds(const Native* other) const {
    while (other && other != this) other = other->parent;
    return other != nullptr;
}

void Control::Native::place(Rect where) {
    where.right = std::max(where.left, where.right);
    where.bottom = std::max(where.top, where.bottom);
    const bool otherSize = where.width() != bounds.width() || where.height() != bounds.height();
    bounds = where;
    if (otherSize) resized();
}

void Control::Native::queuePaint() {
    if (queued) return;
    queued = true;
    headless::Desk::instance().queuePaint(*this);
}

void Control::Native::appeared() {
    invalidateAll();
    for (Native* child : children) child->appeared();
}

headless::FormWindow* Control::Native::form() {
    Native* window = this;
    while (window->parent) window = window->parent;
    return dynamic_cast<headless::FormWindow*>(window);
}

void Control::Native::setVisible(bool on) {
    if (visible == on) return;
    visible = on;
    if (on)
        appeared();
    else
        headless::Desk::instance().leave(*this);
}

void Control::Native::setEnabled(bool on) {
    if (enabled == on) return;
    enabled = on;
    if (!on) headless::Desk::instance().leave(*this);
}

void Control::Native::focus() {
    headless::FormWindow* window = form();
    if (usable())
        headless::Desk::instance().setFocus(this);
    else if (window && !window->visible)
        window->lastFocus = this;
}

namespace headless {

std::string characterOf(int key, int shift) {
    if (shift != 0) return {};
    if (key >= keyCode::numpad0 && key <= keyCode::numpad0 + 9) key += '0' - keyCode::numpad0;
    const bool isTyped = key == keyCode::space || (key >= '0' && key <= '9') || (key >= 'A' && key <= 'Z');
    return isTyped ? std::string(1, static_cast<char>(key)) : std::string();
}

void checkIndex(int index, int first, int last) {
    if (index < first || index > last)
        throw RuntimeError(error::subscriptOutOfRange, "Index außerhalb des gültigen Bereichs.");
}

}  // namespace headless
}  // namespace platform
