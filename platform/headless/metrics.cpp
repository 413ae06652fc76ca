#include "platform/metrics.h"

#include <algorithm>

namespace platform {

Metrics metricsOf(const Control&) {
    return {};
}

int textWidth(const Control& control, std::string_view text) {
    const auto characters = std::count_if(text.begin(), text.end(), [](char c) {
        return (static_cast<unsigned char>(c) & 0xC0) != 0x80;  // not those that continue a character
    });
    return static_cast<int>(characters) * metricsOf(control).charWidth;
}

}  // namespace platform
