#include "platform/basic_controls.h"
#include "platform/win32/event.h"
#include "platform/win32/native.h"
#include "platform/win32/wide.h"

namespace platform {

namespace win32 {

namespace {

std::string onOneLine(const std::string& text) {
    std::string line;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
        line += text[i] == '\n' || text[i] == '\r' ? ' ' : text[i];
    }
    return line;
}

class TextBoxWindow : public Control::Native {
  public:
    TextBoxWindow(Native* parentWindow, const std::string& controlName, TextBox::Style style)
        : Native(parentWindow, controlName), style_(style) {
        constexpr DWORD output = ES_MULTILINE | ES_AUTOVSCROLL | ES_READONLY | WS_VSCROLL;
        createControl(WC_EDITW,
                      WS_TABSTOP | (style == TextBox::Style::edit       ? ES_AUTOHSCROLL
                                    : style == TextBox::Style::readOnly ? ES_AUTOHSCROLL | ES_READONLY
                                                                        : output),
                      WS_EX_CLIENTEDGE);
        send(EM_SETLIMITTEXT, 0);  // none
    }

    void replaceText(const std::string& wanted) {
        const std::string held = style_ == TextBox::Style::output ? wanted : onOneLine(wanted);
        changed_ = false;
        if (held == narrow(text())) return;  // the caret stays
        const Quiet quiet(*this);
        setText(held);
        if (style_ != TextBox::Style::output) return;
        send(EM_SETSEL, held.size(), static_cast<LPARAM>(held.size()));
        send(EM_SCROLLCARET);  // what came last is in view
    }

    void append(const std::string& line) {
        const Quiet quiet(*this);
        const auto end = static_cast<WPARAM>(GetWindowTextLengthW(window));
        send(EM_SETSEL, end, static_cast<LPARAM>(end));
        const std::wstring added = wide((end > 0 ? "\r\n" : "") + line);
        send(EM_REPLACESEL, FALSE, added.c_str());
    }

    long accessibleRole() const override { return win32::role::text; }
    KeyUse keyUse() const override {
        return style_ == TextBox::Style::edit ? KeyUse::text : KeyUse::reading;
    }
    void command(int, int code) override {
        if (quiet() || !control) return;
        if (code == EN_CHANGE) {
            changed_ = true;
            raise(box().onChange);
        } else if (code == EN_KILLFOCUS && changed_) {
            commit();
        }
    }

    Handled handle(const Message& m) override {
        static constexpr Route<TextBoxWindow> routes[] = {
            on<WM_KEYDOWN, &TextBoxWindow::keyDown>(),
            on<WM_CHAR, &TextBoxWindow::character>(),
            on<WM_PASTE, &TextBoxWindow::paste>(),
        };
        return dispatch(*this, routes, m);
    }

  private:
    TextBox& box() const { return *static_cast<TextBox*>(control); }

    void commit() {
        changed_ = false;
        raise(box().onCommit);
    }
    Handled keyDown(int key, int) {
        if (key != VK_RETURN || style_ == TextBox::Style::output) return std::nullopt;
        commit();
        return done;
    }
    /// One line takes no Enter; the system would beep.
    Handled character(wchar_t letter) {
        return letter == L'\r' && style_ != TextBox::Style::output ? done : std::nullopt;
    }

    /// The system would leave out what follows the first line.
    Handled paste() {
        if (style_ != TextBox::Style::edit || !OpenClipboard(window)) return std::nullopt;
        std::wstring pasted;
        if (const HANDLE data = GetClipboardData(CF_UNICODETEXT)) {
            const auto* text = static_cast<const wchar_t*>(GlobalLock(data));
            if (text) pasted = wide(onOneLine(narrow(text)));
            GlobalUnlock(data);
        }
        CloseClipboard();
        send(EM_REPLACESEL, TRUE, pasted.c_str());
        return done;
    }

    TextBox::Style style_;
    bool changed_ = false;  // by the user, since the last commit
};

TextBoxWindow& window(const TextBox& box) {
    return static_cast<TextBoxWindow&>(box.native());
}

}  // namespace
}  // namespace win32

TextBox::TextBox(Container& parent, const std::string& name, Style style)
    : Control(std::make_unique<win32::TextBoxWindow>(&parent.native(), name, style)) {}

std::string TextBox::text() const {
    return narrow(win32::window(*this).text());
}

void TextBox::setText(const std::string& text) {
    win32::window(*this).replaceText(text);
}

void TextBox::append(const std::string& line) {
    win32::window(*this).append(line);
}

}  // namespace platform
