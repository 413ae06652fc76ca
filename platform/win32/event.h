#pragma once

#include <functional>
#include <utility>

#include "platform/application.h"

namespace platform::win32 {

/// Raises an event: what its handler throws ends here. The handler may replace itself meanwhile.
template <class... Parameters, class... Arguments>
void raise(const std::function<void(Parameters...)>& handler, Arguments&&... arguments) {
    if (!handler) return;
    application::guard([held = handler, &arguments...] { held(arguments...); });
}

/// The same for an event that answers something; `otherwise` when it throws or has no handler.
template <class Result, class... Parameters, class... Arguments>
Result ask(const std::function<Result(Parameters...)>& handler, Result otherwise, Arguments&&... arguments) {
    if (handler) application::guard([&, held = handler] { otherwise = held(arguments...); });
    return otherwise;
}

}  // namespace platform::win32
