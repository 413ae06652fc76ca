#include <utility>

#include "platform/headless/suite_windows.h"
#include "tests/support/suite_window.h"

namespace support {

struct SuiteWindow::Native {
    int told = 0;
};

SuiteWindow::SuiteWindow() : native_(std::make_unique<Native>()) {
    platform::headless::suiteWindows().push_back(
        {windowClass, [this](std::uint32_t message) { native_->told += message == setChanged; }});
}

SuiteWindow::~SuiteWindow() {
    platform::headless::suiteWindows().pop_back();
}

int SuiteWindow::told() {
    return std::exchange(native_->told, 0);
}

}  // namespace support
