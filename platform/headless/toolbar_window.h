#pragma once

#include <string>
#include <vector>

#include "platform/headless/window.h"
#include "platform/toolbar.h"

namespace platform::headless {

struct ToolbarWindow : Control::Native {
    struct Item {
        Toolbar::Button button;
        std::string image;
        bool enabled = true;
    };
    using Native::Native;
    Item& at(int index);

    std::vector<Item> items;
    int imageSize = 16;
};

}  // namespace platform::headless
