#pragma once

#include <map>

namespace platform::headless {

/// A set of row numbers, kept as ranges: selecting all of a hundred thousand rows is one step, as is asking
/// for the next selected one.
class RowRanges {
  public:
    bool contains(int row) const;
    int size() const { return size_; }
    /// The least member from `row` on, 0 when there is none.
    int next(int row) const;

    // First and last row belong to the range; an empty range changes nothing.
    void insert(int first, int last);
    void erase(int first, int last);
    void clear();

    friend bool operator==(const RowRanges&, const RowRanges&) = default;

  private:
    std::map<int, int> ranges_;  // first to last row; they neither overlap nor touch
    int size_ = 0;
};

}  // namespace platform::headless
