#pragma once

#include <atomic>
#include <chrono>
#include <thread>

#include "platform/file_calls.h"

namespace support {

/// A disk that can be made to hang: who opens a file then is stuck until all are let go, or this is
/// gone. One at a time.
class HangingDisk {
  public:
    HangingDisk() {
        stuck = false;
        platform::files::faultWatcher = opened;
    }
    ~HangingDisk() {
        platform::files::faultWatcher = nullptr;
        letGo();
    }
    HangingDisk(const HangingDisk&) = delete;
    HangingDisk& operator=(const HangingDisk&) = delete;

    void hang(bool on) { hangs = on; }      ///< whoever comes from now on
    bool isStuck() const { return stuck; }  ///< whether anybody was since the last letGo()
    void letGo() {
        hangs = stuck = false;
        ++released;
    }

  private:
    static platform::files::Fault opened(platform::files::Call call) {
        const int before = released;
        if (call == platform::files::Call::open && hangs)
            for (stuck = true; released == before;) std::this_thread::sleep_for(std::chrono::milliseconds(1));
        return platform::files::Fault::none;
    }

    static inline std::atomic<bool> hangs{false};
    static inline std::atomic<bool> stuck{false};
    static inline std::atomic<int> released{0};
};

}  // namespace support
