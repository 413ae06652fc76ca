#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/control.h"
#include "platform/icon_image.h"

namespace platform {

/// A row of picture buttons. Buttons count from 1, separators included; keys ignore case.
class Toolbar : public Control {
  public:
    struct MenuEntry {
        std::string key;    ///< also the name of its image
        std::string text;
    };
    struct Button {
        std::string key;    ///< empty for a separator; also the name of its image
        std::string toolTip;
        std::string tag;
        std::vector<MenuEntry> menu;   ///< entries of its drop-down arrow; none: no arrow
    };
    struct Image {
        std::string key;
        IconImage icon;
    };

    Toolbar(Container& parent, const std::string& name);

    /// Images of one size; setting them again (after a change of resolution) replaces them.
    void setImages(const std::vector<Image>& images);
    void clear();
    void add(const Button& button);

    int count() const;
    /// 0 when there is no such button.
    int indexOf(const std::string& key) const;
    const Button& button(int index) const;
    void setTag(int index, const std::string& tag);
    void setImage(int index, const std::string& imageKey);
    const std::string& image(int index) const;
    void setToolTip(int index, const std::string& text);
    using Control::setEnabled;
    using Control::enabled;
    void setEnabled(int index, bool enabled);
    bool enabled(int index) const;
    /// Size that holds all buttons.
    Size preferredSize() const;

    std::function<void(const Button&)> onButtonClick;
    std::function<void(const Button& parent, const MenuEntry&)> onMenuClick;
};

}  // namespace platform
