#pragma once

#include <string>
#include <vector>

#include "platform/headless/row_ranges.h"
#include "platform/headless/window.h"
#include "platform/list_view.h"

namespace platform::headless {

struct ListWindow : Control::Native {
    ListWindow(Native* parentWindow, std::string controlName, const std::vector<ListView::Column>& titles,
               ListView::Options wanted);

    ListView& list() const { return static_cast<ListView&>(*control); }
    void focusLost() override { editing = 0; }
    KeyUse keyUse() const override { return editing != 0 ? KeyUse::text : KeyUse::rows; }
    void invalidateAll() override { queuePaint(); }
    /// Asks the owner for what can be seen, as painting would.
    void paint() override;

    int rowsInView() const;
    Rect rowArea(int row) const;
    void scrollTo(int row);
    void selectOnly(int row);
    void setCount(int count);

    // By the user.
    void press(int row, MouseButton button, int shift);
    void key(int key, int shift) override;
    void finishEdit(const std::string& text);

    std::vector<int> widths;  ///< of the columns
    std::vector<int> order;   ///< columns from 1, as they stand from the left
    ListView::Options options;
    int rows = 0;
    RowRanges selection;
    int focusRow = 0;
    int anchor = 0;   ///< where a range that the user selects begins
    int top = 1;      ///< the first row in view
    int editing = 0;  ///< the row whose text is being edited

  private:
    void select(int row, MouseButton button, int shift);
    void selectRange(int first, int last);
    void choose(int row, int shift);
    int target(int key) const;
};

}  // namespace platform::headless
