#include "editor/notify_suite.h"

#include "platform/suite.h"

namespace editor {

namespace {

// Forms of the suite's compiled programs, and of those that run in their development environment.
constexpr const char* formClasses[] = {"ThunderRT6FormDC", "ThunderFormDC"};
constexpr std::uint32_t setChanged = 1087;

}  // namespace

int NotifySuite() {
    std::vector<std::intptr_t> windows;
    for (const char* formClass : formClasses)
        platform::suite::findWindows(suiteMessages, formClass, windows, 0);
    for (const std::intptr_t window : windows) platform::suite::send(window, setChanged);
    return 0;
}

}  // namespace editor
