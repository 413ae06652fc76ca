#include "platform/suite.h"

#include "platform/headless/suite_windows.h"

namespace platform {

std::vector<headless::SuiteWindow>& headless::suiteWindows() {
    static std::vector<SuiteWindow> windows;
    return windows;
}

namespace suite {

using headless::suiteWindows;

// Every one of them takes part in the protocol; its handle is its place, from 1.
void findWindows(const std::string&, const std::string& windowClass, std::vector<std::intptr_t>& found,
                 std::int16_t) {
    for (std::size_t i = 0; i < suiteWindows().size(); ++i)
        if (suiteWindows()[i].windowClass == windowClass) found.push_back(static_cast<std::intptr_t>(i) + 1);
}

void send(std::intptr_t window, std::uint32_t message) {
    suiteWindows().at(static_cast<std::size_t>(window - 1)).take(message);
}

}  // namespace suite
}  // namespace platform
