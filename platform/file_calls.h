#pragma once

#include <atomic>

/// The one place that every call of the system passes which reads or changes a file or changes a setting. A
/// test puts a watcher here that lets single calls fail as disks, shares and power supplies do. The program
/// itself never does, and pays one load and one branch a call.
namespace platform::files {

enum class Call {
    open, read, list,                                                                // reading
    createDirectory, create, write, flush, close, rename, remove, flushDirectory,   // changing files
    openKey, setValue,                                                               // changing settings
};

/// What becomes of a call.
enum class Fault {
    none,           ///< it is made
    noSpace,        ///< it is not made, for lack of space
    accessDenied,
    networkGone,
    replyLost,      ///< it is made, but the answer is that the network is gone
    cutShort,       ///< of what should be written the first half is; other calls are made
    crash,          ///< it is not made: there is nobody left to make it
};

/// Asked before every call, on the thread that makes it. Tests only.
using FaultWatcher = Fault (*)(Call call);
inline std::atomic<FaultWatcher> faultWatcher{nullptr};

inline Fault faultAt(Call call) {
    const FaultWatcher watcher = faultWatcher.load(std::memory_order_relaxed);
    return watcher == nullptr ? Fault::none : watcher(call);
}

}  // namespace platform::files
