#include <utility>

#include "platform/headless/basic_windows.h"
#include "platform/headless/event.h"
#include "platform/list_view.h"
#include "platform/mnemonic.h"

namespace platform {

using headless::ButtonWindow;
using headless::CheckBoxWindow;
using headless::LabelWindow;
using headless::TextBoxWindow;

namespace headless {

void ButtonWindow::key(int key, int shift) {
    if (shift == 0 && (key == keyCode::space || key == keyCode::enter))
        raise(static_cast<Button&>(*control).onClick);
}

void CheckBoxWindow::key(int key, int shift) {
    if (shift != 0 || key != keyCode::space) return;
    checked = !checked;
    raise(static_cast<CheckBox&>(*control).onClick);
}

std::vector<std::string> LabelWindow::mnemonics() const {
    if (style != Label::Style::mnemonic) return {};
    return {text};
}

KeyUse TextBoxWindow::keyUse() const {
    return style == TextBox::Style::edit ? KeyUse::text : KeyUse::reading;
}

void TextBoxWindow::key(int key, int shift) {
    if (key == keyCode::enter && style != TextBox::Style::output) return entered();
    if (style == TextBox::Style::edit) typed(text + characterOf(key, shift));
}

void TextBoxWindow::typed(const std::string& newText) {
    text = held(newText);
    changed = true;
    raise(static_cast<TextBox&>(*control).onChange);
}

void TextBoxWindow::entered() {
    changed = false;
    raise(static_cast<TextBox&>(*control).onCommit);
}

void TextBoxWindow::focusLost() {
    if (changed) entered();
}

std::string TextBoxWindow::held(const std::string& given) const {
    if (style == TextBox::Style::output) return given;
    std::string line;
    for (std::size_t i = 0; i < given.size(); ++i) {
        if (given[i] == '\r' && i + 1 < given.size() && given[i + 1] == '\n') ++i;
        line += given[i] == '\n' || given[i] == '\r' ? ' ' : given[i];
    }
    return line;
}

}  // namespace headless

namespace {

template <class Window>
Window& window(const Control& control) {
    return static_cast<Window&>(control.native());
}

}  // namespace

Button::Button(Container& parent, const std::string& name, const std::string& mnemonic)
    : Control(std::make_unique<ButtonWindow>(&parent.native(), name)) {
    setCaption(mnemonic);
}

std::string Button::caption() const {
    return withoutMnemonic(window<ButtonWindow>(*this).mnemonic);
}

void Button::setCaption(const std::string& mnemonic) {
    window<ButtonWindow>(*this).mnemonic = mnemonic;
}

void Button::setPlainCaption(const std::string& text) {
    window<ButtonWindow>(*this).mnemonic = asMnemonic(text);
}

void Button::setKeyHint(const std::string& key) {
    window<ButtonWindow>(*this).keyHint = key;
}

std::string Button::keyHint() const {
    return window<ButtonWindow>(*this).keyHint;
}

void Button::setBackColour(std::uint32_t colour) {
    window<ButtonWindow>(*this).backColour = colour;
}

std::uint32_t Button::backColour() const {
    return window<ButtonWindow>(*this).backColour;
}

Label::Label(Container& parent, const std::string& name, const std::string& text, Style style)
    : Control(std::make_unique<LabelWindow>(&parent.native(), name)) {
    window<LabelWindow>(*this).style = style;
    setCaption(text);
}

std::string Label::caption() const {
    const auto& self = window<LabelWindow>(*this);
    return self.style == Style::mnemonic ? withoutMnemonic(self.text) : self.text;
}

void Label::setCaption(const std::string& text) {
    window<LabelWindow>(*this).text = text;
}

TextBox::TextBox(Container& parent, const std::string& name, Style style)
    : Control(std::make_unique<TextBoxWindow>(&parent.native(), name)) {
    window<TextBoxWindow>(*this).style = style;
}

std::string TextBox::text() const {
    return window<TextBoxWindow>(*this).text;
}

void TextBox::setText(const std::string& text) {
    auto& self = window<TextBoxWindow>(*this);
    self.text = self.held(text);
    self.changed = false;
}

void TextBox::append(const std::string& line) {
    std::string& text = window<TextBoxWindow>(*this).text;
    text += (text.empty() ? "" : "\r\n") + line;
}

CheckBox::CheckBox(Container& parent, const std::string& name, const std::string& mnemonic)
    : Control(std::make_unique<CheckBoxWindow>(&parent.native(), name)) {
    window<CheckBoxWindow>(*this).mnemonic = mnemonic;
}

bool CheckBox::checked() const {
    return window<CheckBoxWindow>(*this).checked;
}

void CheckBox::setChecked(bool checked) {
    window<CheckBoxWindow>(*this).checked = checked;
}

}  // namespace platform
