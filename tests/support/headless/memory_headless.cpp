#include <dirent.h>
#include <malloc.h>
#include <sys/resource.h>

#include "tests/support/memory.h"

#ifdef __SANITIZE_ADDRESS__
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();  // its header is not everywhere
#endif

namespace support {

Handles handles() {
    Handles found;
    DIR* const open = ::opendir("/proc/self/fd");
    while (open != nullptr && ::readdir(open) != nullptr) ++found.system;
    if (open != nullptr) ::closedir(open);
    return found;
}

std::size_t memoryInUse() {
#ifdef __SANITIZE_ADDRESS__
    return __sanitizer_get_current_allocated_bytes();
#else
    return ::mallinfo2().uordblks;
#endif
}

std::size_t mostMemory() {
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    return static_cast<std::size_t>(usage.ru_maxrss) * 1024;
}

}  // namespace support
