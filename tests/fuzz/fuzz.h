#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

inline void require(bool holds) {
    if (!holds) std::abort();
}

/// A file that never reaches a disk, for readers that want a name.
class MemoryFile {
  public:
    MemoryFile()
        : number_(::memfd_create("fuzz", 0)), name_("Z:\\proc\\self\\fd\\" + std::to_string(number_)) {}
    ~MemoryFile() { ::close(number_); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    const std::string& name() const { return name_; }
    void fill(std::string_view content) const {
        const auto size = static_cast<ssize_t>(content.size());
        require(::ftruncate(number_, 0) == 0 && ::pwrite(number_, content.data(), content.size(), 0) == size);
    }

  private:
    int number_;
    std::string name_;
};
