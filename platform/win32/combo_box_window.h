#pragma once

#include <string>
#include <vector>

#include "platform/basic_controls.h"
#include "platform/win32/native.h"

namespace platform::win32 {

/// Which entry is chosen is kept here as well: the system's combo boxes disagree with each other about it
/// once the user has typed, and tell of a choice before their own text has changed.
class ComboBoxWindow : public Control::Native {
  public:
    ComboBoxWindow(Native* parentWindow, const std::string& controlName, ComboBox::Style style);

    HWND keyWindow() const override;
    long accessibleRole() const override { return win32::role::comboBox; }
    KeyUse keyUse() const override;
    win32::wheel::Use wheelUse() const override;
    void closePopup() override;
    void move(Rect wanted) override;
    void fontChanged() override;
    void command(int id, int code) override;

    int chosen() const { return chosen_; }
    void choose(int index);
    int count() const;
    std::string item(int index) const;
    void insert(int index, const std::string& text);  ///< -1: at the end
    void add(const std::vector<std::string>& texts);
    void replace(int index, const std::string& text);
    void remove(int index);
    void clear();
    std::string shownText() const;
    void replaceText(const std::string& text);

  private:
    ComboBox& box() const { return *static_cast<ComboBox*>(control); }
    void adopt();
    void showChosen();

    ComboBox::Style style_;
    int chosen_ = -1;
};

}  // namespace platform::win32
