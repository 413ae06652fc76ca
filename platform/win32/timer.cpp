#include "platform/timer.h"

#include "platform/win32/failure.h"
#include "platform/win32/form_window.h"

namespace platform {

bool Timer::Native::ticking() const {
    return enabled && interval > 0 && form && form->loaded();
}

void Timer::Native::restart() {
    if (!form || !form->window) return;
    const auto id = reinterpret_cast<UINT_PTR>(this);
    if (ticking())
        win32::require(SetTimer(form->window, id, static_cast<UINT>(interval), nullptr), "Zeitgeber stellen");
    else
        KillTimer(form->window, id);
}

Timer::Timer(Form& form)
    : native_(std::make_unique<Native>(Native{static_cast<win32::FormWindow*>(&form.native()), this})) {
    native_->form->timers.push_back(native_.get());
}

Timer::~Timer() {
    if (!native_->form) return;
    native_->enabled = false;
    native_->restart();
    std::erase(native_->form->timers, native_.get());
}

int Timer::interval() const {
    return native_->interval;
}

void Timer::setInterval(int milliseconds) {
    native_->interval = milliseconds;
    native_->restart();
}

bool Timer::enabled() const {
    return native_->enabled;
}

void Timer::setEnabled(bool enabled) {
    if (native_->enabled == enabled) return;
    native_->enabled = enabled;
    native_->restart();
}

}  // namespace platform
