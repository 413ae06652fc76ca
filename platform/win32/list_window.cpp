#include "platform/win32/list_window.h"

#include <algorithm>
#include <utility>

// After <windows.h>, which it needs.
#include <uxtheme.h>

#include "platform/text.h"
#include "platform/win32/colours.h"
#include "platform/win32/event.h"
#include "platform/win32/form_window.h"
#include "platform/win32/loop.h"
#include "platform/win32/wide.h"

/// The list's messages and notifications: what the user does.
namespace platform::win32 {

namespace {

constexpr UINT editLabelMessage = WM_APP + 2;
constexpr int wheelStep = 48;  // pixels at 96 dots per inch, for one notch sideways

/// The button of any of its messages.
MouseButton buttonOf(UINT message) {
    return detail::buttonOf(message);
}

struct SelectionColours {
    COLORREF text, background;
};

/// The system's highlight, a third of it over the window's background.
SelectionColours quietSelection() {
    const COLORREF highlight = GetSysColor(COLOR_HIGHLIGHT);
    if (isHighContrast()) return {GetSysColor(COLOR_HIGHLIGHTTEXT), highlight};
    const COLORREF window = GetSysColor(COLOR_WINDOW);
    const auto mixed = [](BYTE over, BYTE below) { return static_cast<BYTE>((over + 2 * below) / 3); };
    return {GetSysColor(COLOR_WINDOWTEXT), RGB(mixed(GetRValue(highlight), GetRValue(window)),
                                               mixed(GetGValue(highlight), GetGValue(window)),
                                               mixed(GetBValue(highlight), GetBValue(window)))};
}

}  // namespace

ListWindow::ListWindow(Native* parentWindow, const std::string& controlName,
                       const std::vector<ListView::Column>& columns, ListView::Options options)
    : Native(parentWindow, controlName),
      options_(options),
      columnCount_(static_cast<int>(columns.size())),
      laidOutFor_(dpi()) {
    createControl(WC_LISTVIEWW,
                  LVS_REPORT | LVS_OWNERDATA | LVS_SHOWSELALWAYS | LVS_SHAREIMAGELISTS | WS_TABSTOP |
                      (options.multiSelect ? 0U : LVS_SINGLESEL) | (options.editLabels ? LVS_EDITLABELS : 0U),
                  WS_EX_CLIENTEDGE);
    constexpr DWORD extended =
        LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER | LVS_EX_LABELTIP | LVS_EX_HEADERDRAGDROP;
    send(LVM_SETEXTENDEDLISTVIEWSTYLE, extended, static_cast<LPARAM>(extended));
    SetWindowTheme(window, L"Explorer", nullptr);
    for (int i = 0; i < columnCount_; ++i) insertColumn(i, columns[static_cast<std::size_t>(i)]);
}

Handled ListWindow::handle(const Message& m) {
    static constexpr Route<ListWindow> routes[] = {
        raw<WM_LBUTTONDOWN, &ListWindow::pressed>(),    raw<WM_RBUTTONDOWN, &ListWindow::pressed>(),
        raw<WM_MBUTTONDOWN, &ListWindow::pressed>(),    raw<WM_LBUTTONUP, &ListWindow::released>(),
        raw<WM_RBUTTONUP, &ListWindow::released>(),     raw<WM_MBUTTONUP, &ListWindow::released>(),
        raw<WM_KEYDOWN, &ListWindow::keyPressed>(),     raw<WM_CHAR, &ListWindow::typed>(),
        on<WM_KEYUP, &ListWindow::keyReleased>(),       raw<editLabelMessage, &ListWindow::editPosted>(),
        on<WM_MOUSEWHEEL, &ListWindow::wheelTurned>(),  raw<WM_SIZE, &ListWindow::resized>(),
        raw<LVM_SETITEMSTATE, &ListWindow::stateSet>(),
    };
    if (!control) return std::nullopt;
    return dispatch(*this, routes, m);
}

Handled ListWindow::notify(NMHDR& header) {
    static constexpr NotifyRoute<ListWindow> routes[] = {
        onNotify<LVN_GETDISPINFOW, &ListWindow::supplyCell>(),
        onNotify<LVN_ODFINDITEMW, &ListWindow::findRow>(),
        onNotify<LVN_ITEMCHANGED, &ListWindow::rowChanged>(),
        onNotify<LVN_ODSTATECHANGED, &ListWindow::rangeChanged>(),
        onNotify<NM_CLICK, &ListWindow::clicked>(),
        onNotify<NM_RCLICK, &ListWindow::clicked>(),
        onNotify<NM_DBLCLK, &ListWindow::doubleClicked>(),
        onNotify<LVN_COLUMNCLICK, &ListWindow::columnClicked>(),
        onNotify<LVN_ENDLABELEDITW, &ListWindow::labelEdited>(),
        onNotify<NM_CUSTOMDRAW, &ListWindow::draw>(),
    };
    if (!control) return std::nullopt;
    return dispatch(*this, routes, header);
}

// The system paints the selection of a list without the focus so faintly that the current item is hard to
// find, and the focus is on the class buttons most of the day.
Handled ListWindow::draw(NMLVCUSTOMDRAW& drawing) {
    if (drawing.nmcd.dwDrawStage == CDDS_PREPAINT)
        return ::GetFocus() == window ? CDRF_DODEFAULT : CDRF_NOTIFYITEMDRAW;
    if (drawing.nmcd.dwDrawStage == CDDS_ITEMPREPAINT &&
        selected(row(static_cast<LRESULT>(drawing.nmcd.dwItemSpec)))) {
        drawing.nmcd.uItemState &= ~static_cast<UINT>(CDIS_SELECTED);
        const SelectionColours colours = quietSelection();
        drawing.clrText = colours.text;
        drawing.clrTextBk = colours.background;
    }
    return CDRF_DODEFAULT;
}

// Real Windows follows the mouse inside this message, until the button is up again or a drag begins.
Handled ListWindow::pressed(const Message& m) {
    const MouseButton button = buttonOf(m.id);
    const Point point = detail::pointOf(m.lParam);
    pressed_ = button;
    raise(list().onMouseDown, button, shiftOf(m.wParam), point);
    const int target = hitTest(point);
    swallowedRelease_.reset();
    const bool isNew = choosesFirst(button, shiftOf(m.wParam), target);
    if (isNew) markOnly(target);
    const LRESULT result = follow(m);
    if (isNew) raise(list().onSelectionChange);
    if (button != MouseButton::middle && target > 0 && target <= count() && selected(target))
        raise(list().onItemClick, target);
    if (swallowedRelease_) raiseMouseUp(button, shiftNow(), *swallowedRelease_);
    return result;
}

/// Lets the list do what the user wants and tells, once, when the selection is another one then.
LRESULT ListWindow::follow(const Message& m) {
    const int countBefore = selectedCount();
    const int firstBefore = countBefore == 1 ? firstSelected() : 0;
    changed_ = false;
    ++userAction_;
    const LRESULT result = passOn(m);
    --userAction_;
    // A click on the one selected row may deselect it and select it again.
    if (selectedCount() == countBefore && countBefore <= 1 && firstBefore == firstSelected())
        changed_ = false;
    if (changed_) raise(list().onSelectionChange);
    return result;
}

Handled ListWindow::released(const Message& m) {
    const LRESULT result = follow(m);  // a click into a larger selection takes effect only here
    raiseMouseUp(buttonOf(m.id), shiftOf(m.wParam), detail::pointOf(m.lParam));
    return result;
}

void ListWindow::raiseMouseUp(MouseButton button, int shift, Point point) {
    if (pressed_ != button) return;
    pressed_.reset();
    raise(list().onMouseUp, button, shift, point);
}

// Where the list follows the mouse itself it swallows the release of a click and sends this instead, still
// inside the press.
void ListWindow::clicked(NMITEMACTIVATE& click) {
    swallowedRelease_ = Point{click.ptAction.x, click.ptAction.y};
}

bool ListWindow::selectsAll(int key, int shift) const {
    return options_.multiSelect && key == 'A' && shift == shiftKey::control;
}

Handled ListWindow::keyPressed(const Message& m) {
    const int key = static_cast<int>(m.wParam);
    const int shift = shiftNow();
    raise(list().onKeyDown, key, shift);
    if (selectsAll(key, shift)) {
        const int before = selectedCount();
        selectAll();
        if (selectedCount() != before) raise(list().onSelectionChange);
        return done;
    }
    if (const int target = stepTarget(key, shift)) {
        step(target);
        return done;
    }
    return typed(m);
}

// Wine's lists ask all their rows for each other row that a key or a click selects: a fifth of a second when
// they are a hundred thousand. So the plain keys and, where nothing but one row can be meant, the clicks
// select it here, as they do on every system; the list finds it selected.

/// The row that a key leads to; 0 when that is for the system's list to say.
int ListWindow::stepTarget(int key, int shift) const {
    const int from = focusRow();
    if (shift != 0 || from == 0) return 0;
    const int page = static_cast<int>(send(LVM_GETCOUNTPERPAGE));
    const int top = row(send(LVM_GETTOPINDEX));
    const int bottom = top + page - 1;
    const int leap = std::max(1, page - 1);
    const auto within = [this](int wanted) { return std::clamp(wanted, 1, count()); };
    switch (key) {
        case VK_UP:
            return within(from - 1);
        case VK_DOWN:
            return within(from + 1);
        case VK_PRIOR:  // to the edge of what is seen, and from there a page further
            return within(from > top ? top : from - leap);
        case VK_NEXT:
            return within(from < bottom ? bottom : from + leap);
        case VK_HOME:
            return 1;
        case VK_END:
            return count();
        default:
            return 0;
    }
}

void ListWindow::step(int target) {
    const bool isNew = selectedCount() != 1 || !selected(target);
    send(WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS));
    markOnly(target);
    if (!isNew) return;
    raise(list().onSelectionChange);
    if (target <= count() && selected(target)) raise(list().onItemClick, target);
}

