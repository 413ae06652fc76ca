#include "editor/row_index.h"

#include <bit>
#include <utility>

namespace editor {

void RowIndex::add(std::uint32_t hash, int row) {
    reserve(++rows_);
    place({hash, row});
}

void RowIndex::reserve(std::size_t rows) {
    static constexpr std::size_t fewest = 16;
    if (2 * rows <= slots_.size()) return;
    const std::vector<Slot> before =
        std::exchange(slots_, std::vector<Slot>(std::bit_ceil(fewest + 2 * rows)));
    for (const Slot& slot : before)
        if (slot.row != 0) place(slot);
}

void RowIndex::place(const Slot& slot) {
    std::size_t i = home(slot.hash);
    while (slots_[i].row != 0) i = after(i);
    slots_[i] = slot;
}

void RowIndex::clear() {
    slots_.clear();
    rows_ = 0;
}

}  // namespace editor
