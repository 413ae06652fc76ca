#pragma once

#include <numeric>
#include <vector>

#include "platform/list_view.h"

/// What every list of the windows is asked for.
namespace editor::mListView {

/// Row of the first selected item (from 1), 0 when none is selected.
inline int GetSelectedIndex(const platform::ListView& list) {
    return list.firstSelected();
}

/// All selected rows, ascending.
inline std::vector<int> SelectedRows(const platform::ListView& list) {
    std::vector<int> rows(static_cast<std::size_t>(list.selectedCount()));
    const bool all = list.selectedCount() == list.count();  // then no row need be asked for
    if (all) std::iota(rows.begin(), rows.end(), 1);
    int row = 0;
    for (std::size_t i = 0; !all && i < rows.size(); ++i) rows[i] = row = list.nextSelected(row);
    return rows;
}

/// Takes the selection off every row.
inline void UnselectAll(platform::ListView& list) {
    list.unselectAll();
}

}  // namespace editor::mListView
