#include "platform/headless/list_window.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "platform/headless/event.h"
#include "platform/metrics.h"

namespace platform::headless {

namespace {

constexpr int headerHeight = 24;
constexpr int rowHeight = 19;
constexpr int cellMargin = 6;

}  // namespace

ListWindow::ListWindow(Native* parentWindow, std::string controlName,
                       const std::vector<ListView::Column>& titles, ListView::Options wanted)
    : Native(parentWindow, std::move(controlName)), order(titles.size()), options(wanted) {
    for (const ListView::Column& title : titles)
        widths.push_back(title.chars * Metrics{}.charWidth + 2 * cellMargin);
    std::iota(order.begin(), order.end(), 1);
}

int ListWindow::rowsInView() const {
    return std::max(1, (bounds.height() - headerHeight) / rowHeight);
}

Rect ListWindow::rowArea(int row) const {
    const int width = std::accumulate(widths.begin(), widths.end(), 0);
    const int y = headerHeight + (row - top) * rowHeight;
    return Rect::at(0, y, std::min(width, bounds.width()), rowHeight);
}

void ListWindow::scrollTo(int row) {
    if (row < top) top = row;
    if (row >= top + rowsInView()) top = row - rowsInView() + 1;
    queuePaint();
}

void ListWindow::selectOnly(int row) {
    selection.clear();
    selection.insert(row, row);
    focusRow = anchor = row;
    queuePaint();
}

void ListWindow::setCount(int count) {
    selection.erase(count + 1, rows);
    rows = count;
    if (focusRow > rows) focusRow = 0;
    if (anchor > rows) anchor = 0;
    if (editing > rows) editing = 0;
    top = std::max(1, std::min(top, rows - rowsInView() + 1));
    queuePaint();
}

void ListWindow::paint() {
    if (!seen()) return;
    const int last = std::min(rows, top + rowsInView() - 1);
    for (int row = top; row <= std::min(last, rows); ++row) {
        ask(list().icon, -1, row);
        for (int subItem = 0; subItem < static_cast<int>(widths.size()); ++subItem)
            ask(list().cell, std::string(), row, subItem);
    }
}

void ListWindow::selectRange(int first, int last) {
    if (first > last) std::swap(first, last);
    selection.insert(std::max(1, first), last);
}

void ListWindow::select(int row, MouseButton button, int shift) {
    const bool toggle = options.multiSelect && (shift & shiftKey::control);
    const bool range = options.multiSelect && (shift & shiftKey::shift);
    if (row == 0) {
        if (!toggle && !range) selection.clear();
    } else if (range) {
        if (!toggle) selection.clear();
        selectRange(anchor, row);
    } else if (toggle) {
        if (selection.contains(row))
            selection.erase(row, row);
        else
            selection.insert(row, row);
        anchor = row;
    } else if (button == MouseButton::left || !selection.contains(row)) {
        selectOnly(row);  // the right button leaves a selection that it hits
    }
    if (row != 0) focusRow = row;
    queuePaint();
}

void ListWindow::press(int row, MouseButton button, int shift) {
    const Rect area = row == 0 ? Rect::at(0, bounds.height() - 1, 1, 1) : rowArea(row);
    const Point point{area.left + area.width() / 4, area.top + area.height() / 2};
    raise(list().onMouseDown, button, shift, point);
    if (row > rows) return;  // the handler took it away
    const RowRanges before = selection;
    select(row, button, shift);
    const bool chosen = row != 0 && selection.contains(row);
    if (selection != before) raise(list().onSelectionChange);
    if (chosen) raise(list().onItemClick, row);
    raise(list().onMouseUp, button, shift, point);
}

int ListWindow::target(int key) const {
    const int page = rowsInView() - 1;
    switch (key) {
        case keyCode::up:
            return focusRow - 1;
        case keyCode::down:
            return focusRow + 1;
        case keyCode::pageUp:
            return focusRow - page;
        case keyCode::pageDown:
            return focusRow + page;
        case keyCode::home:
            return 1;
        case keyCode::end:
            return rows;
        default:
            return 0;
    }
}

void ListWindow::choose(int row, int shift) {
    const RowRanges before = selection;
    if (options.multiSelect && (shift & shiftKey::shift)) {
        selection.clear();
        selectRange(anchor, row);
    } else if (!options.multiSelect || !(shift & shiftKey::control)) {
        selectOnly(row);
    }
    focusRow = row;
    scrollTo(row);
    if (selection == before) return;
    raise(list().onSelectionChange);
    if (row <= rows && selection.contains(row)) raise(list().onItemClick, row);
}

void ListWindow::key(int key, int shift) {
    raise(list().onKeyDown, key, shift);
    constexpr int moving[] = {keyCode::up,       keyCode::down, keyCode::pageUp,
                              keyCode::pageDown, keyCode::home, keyCode::end};
    if (rows > 0 && editing == 0) {
        if (std::find(std::begin(moving), std::end(moving), key) != std::end(moving)) {
            const int row = std::clamp(target(key), 1, rows);
            if (row != focusRow) choose(row, shift);
        } else if (key == keyCode::space && focusRow != 0) {
            const RowRanges before = selection;
            select(focusRow, MouseButton::left, shift);
            if (selection != before) {
                raise(list().onSelectionChange);
                if (focusRow != 0 && selection.contains(focusRow)) raise(list().onItemClick, focusRow);
            }
        }
    }
    raise(list().onKeyUp, key, shift);
}

void ListWindow::finishEdit(const std::string& text) {
    const int row = std::exchange(editing, 0);
    if (text != ask(list().cell, std::string(), row, 0)) ask(list().onLabelEdited, false, row, text);
    queuePaint();
}

}  // namespace platform::headless
