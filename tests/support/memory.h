#pragma once

#include <cstddef>

/// What this process holds, to be compared with what it held before.
namespace support {

/// Files, threads, pictures, windows and whatever else the system hands out.
struct Handles {
    int ours = 0;    ///< that our own owners count; 0 where there are none
    int system = 0;  ///< that the system counts: files, threads, keys of the registry
};
Handles handles();

/// Bytes of memory that are in use.
std::size_t memoryInUse();
/// The most memory that was in use at any moment since the process began.
std::size_t mostMemory();

}  // namespace support
