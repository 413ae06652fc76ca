#include <algorithm>
#include <stdexcept>

#include "platform/headless/desk.h"
#include "platform/headless/event.h"
#include "platform/headless/form_window.h"
#include "platform/headless/list_window.h"
#include "tests/support/user.h"

namespace user {

using namespace platform;
using headless::Desk;
using headless::ListWindow;
using headless::raise;

namespace {

ListWindow& window(const ListView& list) {
    return static_cast<ListWindow&>(list.native());
}

ListWindow& reach(const ListView& list) {
    if (!reachable(list)) throw std::logic_error("nobody can reach " + list.name());
    return window(list);
}

/// A list and one of its rows, brought into view; a click in it ends the editing of a text.
ListWindow& reachRow(ListView& list, int row) {
    ListWindow& self = reach(list);
    headless::checkIndex(row, 0, self.rows);
    if (row > 0) self.scrollTo(row);
    Desk::instance().setFocus(&self);
    self.editing = 0;
    return reach(list);
}

ListWindow& edited(ListView& list) {
    ListWindow& self = reach(list);
    if (self.editing == 0) throw std::logic_error("no text is being edited in " + list.name());
    return self;
}

}  // namespace

void clickRow(ListView& list, int row, int shift, MouseButton button) {
    reachRow(list, row).press(row, button, shift);
}

void doubleClickRow(ListView& list, int row) {
    reachRow(list, row).press(row, MouseButton::left, 0);
    if (row > 0 && row <= list.count()) raise(list.onDoubleClick, row);
}

void clickColumn(ListView& list, int column) {
    headless::checkIndex(column, 1, list.columnCount());
    reach(list);
    raise(list.onColumnClick, column);
}

void key(ListView& list, int key, int shift) {
    ListWindow& self = reach(list);
    if (self.editing != 0 && key == keyCode::escape) return abandonEdit(list);
    if (self.editing != 0) throw std::logic_error("the keys go to the text that is being edited");
    Desk::instance().setFocus(&self);
    reach(list).form()->keyDown(key, shift);
}

Point pointOf(ListView& list, int row) {
    const ListWindow& self = window(list);
    if (row < self.top || row >= self.top + self.rowsInView() || row > self.rows)
        throw std::logic_error("the row is not in view");
    const Rect area = self.rowArea(row);
    return {area.left + 5, area.top + area.height() / 2};
}

std::string shown(ListView& list, int row, int subItem) {
    headless::checkIndex(row, 1, list.count());
    return list.cell ? list.cell(row, subItem) : std::string();
}

bool editing(ListView& list) {
    return window(list).editing != 0;
}

void finishEdit(ListView& list, const std::string& text) {
    edited(list).finishEdit(text);
}

void abandonEdit(ListView& list) {
    edited(list).editing = 0;
}

}  // namespace user
