#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "controls/property_bag.h"
#include "platform/basic_controls.h"
#include "platform/user_control.h"

namespace controls {

/// A column of equally tall buttons, one for each item of a list that the host fills; a scroll bar moves the
/// window of items that the buttons show. There are only as many buttons as the control has room for.
///
/// Items count from 0 in Remove, Rename and Click.
class kvButtonList : public platform::UserControl {
  public:
    kvButtonList(platform::Container& parent, const std::string& name);

    /// Reading gives the control's own colour (0x00BBGGRR, or 0x80000000 + the number of a system colour);
    /// setting colours the buttons.
    std::uint32_t BackColor() const { return backColour_; }
    void BackColor(std::uint32_t BackColor);
    /// Reading gives the control's own state; setting enables or disables the buttons.
    bool Enabled() const { return enabled(); }
    void Enabled(bool Enabled);
    /// Of the buttons.
    platform::Font Font() const;
    void Font(const platform::Font& Font);
    /// Height of a button in pixels. Below 1 the buttons stay as they are.
    std::int16_t ButtonHeight() const { return buttonHeight_; }
    void ButtonHeight(std::int16_t ButtonHeight);

    /// Whether the first ten buttons tell the digit by which the host has them pressed: 1 to 9, and 0.
    void ShowDigits(bool ShowDigits);
    /// How many buttons show an item.
    int ShownCount() const;
    /// As a click on the button there, counted from 0; nothing when it shows no item.
    void PressShown(int slot);
    /// Scrolls by so many pages of buttons.
    void ScrollPages(int pages);
    /// Moves the focus from one button to the next ones, and scrolls at the first and the last; false when no
    /// button has the focus.
    bool MoveFocus(int by);

    /// Lays the control out anew.
    void Refresh();

    /// Appends an item: its caption, shown as it is, and two texts that are kept with it. RuntimeError
    /// overflow beyond 32767 items. Buttons that stay as they are are not touched, so that filling a long
    /// list one by one costs no more than its items.
    void Add(const std::string& Caption, const std::string& Second, const std::string& Third);
    /// Replaces all items by ones with these captions and empty texts, laid out once. RuntimeError overflow.
    void SetAll(const std::vector<std::string>& captions);
    void Clear();
    /// RuntimeError subscriptOutOfRange for an item that is not there.
    void Remove(std::int16_t Index);
    /// The texts that are not passed stay. RuntimeError subscriptOutOfRange.
    void Rename(std::int16_t Index, const std::string& Caption, const std::optional<std::string>& Second = {},
                const std::optional<std::string>& Third = {});

    struct Item {
        std::string Caption, Second, Third;
        friend bool operator==(const Item&, const Item&) = default;
    };
    std::int32_t count() const { return static_cast<std::int32_t>(items_.size()) - 1; }
    /// Index counts from 0. RuntimeError subscriptOutOfRange.
    const Item& item(std::int32_t Index) const { return items_[position(Index)]; }

    /// The buttons keep their own colour and state: BackColor and Enabled are put on the control itself.
    /// ButtonHeight is stored and seen with the next layout.
    void ReadProperties(const PropertyBag& bag);
    void WriteProperties(PropertyBag& bag) const;
    PropertyChanged onPropertyChanged;

    /// A button was pressed: the item that it shows.
    std::function<void(std::int16_t& Index)> Click;

  private:
    std::size_t position(std::int32_t index) const;
    platform::Button& button(int slot);
    void layOutScrollBar(int slots);
    int layOutSlots();
    void showCaptions();
    void pressed(int slot);
    void wheel(int notches);
    void changed(std::string_view key) const;
    void paint(platform::Canvas& canvas) const;

    std::vector<Item> items_{1};                              // counts from 1; element 0 is not used
    std::vector<std::unique_ptr<platform::Button>> Command1;  // counts from 0; element 0 exists always
    platform::ScrollBar VScroll1;
    std::uint32_t backColour_ = 0x8000000F;
    std::int16_t buttonHeight_ = 23;
    bool showDigits_ = false;
    int wheelRest_ = 0;
};

}  // namespace controls
