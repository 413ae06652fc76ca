#include "platform/list_view.h"

#include <algorithm>

#include "platform/headless/desk.h"
#include "platform/headless/list_window.h"
#include "platform/list_layout.h"

namespace platform {

using headless::checkIndex;
using headless::ListWindow;

namespace {

ListWindow& window(const ListView& list) {
    return static_cast<ListWindow&>(list.native());
}

ListWindow& withRow(const ListView& list, int row) {
    checkIndex(row, 1, list.count());
    return window(list);
}

}  // namespace

ListView::ListView(Container& parent, const std::string& name, const std::vector<Column>& columns,
                   Options options)
    : Control(std::make_unique<ListWindow>(&parent.native(), name, columns, options)) {}

// Nothing shows them.
void ListView::setIcons(const std::vector<IconImage>&) {}

int ListView::count() const {
    return window(*this).rows;
}

void ListView::setCount(int rows) {
    window(*this).setCount(std::max(0, rows));
}

bool ListView::selected(int row) const {
    return withRow(*this, row).selection.contains(row);
}

void ListView::select(int row, bool on) {
    ListWindow& self = withRow(*this, row);
    if (on && !self.options.multiSelect) self.selection.clear();
    if (on)
        self.selection.insert(row, row);
    else
        self.selection.erase(row, row);
    self.queuePaint();
}

int ListView::selectedCount() const {
    return window(*this).selection.size();
}

int ListView::firstSelected() const {
    return nextSelected(0);
}

int ListView::nextSelected(int after) const {
    return window(*this).selection.next(after + 1);
}

void ListView::selectAll() {
    ListWindow& self = window(*this);
    if (self.options.multiSelect) self.selection.insert(1, self.rows);
    self.queuePaint();
}

void ListView::unselectAll() {
    window(*this).selection.clear();
    window(*this).queuePaint();
}

void ListView::selectOnly(int row) {
    ListWindow& self = withRow(*this, row);
    const int page = self.rowsInView();
    const int beyond = row < self.top ? -page / 2 : row >= self.top + page ? page / 2 : 0;
    self.selectOnly(row);
    self.scrollTo(std::clamp(row + beyond, 1, self.rows));
    self.scrollTo(row);
}

int ListView::focusRow() const {
    return window(*this).focusRow;
}

void ListView::ensureVisible(int row) {
    withRow(*this, row).scrollTo(row);
}

void ListView::redraw(int row) {
    withRow(*this, row).queuePaint();
}

void ListView::redrawAll() {
    window(*this).queuePaint();
}

void ListView::editLabel(int row) {
    ListWindow& self = withRow(*this, row);
    if (!self.options.editLabels || !self.usable()) return;
    headless::Desk::instance().setFocus(&self);
    self.selectOnly(row);
    self.scrollTo(row);
    self.editing = row;
}

bool ListView::endEdit() {
    window(*this).editing = 0;  // what is typed is there only when the user ends it
    return true;
}

int ListView::hitTest(Point point) const {
    const ListWindow& self = window(*this);
    const int last = std::min(self.rows, self.top + self.rowsInView());  // the last one may be cut off
    for (int row = self.top; row <= last; ++row)
        if (self.rowArea(row).contains(point)) return row;
    return 0;
}

int ListView::columnCount() const {
    return static_cast<int>(window(*this).widths.size());
}

std::string ListView::layout() const {
    return ListLayout{window(*this).widths, window(*this).order}.text();
}

void ListView::setLayout(const std::string& layout) {
    ListWindow& self = window(*this);
    const auto restored = ListLayout{self.widths, self.order}.restored(layout);
    if (!restored) return;
    self.widths = restored->widths;
    self.order = restored->order;
}

void ListView::moveColumn(int column, int place) {
    ListWindow& self = window(*this);
    checkIndex(column, 1, columnCount());
    checkIndex(place, 1, columnCount());
    std::erase(self.order, column);
    self.order.insert(self.order.begin() + place - 1, column);
}

}  // namespace platform
