#include "platform/win32/toolbar_window.h"

#include <algorithm>

#include "platform/text.h"
#include "platform/win32/event.h"
#include "platform/win32/failure.h"
#include "platform/win32/form_window.h"
#include "platform/win32/wide.h"

namespace platform::win32 {

namespace {

/// The icon as of a button that cannot be pressed. Not every system makes it pale enough by itself.
IconImage faded(IconImage icon) {
    for (std::uint32_t& pixel : icon.pixels) {
        const std::uint32_t red = pixel >> 16 & 0xFF, green = pixel >> 8 & 0xFF, blue = pixel & 0xFF;
        const std::uint32_t grey = (3 * red + 6 * green + blue) / 10;
        pixel = (pixel >> 24) * 2 / 5 << 24 | grey * 0x10101;
    }
    return icon;
}

}  // namespace

ToolbarWindow::ToolbarWindow(Native* parentWindow, const std::string& controlName)
    : Native(parentWindow, controlName) {
    createControl(TOOLBARCLASSNAMEW, TBSTYLE_FLAT | TBSTYLE_LIST | TBSTYLE_TOOLTIPS | TBSTYLE_TRANSPARENT |
                                         CCS_NORESIZE | CCS_NODIVIDER | CCS_NOPARENTALIGN | WS_TABSTOP);
    send(TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON));
    // Texts of mixed buttons are not drawn: they are the tool tips, and what screen readers say.
    constexpr DWORD extended = TBSTYLE_EX_DRAWDDARROWS | TBSTYLE_EX_MIXEDBUTTONS;
    send(TB_SETEXTENDEDSTYLE, 0, static_cast<LPARAM>(extended));
}

Handled ToolbarWindow::handle(const Message& m) {
    static constexpr Route<ToolbarWindow> routes[] = {
        on<WM_KEYDOWN, &ToolbarWindow::keyDown>(),
        on<WM_GETDLGCODE, &ToolbarWindow::wantedKeys>(),
        on<WM_SETFOCUS, &ToolbarWindow::focused>(),
        on<WM_KILLFOCUS, &ToolbarWindow::unfocused>(),
    };
    return dispatch(*this, routes, m);
}

Handled ToolbarWindow::notify(NMHDR& header) {
    static constexpr NotifyRoute<ToolbarWindow> routes[] = {
        onNotify<TBN_DROPDOWN, &ToolbarWindow::dropDown>(),
    };
    return dispatch(*this, routes, header);
}

void ToolbarWindow::command(int id, int) {
    if (!control || id < 1 || id > count()) return;
    const Toolbar::Button pressed = at(id).button;  // the handler may rebuild the bar
    raise(toolbar().onButtonClick, pressed);
}

ToolbarWindow::Item& ToolbarWindow::at(int index) {
    checkIndex(index, 1, count());
    return items_[static_cast<std::size_t>(index - 1)];
}

int ToolbarWindow::imageIndex(const std::string& key) const {
    for (std::size_t i = 0; i < imageKeys_.size(); ++i)
        if (text::equalNoCase(imageKeys_[i], key)) return static_cast<int>(i);
    return I_IMAGENONE;
}

void ToolbarWindow::setImages(const std::vector<Toolbar::Image>& images) {
    imageKeys_.clear();
    std::vector<IconImage> pale;
    for (const Toolbar::Image& image : images) pale.push_back(faded(image.icon));
    std::vector<const IconImage*> usual, disabled;
    for (std::size_t i = 0; i < images.size(); ++i) {
        imageKeys_.push_back(images[i].key);
        usual.push_back(&images[i].icon);
        disabled.push_back(&pale[i]);
    }
    UniqueImageList made = makeImageList(usual), madeDisabled = makeImageList(disabled);
    send(TB_SETIMAGELIST, 0, made.get());
    send(TB_SETDISABLEDIMAGELIST, 0, madeDisabled.get());
    images_ = std::move(made);
    disabledImages_ = std::move(madeDisabled);
    for (int i = 1; i <= count(); ++i) showImage(i);
}

void ToolbarWindow::clear() {
    while (send(TB_DELETEBUTTON, 0)) {
    }
    items_.clear();
}

void ToolbarWindow::add(const Toolbar::Button& button) {
    std::wstring text = wide(button.toolTip);
    TBBUTTON description{};
    description.idCommand = count() + 1;
    description.fsState = TBSTATE_ENABLED;
    description.fsStyle = button.key.empty()    ? BTNS_SEP
                          : button.menu.empty() ? BTNS_BUTTON | BTNS_AUTOSIZE
                                                : BTNS_BUTTON | BTNS_AUTOSIZE | BTNS_DROPDOWN;
    description.iBitmap = button.key.empty() ? 0 : imageIndex(button.key);
    description.iString = reinterpret_cast<INT_PTR>(text.c_str());
    if (button.key.empty()) description.iString = 0;
    require(send(TB_ADDBUTTONSW, 1, &description), "Schaltfläche anlegen");
    items_.push_back({button, button.key, true});
}

