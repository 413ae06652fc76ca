#include <algorithm>
#include <utility>

#include "platform/win32/failure.h"
#include "platform/win32/form_window.h"
#include "platform/win32/list_window.h"
#include "platform/win32/wide.h"

/// The list's rows, selection and columns: what the program does. Nothing here raises an event.
namespace platform::win32 {

namespace {

constexpr int cellMargin = 6;  // at 96 dots per inch, on both sides of a cell's text
constexpr int few = 8;         // selected rows that are cheaper to find than to clear all

WPARAM every() {
    return static_cast<WPARAM>(-1);
}

int alignment(ListView::Align align) {
    return align == ListView::Align::right    ? LVCFMT_RIGHT
           : align == ListView::Align::centre ? LVCFMT_CENTER
                                              : LVCFMT_LEFT;
}

}  // namespace

void ListWindow::insertColumn(int position, const ListView::Column& column) {
    const Metrics& m = form().metrics();
    std::wstring title = wide(column.title);
    LVCOLUMNW description{};
    description.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT | LVCF_SUBITEM;
    description.fmt = alignment(column.align);
    description.cx = column.chars * m.charWidth + 2 * m.px(cellMargin);
    description.pszText = title.data();
    description.iSubItem = position;
    if (send(LVM_INSERTCOLUMNW, static_cast<WPARAM>(position), &description) < 0) fail("Spalte anlegen");
    // The first column inserted is always aligned to the left; set again it keeps its own.
    if (position == 0) send(LVM_SETCOLUMNW, 0, &description);
}

void ListWindow::setCount(int rows) {
    const Quiet quiet(*this);
    send(LVM_SETITEMCOUNT, static_cast<WPARAM>(rows), LVSICF_NOSCROLL);
    if (focusRow() > rows) setState(-1, 0, LVIS_FOCUSED);
    InvalidateRect(window, nullptr, FALSE);
}

void ListWindow::setIcons(const std::vector<IconImage>& icons) {
    std::vector<const IconImage*> images;
    images.reserve(icons.size() + 1);
    for (const IconImage& icon : icons) images.push_back(&icon);
    // Rows without an icon begin where the others do; not every list view sees to that.
    const int size = icons.empty() ? 1 : icons.front().size;
    const IconImage empty{
        size, std::vector<std::uint32_t>(static_cast<std::size_t>(size) * static_cast<std::size_t>(size))};
    images.push_back(&empty);
    noIcon_ = static_cast<int>(icons.size());
    UniqueImageList made = makeImageList(images);
    send(LVM_SETIMAGELIST, LVSIL_SMALL, made.get());
    icons_ = std::move(made);  // the list does not own them
    InvalidateRect(window, nullptr, FALSE);
}

void ListWindow::setState(int at, UINT state, UINT mask) {
    LVITEMW item{};
    item.state = state;
    item.stateMask = mask;
    send(LVM_SETITEMSTATE, static_cast<WPARAM>(at), &item);
}

bool ListWindow::selected(int wanted) const {
    return (send(LVM_GETITEMSTATE, static_cast<WPARAM>(index(wanted)), LVIS_SELECTED) & LVIS_SELECTED) != 0;
}

void ListWindow::setSelected(int wanted, bool on) {
    const Quiet quiet(*this);
    setState(index(wanted), on ? LVIS_SELECTED : 0U, LVIS_SELECTED);
}

int ListWindow::nextSelected(int after) const {
    return row(send(LVM_GETNEXTITEM, static_cast<WPARAM>(index(after)), LVNI_SELECTED));
}

// The list finds the next selected row by asking one row after the other. Mostly only the row with the focus
// mark is selected, and that can be asked at once.
int ListWindow::firstSelected() const {
    const int selectedNow = selectedCount();
    if (selectedNow == 0) return 0;
    const int focused = focusRow();
    if (selectedNow == 1 && focused > 0 && selected(focused)) return focused;
    return nextSelected(0);
}

void ListWindow::selectAll() {
    if (!options_.multiSelect) return;
    const Quiet quiet(*this);
    const NoRedraw noRedraw(*this);
    setState(-1, LVIS_SELECTED, LVIS_SELECTED);
}

void ListWindow::unselectAll() {
    if (selectedCount() == 0) return;
    const Quiet quiet(*this);
    if (deselectFew(0)) return;
    const NoRedraw noRedraw(*this);
    setState(-1, 0, LVIS_SELECTED);
}

/// Deselects the rows other than `but` one by one; false when they are too many for that.
bool ListWindow::deselectFew(int but) {
    if (selectedCount() > few) return false;
    int at = firstSelected();
    while (at > 0 && selectedCount() > 0) {
        if (at != but)
            setState(index(at), 0, LVIS_SELECTED);
        else if (selectedCount() == 1)
            break;
        at = selectedCount() > 0 ? nextSelected(at) : 0;
    }
    return true;
}

void ListWindow::selectOnly(int wanted) {
    bringIntoView(wanted);
    markOnly(wanted);
}

void ListWindow::markOnly(int wanted) {
    const Quiet quiet(*this);
    if (!deselectFew(wanted)) {
        const NoRedraw noRedraw(*this);
        setState(-1, 0, LVIS_SELECTED);
    }
    setState(index(wanted), LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    send(LVM_SETSELECTIONMARK, 0, index(wanted));  // where a range by the Shift key begins
    ensureVisible(wanted);
}

// Half a page at a time: who goes from row to row sees what comes next, and most steps scroll nothing.
void ListWindow::bringIntoView(int wanted) {
    const int top = static_cast<int>(send(LVM_GETTOPINDEX));
    const int page = static_cast<int>(send(LVM_GETCOUNTPERPAGE));
    const int beyond = index(wanted) < top ? -page / 2 : index(wanted) >= top + page ? page / 2 : 0;
    if (beyond != 0) ensureVisible(std::clamp(wanted + beyond, 1, count()));
}

int ListWindow::focusRow() const {
    return row(send(LVM_GETNEXTITEM, every(), LVNI_FOCUSED));
}

void ListWindow::ensureVisible(int wanted) {
    send(LVM_ENSUREVISIBLE, static_cast<WPARAM>(index(wanted)), FALSE);
}

void ListWindow::redraw(int wanted) {
    send(LVM_REDRAWITEMS, static_cast<WPARAM>(index(wanted)), index(wanted));
}

HWND ListWindow::header() const {
    return reinterpret_cast<HWND>(send(LVM_GETHEADER));
}

int ListWindow::hitTest(Point point) const {
    RECT title{};
    GetClientRect(header(), &title);
    if (point.y < title.bottom) return 0;
    LVHITTESTINFO hit{};
    hit.pt = {point.x, point.y};
    return std::max(0, row(send(LVM_SUBITEMHITTEST, 0, &hit)));
}

// Widths at 96 dots per inch, so that they mean the same on another monitor.
ListLayout ListWindow::columns() const {
    ListLayout now{{}, std::vector<int>(static_cast<std::size_t>(columnCount_))};
    for (int i = 0; i < columnCount_; ++i)
        now.widths.push_back(
            MulDiv(static_cast<int>(send(LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(i))), 96, dpi()));
    send(LVM_GETCOLUMNORDERARRAY, now.order.size(), now.order.data());
    for (int& column : now.order) ++column;
    return now;
}

std::string ListWindow::layout() const {
    return columns().text();
}

void ListWindow::setLayout(const std::string& text) {
    const auto wanted = columns().restored(text);
    if (!wanted) return;
    for (std::size_t i = 0; i < wanted->widths.size(); ++i)
        send(LVM_SETCOLUMNWIDTH, i, MulDiv(wanted->widths[i], dpi(), 96));
    arrange(wanted->order);
}

void ListWindow::moveColumn(int column, int place) {
    std::vector<int> order = columns().order;
    std::erase(order, column);
    order.insert(order.begin() + place - 1, column);
    arrange(std::move(order));
}

void ListWindow::arrange(std::vector<int> order) {
    for (int& column : order) --column;
    send(LVM_SETCOLUMNORDERARRAY, order.size(), order.data());
    InvalidateRect(window, nullptr, FALSE);
}

void ListWindow::fontChanged() {
    const int before = std::exchange(laidOutFor_, dpi());
    if (before == laidOutFor_) return;
    for (int i = 0; i < columnCount_; ++i) {
        const auto column = static_cast<WPARAM>(i);
        send(LVM_SETCOLUMNWIDTH, column,
             MulDiv(static_cast<int>(send(LVM_GETCOLUMNWIDTH, column)), laidOutFor_, before));
    }
}

}  // namespace platform::win32
