#pragma once

#include <string>
#include <vector>

#include "platform/toolbar.h"
#include "platform/win32/image_list.h"
#include "platform/win32/native.h"

namespace platform::win32 {

/// Buttons count from 1; so do their command numbers.
class ToolbarWindow : public Control::Native {
  public:
    struct Item {
        Toolbar::Button button;
        std::string image;
        bool enabled = true;
    };

    ToolbarWindow(Native* parentWindow, const std::string& controlName);

    Handled handle(const Message& m) override;
    Handled notify(NMHDR& header) override;
    void command(int id, int code) override;
    long accessibleRole() const override { return win32::role::toolBar; }
    KeyUse keyUse() const override { return KeyUse::press; }

    void setImages(const std::vector<Toolbar::Image>& images);
    void clear();
    void add(const Toolbar::Button& button);
    int count() const { return static_cast<int>(items_.size()); }
    Item& at(int index);
    // Show what `at` was changed to, each alone: what may change a width has the whole bar measured anew.
    void showImage(int index) const;
    void showText(int index) const;
    void showState(int index) const;
    Size preferredSize() const;
    RECT buttonArea(int index) const;

  private:
    Toolbar& toolbar() const { return *static_cast<Toolbar*>(control); }
    int imageIndex(const std::string& key) const;
    Handled dropDown(NMTOOLBARW& notification);
    void showMenu(int index);
    Handled keyDown(int key, int shift);
    Handled wantedKeys() { return DLGC_WANTARROWS; }
    void focused();
    void unfocused();
    bool moveHot(int by);

    std::vector<Item> items_;
    std::vector<std::string> imageKeys_;
    UniqueImageList images_, disabledImages_;
};

}  // namespace platform::win32
