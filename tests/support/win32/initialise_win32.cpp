#include "platform/win32/control_ids.h"
#include "platform/win32/session.h"
#include "tests/support/initialise.h"

namespace support {

namespace {

/// Tests make controls under names of their own.
int anyNumber(std::string_view) {
    constexpr int first = 20000, count = 10000;
    static int next = 0;
    return first + next++ % count;
}

}  // namespace

void initialise() {
    static const platform::win32::Session session;
    platform::win32::setUnlistedControl(anyNumber);
}

}  // namespace support
