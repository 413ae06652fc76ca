#pragma once

#include <functional>
#include <utility>

namespace platform::headless {

/// Shows the exception that is being handled to the user.
void reportError();

/// Raises an event: what its handler throws ends here. The handler may replace itself meanwhile.
template <class... Parameters, class... Arguments>
void raise(const std::function<void(Parameters...)>& handler, Arguments&&... arguments) {
    if (!handler) return;
    try {
        const auto held = handler;
        held(std::forward<Arguments>(arguments)...);
    } catch (...) {
        reportError();
    }
}

/// The same for an event that answers something; `otherwise` when it throws or has no handler.
template <class Result, class... Parameters, class... Arguments>
Result ask(const std::function<Result(Parameters...)>& handler, Result otherwise, Arguments&&... arguments) {
    if (!handler) return otherwise;
    try {
        const auto held = handler;
        return held(std::forward<Arguments>(arguments)...);
    } catch (...) {
        reportError();
        return otherwise;
    }
}

}  // namespace platform::headless
