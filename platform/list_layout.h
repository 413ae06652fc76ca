#pragma once

#include <optional>
#include <string>
#include <vector>

namespace platform {

/// The columns of a list as the user arranged them, and the same as one line of text: all widths, then the
/// columns from the left.
struct ListLayout {
    std::vector<int> widths;   ///< by column, pixels at 96 dots per inch
    std::vector<int> order;    ///< columns, from 1, as they stand from the left

    std::string text() const;
    /// `stored` for a list that is arranged like this one now. A list may have got more columns since: the
    /// new ones, which are its last, keep their width and their place. Empty for a text that does not fit.
    std::optional<ListLayout> restored(const std::string& stored) const;
};

}  // namespace platform
