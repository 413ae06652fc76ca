#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace platform::headless {

/// A window of another program of the suite. There are none but those that a test puts up.
struct SuiteWindow {
    std::string windowClass;
    std::function<void(std::uint32_t message)> take;
};
std::vector<SuiteWindow>& suiteWindows();

}  // namespace platform::headless
