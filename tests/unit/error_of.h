#pragma once

#include <cstdint>

#include "platform/errors.h"

/// The number of the RuntimeError that the action throws; 0 when it throws none.
template <class Action>
std::int32_t errorOf(Action action) {
    try {
        action();
    } catch (const platform::RuntimeError& problem) {
        return problem.number();
    }
    return 0;
}
