#pragma once

#include <cstdint>
#include <string>

namespace model {

/// A region of interest. The first region of a set is the whole picture and has no rectangle: -1 throughout.
struct kvTamROI {
    std::string Name;
    std::string Description;
    std::int32_t X = -1;   ///< left, in picture pixels
    std::int32_t Y = -1;   ///< top
    std::int32_t dX = -1;  ///< width
    std::int32_t dY = -1;  ///< height
    std::int32_t Z = -1;   ///< kept as it was read
};

}  // namespace model
