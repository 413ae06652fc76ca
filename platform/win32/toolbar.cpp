#include "platform/toolbar.h"

#include "platform/text.h"
#include "platform/win32/toolbar_window.h"

namespace platform {

using win32::ToolbarWindow;

namespace {

ToolbarWindow& window(const Toolbar& toolbar) {
    return static_cast<ToolbarWindow&>(toolbar.native());
}

}  // namespace

Toolbar::Toolbar(Container& parent, const std::string& name)
    : Control(std::make_unique<ToolbarWindow>(&parent.native(), name)) {}

void Toolbar::setImages(const std::vector<Image>& images) {
    window(*this).setImages(images);
}

void Toolbar::clear() {
    window(*this).clear();
}

void Toolbar::add(const Button& button) {
    window(*this).add(button);
}

int Toolbar::count() const {
    return window(*this).count();
}

int Toolbar::indexOf(const std::string& key) const {
    if (key.empty()) return 0;  // separators have no key
    for (int index = 1; index <= count(); ++index)
        if (text::equalNoCase(button(index).key, key)) return index;
    return 0;
}

const Toolbar::Button& Toolbar::button(int index) const {
    return window(*this).at(index).button;
}

void Toolbar::setTag(int index, const std::string& tag) {
    window(*this).at(index).button.tag = tag;
}

void Toolbar::setImage(int index, const std::string& imageKey) {
    window(*this).at(index).image = imageKey;
    window(*this).showImage(index);
}

const std::string& Toolbar::image(int index) const {
    return window(*this).at(index).image;
}

void Toolbar::setToolTip(int index, const std::string& text) {
    window(*this).at(index).button.toolTip = text;
    window(*this).showText(index);
}

void Toolbar::setEnabled(int index, bool enabled) {
    window(*this).at(index).enabled = enabled;
    window(*this).showState(index);
}

bool Toolbar::enabled(int index) const {
    return window(*this).at(index).enabled;
}

Size Toolbar::preferredSize() const {
    return window(*this).preferredSize();
}

}  // namespace platform
