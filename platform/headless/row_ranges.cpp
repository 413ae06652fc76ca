#include "platform/headless/row_ranges.h"

#include <algorithm>
#include <iterator>

namespace platform::headless {

bool RowRanges::contains(int row) const {
    const auto behind = ranges_.upper_bound(row);
    return behind != ranges_.begin() && std::prev(behind)->second >= row;
}

int RowRanges::next(int row) const {
    if (contains(row)) return row;
    const auto behind = ranges_.upper_bound(row);
    return behind == ranges_.end() ? 0 : behind->first;
}

void RowRanges::insert(int first, int last) {
    if (first > last) return;
    // Ranges that touch the new one become part of it.
    if (first > 1 && contains(first - 1)) first = std::prev(ranges_.lower_bound(first))->first;
    if (const auto behind = ranges_.upper_bound(last + 1); behind != ranges_.begin())
        last = std::max(last, std::prev(behind)->second);
    erase(first, last);
    ranges_.emplace(first, last);
    size_ += last - first + 1;
}

void RowRanges::erase(int first, int last) {
    if (first > last) return;
    auto it = ranges_.upper_bound(first);
    if (it != ranges_.begin() && std::prev(it)->second >= first) --it;
    while (it != ranges_.end() && it->first <= last) {
        const auto [start, end] = *it;
        size_ -= end - start + 1;
        it = ranges_.erase(it);
        if (start < first) {
            ranges_.emplace(start, first - 1);
            size_ += first - start;
        }
        if (end > last) {
            ranges_.emplace(last + 1, end);
            size_ += end - last;
        }
    }
}

void RowRanges::clear() {
    ranges_.clear();
    size_ = 0;
}

}  // namespace platform::headless
