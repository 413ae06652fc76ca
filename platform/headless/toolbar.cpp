#include "platform/toolbar.h"

#include "platform/headless/toolbar_window.h"
#include "platform/text.h"

namespace platform {

using headless::ToolbarWindow;

namespace headless {

ToolbarWindow::Item& ToolbarWindow::at(int index) {
    checkIndex(index, 1, static_cast<int>(items.size()));
    return items[static_cast<std::size_t>(index - 1)];
}

}  // namespace headless

namespace {

ToolbarWindow& window(const Toolbar& toolbar) {
    return static_cast<ToolbarWindow&>(toolbar.native());
}

}  // namespace

Toolbar::Toolbar(Container& parent, const std::string& name)
    : Control(std::make_unique<ToolbarWindow>(&parent.native(), name)) {}

// Nothing shows the pictures; only their size matters for the layout.
void Toolbar::setImages(const std::vector<Image>& images) {
    if (!images.empty()) window(*this).imageSize = images.front().icon.size;
}

void Toolbar::clear() {
    window(*this).items.clear();
}

void Toolbar::add(const Button& button) {
    window(*this).items.push_back({button, button.key, true});
}

int Toolbar::count() const {
    return static_cast<int>(window(*this).items.size());
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
}

const std::string& Toolbar::image(int index) const {
    return window(*this).at(index).image;
}

void Toolbar::setToolTip(int index, const std::string& text) {
    window(*this).at(index).button.toolTip = text;
}

void Toolbar::setEnabled(int index, bool enabled) {
    window(*this).at(index).enabled = enabled;
}

bool Toolbar::enabled(int index) const {
    return window(*this).at(index).enabled;
}

Size Toolbar::preferredSize() const {
    constexpr int margin = 4, separatorWidth = 8, arrowWidth = 12;
    const int buttonSize = window(*this).imageSize + 2 * margin;
    Size size{0, buttonSize};
    for (const auto& item : window(*this).items) {
        size.width += item.button.key.empty() ? separatorWidth : buttonSize;
        if (!item.button.menu.empty()) size.width += arrowWidth;
    }
    return size;
}

}  // namespace platform
