#include "platform/headless/form_window.h"

#include <algorithm>
#include <utility>

#include "platform/headless/desk.h"
#include "platform/headless/event.h"
#include "platform/window_placement.h"

namespace platform {

namespace headless {

namespace {

constexpr Point firstPosition{100, 100};
constexpr Size narrowest{136, 39};  // of any window with a caption

Rect outerBounds(Point position, Size client) {
    return Rect::at(position.x, position.y, client.width + border.width, client.height + border.height);
}

}  // namespace

FormWindow::FormWindow(std::string formName, std::string formCaption, Form::Options wanted)
    : Native(nullptr, std::move(formName)),
      caption(std::move(formCaption)),
      owner(wanted.owner ? &static_cast<FormWindow&>(wanted.owner->native()) : nullptr) {
    visible = false;
    bounds = outerBounds(firstPosition, wanted.clientSize);
}

FormWindow::~FormWindow() {
    if (blocksOwner) --owner->modalAbove;
    Desk::instance().forget(*this);
    for (Subclassing::Native* subclassing : subclassings) subclassing->form = nullptr;
}

Size FormWindow::clientSize() const {
    return {std::max(0, bounds.width() - border.width), std::max(0, bounds.height() - border.height)};
}

void FormWindow::resized() {
    raise(form().onResize);
}

void FormWindow::show() {
    if (!loaded) return;
    if (!visible) {
        visible = true;
        appeared();
    }
    Desk::instance().activate(this);
    for (Native* child : children) child->control->update();
}

void FormWindow::hide() {
    if (!visible) return;
    visible = false;
    Desk::instance().leave(*this);
    if (std::exchange(blocksOwner, false)) --owner->modalAbove;
    if (Desk::instance().active() == this)
        Desk::instance().activate(owner && owner->usable() ? owner : nullptr);
}

void FormWindow::blockOwner() {
    if (!owner || blocksOwner) return;
    blocksOwner = true;
    ++owner->modalAbove;
    Desk::instance().leave(*owner);
}

void FormWindow::keyDown(int key, int shift) {
    Native* focus = Desk::instance().focus();
    if (!holds(focus)) focus = this;
    constexpr bool unlessItFails = true;  // such a key is not to be handled a second time
    const bool taken = form().onKeyDown && ask(form().onKeyDown, unlessItFails, key, shift, focus->keyUse());
    if (!taken && focus != this) focus->key(key, shift);
}

bool FormWindow::unload() {
    if (!loaded) return true;
    if (unloading) return false;
    unloading = true;
    // A handler that failed has not agreed: the window stays, and so does what it holds.
    if (form().onQueryUnload && !ask(form().onQueryUnload, false)) {
        unloading = false;
        return false;
    }
    raise(form().onUnload);
    hide();
    loaded = false;
    unloading = false;
    Desk::instance().forget(*this);
    return true;
}

void FormWindow::resizeByUser(Size client) {
    SizeLimits limits{{}, {monitor.width, monitor.height}, {}, {}, {monitor.width, monitor.height}};
    limits.minTrackSize = {std::max(minimum.width, narrowest.width),
                           std::max(minimum.height, narrowest.height)};
    dispatch(getMinMaxInfoMessage, 0, reinterpret_cast<std::intptr_t>(&limits));
    const Rect wanted = outerBounds({bounds.left, bounds.top}, client);
    place(Rect::at(wanted.left, wanted.top, std::max(wanted.width(), limits.minTrackSize.x),
                   std::max(wanted.height(), limits.minTrackSize.y)));
}

void FormWindow::dispatch(std::uint32_t message, std::uintptr_t wParam, std::intptr_t lParam) {
    const auto handle = reinterpret_cast<std::intptr_t>(this);
    const auto watching = subclassings;  // a handler may add to them
    for (auto it = watching.rbegin(); it != watching.rend(); ++it) {
        if (std::find(subclassings.begin(), subclassings.end(), *it) == subclassings.end()) continue;
        if (!(*it)->watched.contains(message)) continue;
        std::int16_t handled = 0;
        raise((*it)->subclassing->onMessage, handle, message, wParam, lParam, handled);
        if (handled == -1) return;
    }
    // It reaches the window even while a dialog blocks it.
    if (message == closeMessage && open()) unload();
}

}  // namespace headless

// Nothing is maximised here, and all monitors are one.
std::string Form::placement() const {
    return WindowPlacement{bounds(), 96, false}.text();
}

void Form::setPlacement(const std::string& placement) {
    const auto stored = WindowPlacement::parse(placement);
    const auto [right, bottom] = headless::monitor;
    if (!stored) return;
    const Rect& at = stored->restored;
    const int resolution = stored->resolution > 0 ? stored->resolution : 96;
    const int width = std::min(at.width() * 96 / resolution, right);
    const int height = std::min(at.height() * 96 / resolution, bottom);
    move(Rect::at(std::clamp(at.left, 0, right - width), std::clamp(at.top, 0, bottom - height), width,
                  height));
}

}  // namespace platform
