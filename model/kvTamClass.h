#pragma once

#include <cstdint>
#include <string>

namespace model {

/// A class into which samples are sorted.
struct kvTamClass {
    std::string Name;
    std::string Description;
    std::int32_t Number = 0;  ///< its position, counted from 1, at the time it was added
};

}  // namespace model
