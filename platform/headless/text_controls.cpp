#include <utility>

#include "platform/headless/basic_windows.h"
#include "platform/headless/event.h"

namespace platform {

using headless::ButtonWindow;
using headless::CheckBoxWindow;
using headless::LabelWindow;
using headless::TextBoxWindow;

namespace headless {

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
    return window<ButtonWindow>(*this).caption;
}

void Button::setCaption(const std::string& mnemonic) {
    window<ButtonWindow>(*this).caption = headless::withoutMnemonic(mnemonic);
}

void Button::setPlainCaption(const std::string& text) {
    window<ButtonWindow>(*this).caption = text;
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
    return window<LabelWindow>(*this).caption;
}

void Label::setCaption(const std::string& text) {
    auto& self = window<LabelWindow>(*this);
    self.caption = self.style == Style::mnemonic ? headless::withoutMnemonic(text) : text;
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

CheckBox::CheckBox(Container& parent, const std::string& name, const std::string&)
    : Control(std::make_unique<CheckBoxWindow>(&parent.native(), name)) {}

bool CheckBox::checked() const {
    return window<CheckBoxWindow>(*this).checked;
}

void CheckBox::setChecked(bool checked) {
    window<CheckBoxWindow>(*this).checked = checked;
}

}  // namespace platform
