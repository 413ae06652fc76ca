#include "platform/window_placement.h"

#include <algorithm>
#include <sstream>
#include <vector>

namespace platform {

std::string WindowPlacement::text() const {
    std::ostringstream text;
    text << restored.left << ' ' << restored.top << ' ' << restored.width() << ' ' << restored.height() << ' '
         << resolution << ' ' << maximised;
    return text.str();
}

std::optional<WindowPlacement> WindowPlacement::parse(const std::string& stored) {
    constexpr int furthest = 1000000;  // no screen is as large, and nothing computed from it overflows
    std::istringstream text(stored);
    std::vector<int> numbers;
    for (int number; text >> number;) numbers.push_back(std::clamp(number, -furthest, furthest));
    if (!text.eof() || (numbers.size() != 4 && numbers.size() != 6)) return std::nullopt;
    numbers.resize(6);
    if (numbers[2] <= 0 || numbers[3] <= 0 || numbers[4] < 0) return std::nullopt;
    return WindowPlacement{Rect::at(numbers[0], numbers[1], numbers[2], numbers[3]), numbers[4],
                           numbers[5] == 1};
}

}  // namespace platform
