#include "platform/win32/combo_box_window.h"

#include "platform/win32/event.h"
#include "platform/win32/failure.h"
#include "platform/win32/wide.h"

namespace platform {

using win32::checkIndex;
using win32::ComboBoxWindow;

namespace win32 {

namespace {

constexpr int rowsInView = 20;  // of the drop-down list, at most

}  // namespace

ComboBoxWindow::ComboBoxWindow(Native* parentWindow, const std::string& controlName, ComboBox::Style style)
    : Native(parentWindow, controlName), style_(style) {
    const DWORD kind = style == ComboBox::Style::editable ? CBS_DROPDOWN | CBS_AUTOHSCROLL : CBS_DROPDOWNLIST;
    createControl(WC_COMBOBOXW, kind | WS_VSCROLL | WS_TABSTOP);
    send(CB_SETMINVISIBLE, rowsInView);  // the list's height then comes by itself
}

HWND ComboBoxWindow::keyWindow() const {
    COMBOBOXINFO info{};
    info.cbSize = sizeof info;
    const bool hasField =
        style_ == ComboBox::Style::editable && GetComboBoxInfo(window, &info) && info.hwndItem;
    return hasField ? info.hwndItem : window;
}

KeyUse ComboBoxWindow::keyUse() const {
    const bool takesAll = style_ == ComboBox::Style::editable || send(CB_GETDROPPEDSTATE);
    return takesAll ? KeyUse::text : KeyUse::range;
}

wheel::Use ComboBoxWindow::wheelUse() const {
    return send(CB_GETDROPPEDSTATE) ? wheel::Use::keeps : wheel::Use::ignores;
}

void ComboBoxWindow::closePopup() {
    if (!send(CB_GETDROPPEDSTATE)) return;
    const Quiet quiet(*this);
    send(CB_SHOWDROPDOWN, FALSE);
    if (chosen_ >= 0) showChosen();  // some systems go back to the entry before
}

// The system takes the height of a combo box for that of its list; the closed box follows from the height of
// its field.
void ComboBoxWindow::move(Rect wanted) {
    Native::move(wanted);
    constexpr auto field = static_cast<WPARAM>(-1);
    // Some systems count a part of the frame when asked that they do not count when told.
    auto height = static_cast<int>(send(CB_GETITEMHEIGHT, field));
    for (int attempt = 0; attempt < 2; ++attempt) {
        const int difference = wanted.height() - bounds().height();
        height += difference;
        if (difference == 0 || height <= 0) return;
        send(CB_SETITEMHEIGHT, field, height);
    }
}

void ComboBoxWindow::fontChanged() {
    // A field that was fitted to its bounds would keep the height of the font before.
    move(bounds());
}

void ComboBoxWindow::command(int, int code) {
    if (quiet() || !control) return;
    switch (code) {
        case CBN_SELCHANGE:
            adopt();
            break;
        case CBN_CLOSEUP:  // Escape goes back to the entry before without a word
            if (style_ == ComboBox::Style::list) adopt();
            break;
        case CBN_EDITCHANGE:
            chosen_ = -1;
            raise(box().onChange);
            break;
        default:
            break;
    }
}

void ComboBoxWindow::adopt() {
    const int now = static_cast<int>(send(CB_GETCURSEL));
    if (now == chosen_) return;
    chosen_ = now;
    if (now >= 0) raise(box().onClick);
}

void ComboBoxWindow::choose(int index) {
    if (index == chosen_) return;
    chosen_ = index;
    showChosen();
    if (index >= 0) raise(box().onClick);
}

void ComboBoxWindow::showChosen() {
    const Quiet quiet(*this);
    send(CB_SETCURSEL, static_cast<WPARAM>(chosen_));
}

int ComboBoxWindow::count() const {
    return static_cast<int>(send(CB_GETCOUNT));
}

std::string ComboBoxWindow::item(int index) const {
    const auto row = static_cast<WPARAM>(index);
    std::wstring text(static_cast<std::size_t>(send(CB_GETLBTEXTLEN, row)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(send(CB_GETLBTEXT, row, text.data())));
    return narrow(text);
}

void ComboBoxWindow::insert(int index, const std::string& text) {
    const Quiet quiet(*this);
    if (send(CB_INSERTSTRING, static_cast<WPARAM>(index), wide(text).c_str()) < 0)
        failWith("Eintrag anlegen", ERROR_NOT_ENOUGH_MEMORY);
    if (index >= 0 && chosen_ >= index) {
        ++chosen_;
        showChosen();
    }
}

void ComboBoxWindow::add(const std::vector<std::string>& texts) {
    const NoRedraw noRedraw(*this);
    for (const std::string& text : texts) insert(-1, text);
}

void ComboBoxWindow::replace(int index, const std::string& text) {
    const NoRedraw noRedraw(*this);
    const Quiet quiet(*this);
    const int chosen = chosen_;
    const std::wstring typed = Native::text();
    chosen_ = -1;
    send(CB_DELETESTRING, static_cast<WPARAM>(index));
    insert(index, text);
    chosen_ = chosen;
    showChosen();
    if (chosen < 0 && style_ == ComboBox::Style::editable) setText(narrow(typed));
}

void ComboBoxWindow::remove(int index) {
    const Quiet quiet(*this);
    send(CB_DELETESTRING, static_cast<WPARAM>(index));
    if (chosen_ < index) return;
    chosen_ = chosen_ == index ? -1 : chosen_ - 1;
    showChosen();
}

void ComboBoxWindow::clear() {
    const Quiet quiet(*this);
    chosen_ = -1;
    send(CB_RESETCONTENT);
    if (style_ == ComboBox::Style::editable) setText({});
}

std::string ComboBoxWindow::shownText() const {
    // While an entry is being chosen the field still has the text before.
    if (chosen_ >= 0) return item(chosen_);
    return style_ == ComboBox::Style::editable ? narrow(text()) : std::string();
}

void ComboBoxWindow::replaceText(const std::string& text) {
    if (style_ != ComboBox::Style::editable) return;
    choose(-1);
    const Quiet quiet(*this);
    setText(text);
}

}  // namespace win32

namespace {

ComboBoxWindow& window(const ComboBox& box) {
    return static_cast<ComboBoxWindow&>(box.native());
}

}  // namespace

ComboBox::ComboBox(Container& parent, const std::string& name, Style style)
    : Control(std::make_unique<ComboBoxWindow>(&parent.native(), name, style)) {}

int ComboBox::count() const {
    return window(*this).count();
}

std::string ComboBox::item(int index) const {
    checkIndex(index, 0, count() - 1);
    return window(*this).item(index);
}

void ComboBox::add(const std::string& text) {
    window(*this).insert(-1, text);
}

void ComboBox::add(const std::vector<std::string>& texts) {
    window(*this).add(texts);
}

void ComboBox::insert(int index, const std::string& text) {
    checkIndex(index, 0, count());
    window(*this).insert(index, text);
}

void ComboBox::replace(int index, const std::string& text) {
    checkIndex(index, 0, count() - 1);
    window(*this).replace(index, text);
}

void ComboBox::remove(int index) {
    checkIndex(index, 0, count() - 1);
    window(*this).remove(index);
}

void ComboBox::clear() {
    window(*this).clear();
}

int ComboBox::listIndex() const {
    return window(*this).chosen();
}

void ComboBox::setListIndex(int index) {
    checkIndex(index, -1, count() - 1);
    window(*this).choose(index);
}

std::string ComboBox::text() const {
    return window(*this).shownText();
}

void ComboBox::setText(const std::string& text) {
    window(*this).replaceText(text);
}

void ComboBox::setDropDownWidth(int pixels) {
    native_->send(CB_SETDROPPEDWIDTH, static_cast<WPARAM>(pixels));
}

int ComboBox::dropDownWidth() const {
    return static_cast<int>(native_->send(CB_GETDROPPEDWIDTH));
}

}  // namespace platform
