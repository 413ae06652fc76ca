#include "platform/headless/desk.h"

#include <algorithm>
#include <limits>
#include <stdexcept>
#include <utility>

#include "platform/headless/event.h"

namespace platform {

void Timer::Native::restart() {
    due = headless::Desk::instance().now() + interval;
}

namespace headless {

Desk& Desk::instance() {
    static Desk desk;
    return desk;
}

void Desk::activate(FormWindow* form) {
    if (active_ == form) return;
    active_ = form;
    if (!form) return;
    if (form->lastFocus && form->lastFocus->usable()) setFocus(form->lastFocus);
    raise(form->form().onActivate);
}

void Desk::setFocus(Control::Native* window) {
    if (focus_ == window) return;
    Control::Native* before = std::exchange(focus_, window);
    if (window) {
        window->form()->lastFocus = window;
        window->focusTaken();
    }
    if (before) before->focusLost();
}

void Desk::setCapture(Control::Native* window) {
    if (capture_ == window) return;
    Control::Native* before = std::exchange(capture_, window);
    if (before) before->captureLost();
}

void Desk::leave(const Control::Native& window) {
    if (window.holds(capture_)) setCapture(nullptr);
    if (!window.holds(focus_)) return;
    const bool goesBack = lastFrame_ == &window && focusBefore_ && focusBefore_->usable();
    setFocus(goesBack ? focusBefore_ : nullptr);
}

void Desk::wait(Control::Native& only, std::int64_t until) {
    if (focus_ && !only.holds(focus_)) {
        lastFrame_ = &only;
        focusBefore_ = focus_;
    }
    Control::Native* former = std::exchange(waitFrame_, &only);
    if (only.seen() && !only.holds(capture_)) setCapture(nullptr);
    runPending();
    while (tickNext(until)) runPending();
    setNow(until);
    waitFrame_ = former;
}

bool Desk::takesInput(const Control::Native& window) const {
    if (!waitFrame_ || waitFrame_->holds(&window)) return true;
    return &window == waitFrame_->form() || !waitFrame_->form()->holds(&window);
}

void Desk::post(FormWindow& form, std::function<void()> action) {
    if (form.loaded) posts_.push_back({&form, std::move(action)});
}

bool Desk::runPosts() {
    // What they post themselves waits for the next round. An action that handles messages itself takes some
    // of these away.
    const std::size_t pending = posts_.size();
    for (std::size_t i = 0; i < pending && !posts_.empty(); ++i) {
        const Post post = std::move(posts_.front());
        posts_.pop_front();
        raise(post.action);
    }
    return pending > 0;
}

bool Desk::paint() {
    const std::size_t pending = dirty_.size();
    for (std::size_t i = 0; i < pending && !dirty_.empty(); ++i) {
        Control::Native* window = dirty_.front();
        dirty_.pop_front();
        window->queued = false;
        window->paint();
    }
    return pending > 0;
}

bool Desk::runPending() {
    const bool ran = runPosts();
    return paint() || ran;
}

void Desk::pump() {
    while (runPending()) {
    }
}

void Desk::tick(Timer::Native& timer) {
    timer.restart();
    raise(timer.timer->onTick);
}

bool Desk::tickNext(std::int64_t limit) {
    Timer::Native* next = nullptr;
    for (Timer::Native* timer : timers_)
        if (timer->ticking() && timer->due <= limit && (!next || timer->due < next->due)) next = timer;
    if (!next) return false;
    now_ = std::max(now_, next->due);
    tick(*next);
    return true;
}

void Desk::runWhile(const std::function<bool()>& there, const std::function<bool()>& idle) {
    for (;;) {
        pump();
        if (!there()) return;
        if (!idle() && !tickNext(std::numeric_limits<std::int64_t>::max()))
            throw std::logic_error("the message loop waits for nothing");
    }
}

void Desk::forget(Control::Native& window) {
    if (FormWindow* form = window.form(); form && form->lastFocus == &window) form->lastFocus = nullptr;
    if (focus_ == &window) focus_ = nullptr;
    if (capture_ == &window) capture_ = nullptr;
    if (waitFrame_ == &window) waitFrame_ = nullptr;
    if (focusBefore_ == &window) focusBefore_ = nullptr;
    if (active_ == &window) active_ = nullptr;
    if (window.queued) std::erase(dirty_, &window);
}

void Desk::forget(const Timer::Native& timer) {
    std::erase(timers_, &timer);
}

void Desk::forget(const FormWindow& form) {
    std::erase_if(posts_, [&](const Post& post) { return post.form == &form; });
    for (Timer::Native* timer : timers_)
        if (timer->form == &form) timer->form = nullptr;
}

}  // namespace headless
}  // namespace platform
