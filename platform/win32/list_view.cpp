#include "platform/list_view.h"

#include <algorithm>

#include "platform/win32/failure.h"
#include "platform/win32/list_window.h"

namespace platform {

using win32::ListWindow;

namespace {

ListWindow& window(const ListView& list) {
    return static_cast<ListWindow&>(list.native());
}

ListWindow& withRow(const ListView& list, int row) {
    win32::checkIndex(row, 1, list.count());
    return window(list);
}

}  // namespace

ListView::ListView(Container& parent, const std::string& name, const std::vector<Column>& columns,
                   Options options)
    : Control(std::make_unique<ListWindow>(&parent.native(), name, columns, options)) {}

void ListView::setIcons(const std::vector<IconImage>& icons) {
    window(*this).setIcons(icons);
}

int ListView::count() const {
    return window(*this).count();
}

void ListView::setCount(int rows) {
    window(*this).setCount(std::max(0, rows));
}

bool ListView::selected(int row) const {
    return withRow(*this, row).selected(row);
}

void ListView::select(int row, bool on) {
    withRow(*this, row).setSelected(row, on);
}

int ListView::selectedCount() const {
    return window(*this).selectedCount();
}

int ListView::firstSelected() const {
    return window(*this).firstSelected();
}

int ListView::nextSelected(int after) const {
    return window(*this).nextSelected(after);
}

void ListView::selectAll() {
    window(*this).selectAll();
}

void ListView::unselectAll() {
    window(*this).unselectAll();
}

void ListView::selectOnly(int row) {
    withRow(*this, row).selectOnly(row);
}

int ListView::focusRow() const {
    return window(*this).focusRow();
}

void ListView::ensureVisible(int row) {
    withRow(*this, row).ensureVisible(row);
}

void ListView::redraw(int row) {
    withRow(*this, row).redraw(row);
}

void ListView::redrawAll() {
    InvalidateRect(native_->window, nullptr, FALSE);
}

void ListView::editLabel(int row) {
    withRow(*this, row).editLabel(row);
}

bool ListView::endEdit() {
    return window(*this).endEdit();
}

int ListView::hitTest(Point point) const {
    return window(*this).hitTest(point);
}

int ListView::columnCount() const {
    return window(*this).columnCount();
}

std::string ListView::layout() const {
    return window(*this).layout();
}

void ListView::setLayout(const std::string& layout) {
    window(*this).setLayout(layout);
}

void ListView::moveColumn(int column, int place) {
    win32::checkIndex(column, 1, columnCount());
    win32::checkIndex(place, 1, columnCount());
    window(*this).moveColumn(column, place);
}

}  // namespace platform