void ToolbarWindow::showImage(int index) const {
    const Item& item = items_[static_cast<std::size_t>(index - 1)];
    if (item.button.key.empty()) return;
    TBBUTTONINFOW info{};
    info.cbSize = sizeof info;
    info.dwMask = TBIF_IMAGE;
    info.iImage = imageIndex(item.image);
    require(send(TB_SETBUTTONINFOW, static_cast<WPARAM>(index), &info), "Schaltfläche ändern");
}

void ToolbarWindow::showText(int index) const {
    const Item& item = items_[static_cast<std::size_t>(index - 1)];
    if (item.button.key.empty()) return;
    std::wstring text = wide(item.button.toolTip);
    TBBUTTONINFOW info{};
    info.cbSize = sizeof info;
    info.dwMask = TBIF_TEXT;
    info.pszText = text.data();
    require(send(TB_SETBUTTONINFOW, static_cast<WPARAM>(index), &info), "Schaltfläche ändern");
}

void ToolbarWindow::showState(int index) const {
    const Item& item = items_[static_cast<std::size_t>(index - 1)];
    if (!item.button.key.empty())
        send(TB_ENABLEBUTTON, static_cast<WPARAM>(index), MAKELPARAM(item.enabled, 0));
}

RECT ToolbarWindow::buttonArea(int index) const {
    RECT r{};
    send(TB_GETITEMRECT, static_cast<WPARAM>(index - 1), &r);
    return r;
}

Size ToolbarWindow::preferredSize() const {
    Size size{};
    for (int i = 1; i <= count(); ++i) {
        const RECT r = buttonArea(i);
        size = {std::max<int>(size.width, r.right), std::max<int>(size.height, r.bottom)};
    }
    return size;
}

Handled ToolbarWindow::dropDown(NMTOOLBARW& notification) {
    if (control && notification.iItem >= 1 && notification.iItem <= count()) showMenu(notification.iItem);
    return TBDDRET_DEFAULT;
}

void ToolbarWindow::showMenu(int index) {
    const Toolbar::Button parentButton = at(index).button;
    if (parentButton.menu.empty()) return;
    const UniqueMenu menu(require(CreatePopupMenu(), "Menü anlegen"));
    UINT_PTR id = 0;
    for (const Toolbar::MenuEntry& entry : parentButton.menu)
        require(AppendMenuW(menu.get(), MF_STRING, ++id, wide(entry.text).c_str()), "Menü anlegen");
    const RECT area = buttonArea(index);
    POINT at{area.left, area.bottom};
    ClientToScreen(window, &at);
    const BOOL chosen = TrackPopupMenu(menu.get(), TPM_RETURNCMD | TPM_LEFTALIGN | TPM_TOPALIGN, at.x, at.y,
                                       0, form().window, nullptr);
    if (chosen > 0)
        raise(toolbar().onMenuClick, parentButton, parentButton.menu[static_cast<std::size_t>(chosen - 1)]);
}

void ToolbarWindow::focused() {
    if (send(TB_GETHOTITEM) < 0) moveHot(1);
}

// The mark goes with the focus.
void ToolbarWindow::unfocused() {
    send(TB_SETHOTITEM, static_cast<WPARAM>(-1));
}

/// To the next button that can be pressed.
bool ToolbarWindow::moveHot(int by) {
    for (int i = static_cast<int>(send(TB_GETHOTITEM)) + by; i >= 0 && i < count(); i += by) {
        const Item& item = items_[static_cast<std::size_t>(i)];
        if (item.button.key.empty() || !item.enabled) continue;
        send(TB_SETHOTITEM, static_cast<WPARAM>(i));
        return true;
    }
    return false;
}

Handled ToolbarWindow::keyDown(int key, int) {
    const int hot = static_cast<int>(send(TB_GETHOTITEM)) + 1;
    switch (key) {
        case VK_LEFT:
        case VK_RIGHT:
            moveHot(key == VK_LEFT ? -1 : 1);
            return done;
        case VK_DOWN:
            if (hot >= 1 && hot <= count()) showMenu(hot);
            return done;
        case VK_RETURN:
        case VK_SPACE:
            if (hot >= 1 && hot <= count() && at(hot).enabled) command(hot, 0);
            return done;
        default:
            return std::nullopt;
    }
}

}  // namespace platform::win32
