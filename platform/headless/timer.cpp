#include "platform/timer.h"

#include "platform/headless/desk.h"

namespace platform {

using headless::Desk;

Timer::Timer(Form& form) : native_(std::make_unique<Native>()) {
    native_->form = static_cast<headless::FormWindow*>(&form.native());
    native_->timer = this;
    Desk::instance().add(*native_);
}

Timer::~Timer() {
    Desk::instance().forget(*native_);
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