/// Whether a press means this row alone, and another one than before. A row whose text a second click edits
/// must not be selected before the first one.
bool ListWindow::choosesFirst(MouseButton button, int shift, int target) {
    if (options_.multiSelect || options_.editLabels || button == MouseButton::middle || shift != 0)
        return false;
    if (target < 1 || target > count() || selected(target)) return false;
    SetFocus(window);  // who loses it may still need the row before
    return target <= count();
}

Handled ListWindow::typed(const Message& m) {
    const LRESULT result = follow(m);
    const int chosen = focusRow();
    if (changed_ && chosen > 0 && selected(chosen)) raise(list().onItemClick, chosen);
    return result;
}

void ListWindow::keyReleased(int key, int shift) {
    raise(list().onKeyUp, key, shift);
}

// Wine's header leaves its former right edge standing in what it has grown by.
Handled ListWindow::resized(const Message& m) {
    const LRESULT result = passOn(m);
    InvalidateRect(reinterpret_cast<HWND>(send(LVM_GETHEADER)), nullptr, TRUE);
    return result;
}

// A screen reader selects a row without a key or a click; while the program waits it may not.
Handled ListWindow::stateSet(const Message&) {
    return InSendMessage() && !takesInput(*this) ? Handled(FALSE) : std::nullopt;
}

