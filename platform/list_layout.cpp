#include "platform/list_layout.h"

#include <algorithm>
#include <cstddef>
#include <sstream>

namespace platform {

namespace {

constexpr int widestColumn = 10000;

/// Each of 1 to n once.
bool isOrder(std::vector<int> order) {
    std::sort(order.begin(), order.end());
    for (std::size_t i = 0; i < order.size(); ++i)
        if (order[i] != static_cast<int>(i) + 1) return false;
    return true;
}

}  // namespace

std::string ListLayout::text() const {
    std::ostringstream text;
    for (const int width : widths) text << width << ' ';
    for (const int column : order) text << column << ' ';
    return text.str();
}

std::optional<ListLayout> ListLayout::restored(const std::string& stored) const {
    std::istringstream text(stored);
    std::vector<int> numbers;
    for (int number; text >> number;) numbers.push_back(number);
    const std::size_t known = numbers.size() / 2;
    if (!text.eof() || numbers.size() % 2 != 0 || known == 0 || known > widths.size()) return std::nullopt;

    const auto middle = numbers.begin() + static_cast<std::ptrdiff_t>(known);
    ListLayout layout{widths, {middle, numbers.end()}};
    std::copy(numbers.begin(), middle, layout.widths.begin());
    const auto isWidth = [](int width) { return width >= 0 && width <= widestColumn; };
    if (!std::all_of(numbers.begin(), middle, isWidth) || !isOrder(layout.order)) return std::nullopt;
    for (std::size_t place = 0; place < order.size(); ++place) {
        if (static_cast<std::size_t>(order[place]) <= known) continue;
        const auto before = std::min(place, layout.order.size());
        layout.order.insert(layout.order.begin() + static_cast<std::ptrdiff_t>(before), order[place]);
    }
    return layout;
}

}  // namespace platform
