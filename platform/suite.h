#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// The windows of the suite's other programs.
namespace platform::suite {

/// Appends the handles of all top-level windows of that class that take part in the message protocol of that
/// name: those that answer the registered message, sent without arguments, with something other than 0
/// within 200 milliseconds. `option` is always 0.
void findWindows(const std::string& messageName, const std::string& windowClass,
                 std::vector<std::intptr_t>& found, std::int16_t option);

/// Delivers a message without arguments and waits until the window has processed it. A window that has gone
/// meanwhile is not reached.
void send(std::intptr_t window, std::uint32_t message);

}  // namespace platform::suite
