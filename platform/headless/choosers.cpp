#include <utility>

#include "platform/headless/basic_windows.h"
#include "platform/headless/event.h"
#include "platform/metrics.h"
#include "platform/mnemonic.h"

namespace platform {

using headless::checkIndex;
using headless::ComboBoxWindow;
using headless::TabStripWindow;

namespace headless {

void ComboBoxWindow::choose(int index) {
    if (index == chosen) return;
    chosen = index;
    text = index < 0 ? std::string() : items[static_cast<std::size_t>(index)];
    if (index >= 0) raise(static_cast<ComboBox&>(*control).onClick);
}

void ComboBoxWindow::typed(const std::string& newText) {
    chosen = -1;
    text = newText;
    raise(static_cast<ComboBox&>(*control).onChange);
}

KeyUse ComboBoxWindow::keyUse() const {
    return style == ComboBox::Style::editable ? KeyUse::text : KeyUse::range;
}

void ComboBoxWindow::key(int key, int shift) {
    if (style == ComboBox::Style::editable) typed(text + characterOf(key, shift));
}

}  // namespace headless

namespace {

ComboBoxWindow& window(const ComboBox& box) {
    return static_cast<ComboBoxWindow&>(box.native());
}

TabStripWindow& window(const TabStrip& strip) {
    return static_cast<TabStripWindow&>(strip.native());
}

}  // namespace

ComboBox::ComboBox(Container& parent, const std::string& name, Style style)
    : Control(std::make_unique<ComboBoxWindow>(&parent.native(), name)) {
    window(*this).style = style;
}

int ComboBox::count() const {
    return static_cast<int>(window(*this).items.size());
}

std::string ComboBox::item(int index) const {
    checkIndex(index, 0, count() - 1);
    return window(*this).items[static_cast<std::size_t>(index)];
}

void ComboBox::add(const std::string& text) {
    window(*this).items.push_back(text);
}

void ComboBox::add(const std::vector<std::string>& texts) {
    auto& items = window(*this).items;
    items.insert(items.end(), texts.begin(), texts.end());
}

void ComboBox::insert(int index, const std::string& text) {
    checkIndex(index, 0, count());
    auto& self = window(*this);
    self.items.insert(self.items.begin() + index, text);
    if (self.chosen >= index) ++self.chosen;
}

void ComboBox::replace(int index, const std::string& text) {
    checkIndex(index, 0, count() - 1);
    auto& self = window(*this);
    self.items[static_cast<std::size_t>(index)] = text;
    if (self.chosen == index) self.text = text;
}

void ComboBox::remove(int index) {
    checkIndex(index, 0, count() - 1);
    auto& self = window(*this);
    self.items.erase(self.items.begin() + index);
    if (self.chosen == index)
        self.choose(-1);
    else if (self.chosen > index)
        --self.chosen;
}

void ComboBox::clear() {
    window(*this).items.clear();
    window(*this).choose(-1);
    window(*this).text.clear();
}

int ComboBox::listIndex() const {
    return window(*this).chosen;
}

void ComboBox::setListIndex(int index) {
    checkIndex(index, -1, count() - 1);
    window(*this).choose(index);
}

std::string ComboBox::text() const {
    return window(*this).text;
}

void ComboBox::setText(const std::string& text) {
    auto& self = window(*this);
    if (self.style != Style::editable) return;
    self.chosen = -1;
    self.text = text;
}

void ComboBox::setDropDownWidth(int pixels) {
    window(*this).dropDownWidth = pixels;
}

int ComboBox::dropDownWidth() const {
    return window(*this).dropDownWidth;
}

TabStrip::TabStrip(Container& parent, const std::string& name, const std::vector<std::string>& mnemonics)
    : Control(std::make_unique<TabStripWindow>(&parent.native(), name)) {
    for (const std::string& mnemonic : mnemonics) window(*this).tabs.push_back(mnemonic);
}

int TabStrip::count() const {
    return static_cast<int>(window(*this).tabs.size());
}

std::string TabStrip::tab(int index) const {
    checkIndex(index, 1, count());
    return withoutMnemonic(window(*this).tabs[static_cast<std::size_t>(index - 1)]);
}

int TabStrip::selected() const {
    return window(*this).selected;
}

void TabStrip::select(int index) {
    checkIndex(index, 1, count());
    window(*this).selected = index;
}

Rect TabStrip::pageArea() const {
    constexpr int edge = 4;
    const Rect all = bounds();
    return {all.left + edge, all.top + metricsOf(*this).tabHeight + edge, all.right - edge,
            all.bottom - edge};
}

}  // namespace platform
