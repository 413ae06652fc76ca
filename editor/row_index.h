#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace editor {

/// Rows by a hash of what they hold. Takes eight bytes for two rows of room, and no memory of its own for
/// each: there are hundred thousands.
class RowIndex {
  public:
    /// The first row added with this hash of which `isWanted` is true, 0 when there is none.
    template <class IsWanted>
    int find(std::uint32_t hash, const IsWanted& isWanted) const {
        if (slots_.empty()) return 0;
        for (std::size_t i = home(hash); slots_[i].row != 0; i = after(i)) {
            if (slots_[i].hash == hash && isWanted(slots_[i].row)) return slots_[i].row;
        }
        return 0;
    }
    /// `row` counts from 1.
    void add(std::uint32_t hash, int row);
    void reserve(std::size_t rows);
    void clear();

  private:
    struct Slot {
        std::uint32_t hash = 0;
        int row = 0;  ///< 0 where there is none
    };
    std::size_t home(std::uint32_t hash) const { return hash & (slots_.size() - 1); }
    std::size_t after(std::size_t slot) const { return (slot + 1) & (slots_.size() - 1); }
    void place(const Slot& slot);

    std::vector<Slot> slots_;  // a power of two, at most half of them taken
    std::size_t rows_ = 0;
};

}  // namespace editor
