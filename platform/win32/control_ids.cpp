#include "platform/win32/control_ids.h"

#include <charconv>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>

namespace platform::win32 {

namespace {

/// The number of "name(number)".
std::optional<int> slot(std::string_view name, const ControlSeries& series) {
    if (!name.starts_with(series.name)) return std::nullopt;
    name.remove_prefix(series.name.size());
    if (name.size() < 3 || name.front() != '(' || name.back() != ')') return std::nullopt;
    int number = -1;
    const char* end = name.data() + name.size() - 1;
    const auto [stopped, error] = std::from_chars(name.data() + 1, end, number);
    if (error != std::errc() || stopped != end || number < 0 || number >= series.count) return std::nullopt;
    return number;
}

int refuse(std::string_view name) {
    throw std::logic_error("control without a number: " + std::string(name));
}

UnlistedControl unlisted = refuse;

}  // namespace

UnlistedControl setUnlistedControl(UnlistedControl answer) {
    return std::exchange(unlisted, answer);
}

int controlId(std::string_view name) {
    for (const ControlId& control : controlIds)
        if (control.name == name) return control.id;
    for (const ControlSeries& series : controlSeries)
        if (const auto number = slot(name, series)) return series.firstId + *number;
    return unlisted(name);
}

}  // namespace platform::win32
