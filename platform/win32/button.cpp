#include "platform/basic_controls.h"
#include "platform/metrics.h"
#include "platform/win32/colours.h"
#include "platform/win32/event.h"
#include "platform/win32/failure.h"
#include "platform/win32/handle.h"
#include "platform/mnemonic.h"
#include "platform/win32/native.h"
#include "platform/win32/wide.h"

namespace platform {

namespace win32 {

namespace {

constexpr std::uint32_t systemColourFlag = 0x80000000;
constexpr std::uint32_t buttonFace = systemColourFlag + COLOR_BTNFACE;

/// Quieter than a caption, but not as pale as what is disabled.
COLORREF hintColour() {
    const COLORREF text = GetSysColor(COLOR_BTNTEXT);
    if (isHighContrast()) return text;
    const COLORREF face = GetSysColor(COLOR_BTNFACE);
    const auto mixed = [](BYTE over, BYTE below) { return static_cast<BYTE>((3 * over + 2 * below) / 5); };
    return RGB(mixed(GetRValue(text), GetRValue(face)), mixed(GetGValue(text), GetGValue(face)),
               mixed(GetBValue(text), GetBValue(face)));
}

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
    Handled notify(NMHDR& header) override {
        static constexpr NotifyRoute<ButtonWindow> routes[] = {
            onNotify<static_cast<UINT>(NM_CUSTOMDRAW), &ButtonWindow::drawKeyHint>(),
        };
        return dispatch(*this, routes, header);
    }
    void fontChanged() override { reserveHint(); }

    void setKeyHint(const std::string& key) {
        if (key == keyHint_) return;
        keyHint_ = key;
        reserveHint();
        alignText();
        InvalidateRect(window, nullptr, TRUE);
    }
    const std::string& keyHint() const { return keyHint_; }

    void setBackColour(std::uint32_t wanted) {
        colour = wanted;
        const COLORREF rgb =
            wanted & systemColourFlag ? GetSysColor(static_cast<int>(wanted & 0xFF)) : wanted;
        brush_.reset();
        if (wanted != buttonFace) brush_ = UniqueBrush(require(CreateSolidBrush(rgb), "Farbe setzen"));
        InvalidateRect(window, nullptr, TRUE);
    }

    const std::string& mnemonic() const { return mnemonic_; }
    long accessibleRole() const override { return win32::role::pushButton; }
    KeyUse keyUse() const override { return KeyUse::press; }
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
        const int room = bounds().width() - hintWidth();
        const bool fits = textWidth(*control, withoutMnemonic(mnemonic_)) + spare <= room;
        const LONG_PTR style = GetWindowLongPtrW(window, GWL_STYLE);
        const LONG_PTR wanted = fits ? style & ~LONG_PTR{BS_LEFT} : style | BS_LEFT;
        if (wanted == style) return;
        SetWindowLongPtrW(window, GWL_STYLE, wanted);
        InvalidateRect(window, nullptr, TRUE);
    }

    /// What the hint takes away from the caption, with the gap between them.
    int hintWidth() const {
        if (!control || keyHint_.empty()) return 0;
        return hintLeft() + textWidth(*control, keyHint_) + MulDiv(5, dpi(), 96);
    }
    int hintLeft() const { return MulDiv(5, dpi(), 96); }

    void reserveHint() const {
        RECT margin{1, 1, 1, 1};
        margin.left += hintWidth();
        send(BCM_SETTEXTMARGIN, 0, &margin);
    }

    /// Between the button's ground and its caption, so that the hint goes with the button when that fades
    /// from one state into another.
    Handled drawKeyHint(NMCUSTOMDRAW& drawing) {
        if (drawing.dwDrawStage != CDDS_PREPAINT || keyHint_.empty()) return CDRF_DODEFAULT;
        const Selected font(drawing.hdc, fontHandle());
        SetBkMode(drawing.hdc, TRANSPARENT);
        SetTextColor(drawing.hdc, hintColour());
        RECT area = drawing.rc;
        area.left += hintLeft();
        constexpr UINT oneLine = DT_LEFT | DT_VCENTER | DT_SINGLELINE;
        DrawTextW(drawing.hdc, wide(keyHint_).c_str(), -1, &area, oneLine | DT_NOPREFIX);
        if ((GetWindowLongPtrW(window, GWL_STYLE) & BS_LEFT) == 0) return CDRF_DODEFAULT;

        // Not every system keeps a caption that is too long away from the hint.
        area.left = drawing.rc.left + hintWidth();
        area.right -= spare / 2;
        SetTextColor(drawing.hdc, GetSysColor(enabled ? COLOR_BTNTEXT : COLOR_GRAYTEXT));
        DrawTextW(drawing.hdc, wide(mnemonic_).c_str(), -1, &area, oneLine | DT_END_ELLIPSIS);
        if ((drawing.uItemState & CDIS_FOCUS) != 0) {
            RECT inner = drawing.rc;
            InflateRect(&inner, -spare / 2, -spare / 2);
            DrawFocusRect(drawing.hdc, &inner);
        }
        return CDRF_SKIPDEFAULT;
    }

    static constexpr int spare = 8;  // pixels of a button's frame
    std::string mnemonic_;
    std::string keyHint_;
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
    return withoutMnemonic(window(*this).mnemonic());
}

void Button::setCaption(const std::string& mnemonic) {
    window(*this).setMnemonic(mnemonic);
}

void Button::setPlainCaption(const std::string& text) {
    window(*this).setMnemonic(asMnemonic(text));
}

void Button::setKeyHint(const std::string& key) {
    window(*this).setKeyHint(key);
}

std::string Button::keyHint() const {
    return window(*this).keyHint();
}

void Button::setBackColour(std::uint32_t colour) {
    window(*this).setBackColour(colour);
}

std::uint32_t Button::backColour() const {
    return window(*this).colour;
}

}  // namespace platform
