#include "platform/win32/handle.h"

#include <atomic>

namespace platform::win32 {

namespace {
std::atomic<int> handles{0};  // pictures are decoded on other threads too
}

int liveHandles() {
    return handles;
}

void countHandles(int difference) {
    handles += difference;
}

}  // namespace platform::win32
