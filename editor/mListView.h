#pragma once

#include "platform/list_view.h"

/// What every list of the windows is asked for.
namespace editor::mListView {

/// Row of the first selected item (from 1), 0 when none is selected.
inline int GetSelectedIndex(const platform::ListView& list) {
    return list.firstSelected();
}

/// Takes the selection off every row.
inline void UnselectAll(platform::ListView& list) {
    list.unselectAll();
}

}  // namespace editor::mListView
