#include "platform/headless/form_window.h"

#include <algorithm>
#include <sstream>
#include <utility>

#include "platform/headless/desk.h"
#include "platform/headless/event.h"

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

std::string Form::placement() const {
    const Rect at = bounds();
    std::ostringstream text;
    text << at.left << ' ' << at.top << ' ' << at.width() << ' ' << at.height();
    return text.str();
}

void Form::setPlacement(const std::string& placement) {
    std::istringstream text(placement);
    int left, top, width, height;
    if (!(text >> left >> top >> width >> height) || width <= 0 || height <= 0) return;
    if (!(text >> std::ws).eof()) return;
    const Rect screen = Rect::at(0, 0, headless::monitor.width, headless::monitor.height);
    if (!intersect(Rect::at(left, top, width, height), screen).empty())
        move(Rect::at(left, top, width, height));
}

}  // namespace platform
