#include "platform/basic_controls.h"
#include "platform/metrics.h"
#include "platform/win32/event.h"
#include "platform/win32/failure.h"
#include "platform/win32/mnemonic.h"
#include "platform/win32/native.h"

namespace platform {

namespace win32 {

namespace {

constexpr std::uint32_t systemColourFlag = 0x80000000;
constexpr std::uint32_t buttonFace = systemColourFlag + COLOR_BTNFACE;

class ButtonWindow : public Control::Native {
  public:
    ButtonWindow(Native* parentWindow, const std::string& controlName) : Native(parentWindow, controlName) {
        createControl(WC_BUTTONW, BS_PUSHBUTTON | WS_TABSTOP);
    }

    void setMnemonic(const std::string& text) {
        if (text == mnemonic_) return;
        mnemonic_ = text;
        setText(text);
        alignText();
    }

    Handled handle(const Message& m) override {
        if (m.id == WM_SIZE) alignText();
        return Native::handle(m);
    }

    void setBackColour(std::uint32_t wanted) {
        colour = wanted;
        const COLORREF rgb =
            wanted & systemColourFlag ? GetSysColor(static_cast<int>(wanted & 0xFF)) : wanted;
        brush_.reset();
        if (wanted != buttonFace) brush_ = UniqueBrush(require(CreateSolidBrush(rgb), "Farbe setzen"));
        InvalidateRect(window, nullptr, TRUE);
    }

    const std::string& mnemonic() const { return mnemonic_; }
    std::vector<std::string> mnemonics() const override { return {mnemonic_}; }
    void access(std::size_t) override { send(BM_CLICK); }
    HBRUSH ground(HBRUSH behind) const override { return brush_ ? brush_.get() : behind; }
    void command(int, int code) override {
        if (code == BN_CLICKED && control) raise(static_cast<Button*>(control)->onClick);
    }

    std::uint32_t colour = buttonFace;

  private:
    // A caption that is too long keeps its beginning, by which captions are told apart.
    void alignText() {
        if (!control) return;
        const bool fits = textWidth(*control, withoutMnemonic(mnemonic_)) + spare <= bounds().width();
        const LONG_PTR style = GetWindowLongPtrW(window, GWL_STYLE);
        const LONG_PTR wanted = fits ? style & ~LONG_PTR{BS_LEFT} : style | BS_LEFT;
        if (wanted == style) return;
        SetWindowLongPtrW(window, GWL_STYLE, wanted);
        InvalidateRect(window, nullptr, TRUE);
    }

    static constexpr int spare = 8;  // pixels of a button's frame
    std::string mnemonic_;
    UniqueBrush brush_;
};

ButtonWindow& window(const Button& button) {
    return static_cast<ButtonWindow&>(button.native());
}

}  // namespace
}  // namespace win32

using win32::window;

Button::Button(Container& parent, const std::string& name, const std::string& mnemonic)
    : Control(std::make_unique<win32::ButtonWindow>(&parent.native(), name)) {
    setCaption(mnemonic);
}

std::string Button::caption() const {
    return win32::withoutMnemonic(window(*this).mnemonic());
}

void Button::setCaption(const std::string& mnemonic) {
    window(*this).setMnemonic(mnemonic);
}

void Button::setPlainCaption(const std::string& text) {
    window(*this).setMnemonic(win32::asMnemonic(text));
}

void Button::setBackColour(std::uint32_t colour) {
    window(*this).setBackColour(colour);
}

std::uint32_t Button::backColour() const {
    return window(*this).colour;
}

}  // namespace platform
