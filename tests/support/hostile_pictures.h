#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// Picture files that were cut off, damaged, or made to do harm.
namespace support {

struct HostilePicture {
    std::string what;
    std::string ending;  ///< of its name, with the dot
    std::string bytes;
    bool mayShow = false;  ///< a decoder may make something of it
};

/// Of all kinds, each below 200 KB.
std::vector<HostilePicture> hostilePictures();

}  // namespace support
