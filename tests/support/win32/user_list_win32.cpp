#include <stdexcept>

#include "platform/win32/failure.h"
#include "platform/win32/list_window.h"
#include "platform/win32/wide.h"
#include "tests/support/user.h"
#include "tests/support/win32/input.h"

namespace user {

using namespace platform;
using input::require;
using win32::checkIndex;
using win32::ListWindow;

namespace {

ListWindow& window(const ListView& list) {
    return static_cast<ListWindow&>(list.native());
}

HWND editField(const ListView& list) {
    return reinterpret_cast<HWND>(window(list).send(LVM_GETEDITCONTROL));
}

HWND edited(ListView& list) {
    input::reach(list);
    const HWND field = editField(list);
    require(field != nullptr, "no text is being edited");
    return field;
}

/// The row's text in column 1, in the list's client area.
RECT labelArea(const ListView& list, int row) {
    RECT area{LVIR_LABEL, 0, 0, 0};
    window(list).send(LVM_GETITEMRECT, static_cast<WPARAM>(row - 1), &area);
    return area;
}

Point below(const ListView& list) {
    RECT all{};
    GetClientRect(window(list).window, &all);
    const Point point{5, all.bottom - 3};
    require(list.hitTest(point) == 0, "the rows fill the list");
    return point;
}

/// Where a click has to go, with the row in view and the list focused.
Point aim(ListView& list, int row) {
    input::focus(list);
    checkIndex(row, 0, list.count());
    if (row > 0) list.ensureVisible(row);
    return row > 0 ? pointOf(list, row) : below(list);
}

RECT titleArea(const ListView& list, int column) {
    checkIndex(column, 1, list.columnCount());
    RECT area{};
    SendMessageW(window(list).header(), HDM_GETITEMRECT, static_cast<WPARAM>(column - 1),
                 reinterpret_cast<LPARAM>(&area));
    return area;
}

}  // namespace

void clickRow(ListView& list, int row, int shift, MouseButton button) {
    const Point point = aim(list, row);
    input::click(input::reach(list).window, point, button, shift);
}

void doubleClickRow(ListView& list, int row) {
    const Point point = aim(list, row);
    input::click(input::reach(list).window, point);
    input::click(input::reach(list).window, point, MouseButton::left, 0, true);
}

void clickColumn(ListView& list, int column) {
    input::reach(list);
    input::click(window(list).header(), input::centre(titleArea(list, column)));
}

void key(ListView& list, int key, int shift) {
    if (const HWND field = editField(list)) {
        require(key == keyCode::escape, "the keys go to the text that is being edited");
        return input::key(field, key, shift);
    }
    input::key(input::focus(list).window, key, shift);
}

Point pointOf(ListView& list, int row) {
    const RECT area = labelArea(list, row);
    const Point point{area.left + 5, input::centre(area).y};
    if (list.hitTest(point) != row) throw std::logic_error("the row is not in view");
    return point;
}

std::string shown(ListView& list, int row, int subItem) {
    checkIndex(row, 1, list.count());
    std::wstring text(1024, L'\0');
    LVITEMW item{};
    item.iSubItem = subItem;
    item.pszText = text.data();
    item.cchTextMax = static_cast<int>(text.size());
    text.resize(
        static_cast<std::size_t>(window(list).send(LVM_GETITEMTEXTW, static_cast<WPARAM>(row - 1), &item)));
    return narrow(text);
}

bool editing(ListView& list) {
    return editField(list) != nullptr;
}

void finishEdit(ListView& list, const std::string& text) {
    const HWND field = edited(list);
    input::replaceText(field, text);
    input::key(field, VK_RETURN, 0);
}

void abandonEdit(ListView& list) {
    input::key(edited(list), VK_ESCAPE, 0);
}

}  // namespace user