void ListWindow::supplyCell(NMLVDISPINFOW& info) {
    LVITEMW& item = info.item;
    const int wanted = row(item.iItem);
    if (wanted < 1 || wanted > count()) return;
    if ((item.mask & LVIF_TEXT) && item.cchTextMax > 0) {
        const std::wstring text =
            wide(ask(list().cell, std::string(), wanted, static_cast<int>(item.iSubItem)));
        const std::size_t length = text.copy(item.pszText, static_cast<std::size_t>(item.cchTextMax) - 1);
        item.pszText[length] = L'\0';
    }
    if ((item.mask & LVIF_IMAGE) && item.iSubItem == 0) {
        const int image = ask(list().icon, -1, wanted);
        item.iImage = image < 0 ? noIcon_ : image;
    }
}

// Letters typed quickly choose the next row whose name begins with them.
Handled ListWindow::findRow(NMLVFINDITEMW& search) {
    constexpr LRESULT nothing = -1;
    if (!(search.lvfi.flags & (LVFI_STRING | LVFI_PARTIAL)) || !search.lvfi.psz) return nothing;
    const std::string wanted = text::foldCase(narrow(search.lvfi.psz));
    const int n = count();
    const int start = std::clamp(search.iStart, 0, n);
    for (int i = 0; i < n; ++i) {
        const int at = (start + i) % n;
        if (text::foldCase(ask(list().cell, std::string(), row(at), 0)).starts_with(wanted)) return at;
    }
    return nothing;
}

