#include "platform/basic_controls.h"
#include "platform/mnemonic.h"
#include "platform/win32/native.h"

namespace platform {

namespace win32 {

namespace {

class LabelWindow : public Control::Native {
  public:
    LabelWindow(Native* parentWindow, const std::string& controlName, Label::Style style)
        : Native(parentWindow, controlName), style_(style) {
        constexpr DWORD oneLine = SS_LEFT | SS_CENTERIMAGE | SS_ENDELLIPSIS;  // in the middle of its height
        createControl(WC_STATICW, style == Label::Style::mnemonic ? oneLine
                                  : style == Label::Style::plain  ? oneLine | SS_NOPREFIX
                                                                  : SS_LEFT | SS_NOPREFIX);
    }

    void setCaption(const std::string& text) {
        if (text == text_) return;
        text_ = text;
        setText(text);
    }
    std::string caption() const { return style_ == Label::Style::mnemonic ? withoutMnemonic(text_) : text_; }

    std::vector<std::string> mnemonics() const override {
        if (style_ != Label::Style::mnemonic) return {};
        return {text_};
    }
    long accessibleRole() const override { return win32::role::staticText; }
    HBRUSH ground(HBRUSH behind) const override { return behind; }

  private:
    Label::Style style_;
    std::string text_;
};

LabelWindow& window(const Label& label) {
    return static_cast<LabelWindow&>(label.native());
}

}  // namespace
}  // namespace win32

Label::Label(Container& parent, const std::string& name, const std::string& text, Style style)
    : Control(std::make_unique<win32::LabelWindow>(&parent.native(), name, style)) {
    setCaption(text);
}

std::string Label::caption() const {
    return win32::window(*this).caption();
}

void Label::setCaption(const std::string& text) {
    win32::window(*this).setCaption(text);
}

}  // namespace platform
