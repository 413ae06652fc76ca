#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/form.h"

namespace contract {

/// A window on the screen, and a log of what was raised there.
struct TestWindow {
    platform::Form form{"frmContract", "Vertrag", {}};
    std::vector<std::string> events;

    TestWindow() { form.show(); }

    /// A handler that logs `event`.
    std::function<void()> log(const std::string& event) {
        return [this, event] { events.push_back(event); };
    }
    /// What was raised since the last question.
    std::vector<std::string> raised() { return std::exchange(events, {}); }
};

using Events = std::vector<std::string>;

}  // namespace contract
