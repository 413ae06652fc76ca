#include "platform/basic_controls.h"
#include "platform/win32/event.h"
#include "platform/win32/failure.h"
#include "platform/mnemonic.h"
#include "platform/win32/native.h"
#include "platform/win32/wide.h"

namespace platform {

namespace win32 {

namespace {

class TabStripWindow : public Control::Native {
  public:
    TabStripWindow(Native* parentWindow, const std::string& controlName,
                   const std::vector<std::string>& texts)
        : Native(parentWindow, controlName), texts_(texts) {
        createControl(WC_TABCONTROLW, WS_TABSTOP);
        for (std::size_t i = 0; i < texts.size(); ++i) {
            std::wstring text = wide(texts[i]);
            TCITEMW item{};
            item.mask = TCIF_TEXT;
            item.pszText = text.data();
            if (send(TCM_INSERTITEMW, i, &item) < 0) fail("Registerkarte anlegen");
        }
    }

    long accessibleRole() const override { return win32::role::pageTabList; }
    bool hasPages() const override { return true; }
    Handled notify(NMHDR& header) override {
        if (header.code != static_cast<UINT>(TCN_SELCHANGE) || quiet()) return std::nullopt;
        clicked();
        return done;
    }

    std::vector<std::string> mnemonics() const override { return texts_; }
    void access(std::size_t which) override {
        if (send(TCM_GETCURSEL) == static_cast<LRESULT>(which)) return;
        send(TCM_SETCURSEL, which);
        clicked();
    }

  private:
    void clicked() const {
        if (control) raise(static_cast<TabStrip*>(control)->onClick);
    }
    std::vector<std::string> texts_;
};

}  // namespace
}  // namespace win32

TabStrip::TabStrip(Container& parent, const std::string& name, const std::vector<std::string>& mnemonics)
    : Control(std::make_unique<win32::TabStripWindow>(&parent.native(), name, mnemonics)) {}

int TabStrip::count() const {
    return static_cast<int>(native_->mnemonics().size());
}

std::string TabStrip::tab(int index) const {
    win32::checkIndex(index, 1, count());
    return withoutMnemonic(native_->mnemonics()[static_cast<std::size_t>(index - 1)]);
}

int TabStrip::selected() const {
    return static_cast<int>(native_->send(TCM_GETCURSEL)) + 1;
}

void TabStrip::select(int index) {
    win32::checkIndex(index, 1, count());
    const Native::Quiet quiet(*native_);
    native_->send(TCM_SETCURSEL, static_cast<WPARAM>(index - 1));
}

Rect TabStrip::pageArea() const {
    const Rect all = bounds();
    RECT page{all.left, all.top, all.right, all.bottom};
    native_->send(TCM_ADJUSTRECT, FALSE, &page);
    return {page.left, page.top, page.right, page.bottom};
}

}  // namespace platform
