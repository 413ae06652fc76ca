#pragma once

#include "platform/errors.h"

namespace support {

/// The RuntimeError that the action throws; one with the number 0 when it throws none.
template <class Action>
platform::RuntimeError errorOf(Action action) {
    try {
        action();
    } catch (const platform::RuntimeError& problem) {
        return problem;
    }
    return {0, {}};
}

}  // namespace support
