#include "platform/basic_controls.h"
#include "platform/win32/event.h"
#include "platform/win32/native.h"

namespace platform {

namespace win32 {

namespace {

class CheckBoxWindow : public Control::Native {
  public:
    CheckBoxWindow(Native* parentWindow, const std::string& controlName, const std::string& caption)
        : Native(parentWindow, controlName), mnemonic_(caption) {
        createControl(WC_BUTTONW, BS_AUTOCHECKBOX | WS_TABSTOP);
        setText(caption);
    }

    long accessibleRole() const override { return win32::role::checkButton; }
    KeyUse keyUse() const override { return KeyUse::press; }
    std::vector<std::string> mnemonics() const override { return {mnemonic_}; }
    void access(std::size_t) override { send(BM_CLICK); }
    HBRUSH ground(HBRUSH behind) const override { return behind; }
    void command(int, int code) override {
        if (code == BN_CLICKED && control) raise(static_cast<CheckBox*>(control)->onClick);
    }

  private:
    std::string mnemonic_;
};

}  // namespace
}  // namespace win32

CheckBox::CheckBox(Container& parent, const std::string& name, const std::string& mnemonic)
    : Control(std::make_unique<win32::CheckBoxWindow>(&parent.native(), name, mnemonic)) {}

bool CheckBox::checked() const {
    return native_->send(BM_GETCHECK) == BST_CHECKED;
}

void CheckBox::setChecked(bool checked) {
    native_->send(BM_SETCHECK, checked ? BST_CHECKED : BST_UNCHECKED);
}

}  // namespace platform
