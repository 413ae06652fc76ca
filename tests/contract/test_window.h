#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/form.h"
#include "platform/list_view.h"

namespace contract {

using Events = std::vector<std::string>;

/// A window on the screen, and a log of what was raised there.
struct TestWindow {
    platform::Form form{"frmContract", "Vertrag", {}};
    Events events;

    TestWindow() { form.show(); }

    /// A handler that logs `event` and what it is told, one behind the other.
    auto log(const std::string& event) {
        return [this, event](const auto&... told) { events.push_back((event + ... + (' ' + textOf(told)))); };
    }
    /// What was raised since the last question.
    Events raised() { return std::exchange(events, {}); }

  private:
    static const std::string& textOf(const std::string& text) { return text; }
    static std::string textOf(int number) { return std::to_string(number); }
    static std::string textOf(platform::MouseButton button) {
        return std::to_string(static_cast<int>(button));
    }
    static std::string textOf(platform::Point p) { return std::to_string(p.x) + ',' + std::to_string(p.y); }
};

}  // namespace contract