void ListWindow::rowChanged(NMLISTVIEW& change) {
    if (!(change.uChanged & LVIF_STATE)) return;
    const UINT differs = change.uNewState ^ change.uOldState;
    if (differs & LVIS_SELECTED) selectionChanged(change.uNewState & LVIS_SELECTED ? row(change.iItem) : 0);
}

void ListWindow::rangeChanged(NMLVODSTATECHANGE& change) {
    if ((change.uNewState ^ change.uOldState) & LVIS_SELECTED) selectionChanged(0);
}

void ListWindow::selectionChanged(int newRow) {
    if (quiet()) return;
    if (userAction_ > 0) {
        changed_ = true;
        return;
    }
    // By another program: a screen reader, a script.
    raise(list().onSelectionChange);
    if (newRow > 0) raise(list().onItemClick, newRow);
}

void ListWindow::doubleClicked(NMITEMACTIVATE& click) {
    if (const int target = row(click.iItem); target > 0) raise(list().onDoubleClick, target);
}

void ListWindow::columnClicked(NMLISTVIEW& click) {
    raise(list().onColumnClick, click.iSubItem + 1);
}

Handled ListWindow::labelEdited(NMLVDISPINFOW& info) {
    const int edited = row(info.item.iItem);
    if (!info.item.pszText || edited < 1 || edited > count()) return FALSE;  // abandoned
    const std::string text = narrow(info.item.pszText);
    if (text == ask(list().cell, std::string(), edited, 0)) return FALSE;
    endingEdit_ = true;
    const bool taken = ask(list().onLabelEdited, false, edited, text);
    endingEdit_ = false;
    if (edited <= count()) redraw(edited);
    return taken;
}

// Upwards and downwards the list turns itself; sideways only some systems' lists do.
Handled ListWindow::wheelTurned(int distance, int shift, Point) {
    if ((shift & shiftKey::shift) == 0) return std::nullopt;
    wheelRest_ -= distance * form().metrics().px(wheelStep);
    const int way = wheelRest_ / WHEEL_DELTA;
    wheelRest_ -= way * WHEEL_DELTA;
    if (way != 0) send(LVM_SCROLL, static_cast<WPARAM>(way), 0);
    return done;
}

void ListWindow::editLabel(int wanted) {
    // The list has still to take down the edit field that is just being left.
    if (endingEdit_)
        editPosted_ = PostMessageW(window, editLabelMessage, static_cast<WPARAM>(wanted), 0) != 0;
    else if (usable() && form().visible && options_.editLabels) {
        const Quiet quiet(*this);  // some systems select the row, too
        SetFocus(window);
        ensureVisible(wanted);
        send(LVM_EDITLABELW, static_cast<WPARAM>(index(wanted)));
    }
}

// The field may have been left open without the focus, so it is not enough to take that away.
bool ListWindow::endEdit() {
    const auto field = [this] { return reinterpret_cast<HWND>(send(LVM_GETEDITCONTROL)); };
    if (const HWND open = field()) SendMessageW(open, WM_KEYDOWN, VK_RETURN, 0);
    if (field()) send(LVM_CANCELEDITLABEL);
    return !editPosted_;
}

Handled ListWindow::editPosted(const Message& m) {
    const int wanted = static_cast<int>(m.wParam);
    editPosted_ = false;
    if (wanted >= 1 && wanted <= count()) editLabel(wanted);
    return done;
}

}  // namespace platform::win32
