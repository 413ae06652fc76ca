#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <vector>

#include "platform/headless/form_window.h"
#include "platform/timer.h"

namespace platform {

struct Timer::Native {
    bool ticking() const { return enabled && interval > 0 && form && form->loaded; }
    void restart();

    headless::FormWindow* form = nullptr;  ///< null when it is gone
    Timer* timer = nullptr;
    int interval = 0;
    bool enabled = false;
    std::int64_t due = 0;
};

namespace headless {

/// What a window system keeps beside its windows: the active form, the focus, the captured mouse, what is to
/// be painted, posted actions, and a clock. The clock stands still unless someone waits, so that an hour of
/// slide show takes no time and runs the same way every time.
class Desk {
  public:
    static Desk& instance();

    FormWindow* active() const { return active_; }
    void activate(FormWindow* form);

    Control::Native* focus() const { return focus_; }
    void setFocus(Control::Native* window);
    Control::Native* capture() const { return capture_; }
    void setCapture(Control::Native* window);  ///< whoever had it learns that it is lost
    void releaseCapture() { capture_ = nullptr; }
    /// Takes focus and mouse from a window that can no longer be used, and from all that stand in it.
    void leave(const Control::Native& window);

    /// Lets pending things happen until then, while nothing of the form takes input but `only`.
    void wait(Control::Native& only, std::int64_t until);
    bool takesInput(const Control::Native& window) const;

    void post(FormWindow& form, std::function<void()> action);
    void queuePaint(Control::Native& window) { dirty_.push_back(&window); }
    /// What is pending now, once: posted actions, then repaints. False when there was nothing.
    bool runPending();
    void pump();  ///< until nothing is pending

    void add(Timer::Native& timer) { timers_.push_back(&timer); }
    void tick(Timer::Native& timer);
    /// Moves the clock to the next tick and lets it happen; false when no timer ticks until `limit`.
    bool tickNext(std::int64_t limit);
    std::int64_t now() const { return now_; }
    void setNow(std::int64_t now) { now_ = now; }
    /// Lets things happen as long as `there` holds; when there is nothing else to do `idle` may do something
    /// and answer true. Throws std::logic_error when nothing will ever happen again.
    void runWhile(const std::function<bool()>& there, const std::function<bool()>& idle);

    // Something is gone; no event is raised.
    void forget(Control::Native& window);
    void forget(const Timer::Native& timer);
    void forget(const FormWindow& form);  ///< with its posted actions

    /// The person at a modal form, asked whenever there is nothing else to do.
    std::function<void(Form&)> modalUser;

  private:
    struct Post {
        FormWindow* form;
        std::function<void()> action;
    };
    bool runPosts();
    bool paint();

    FormWindow* active_ = nullptr;
    Control::Native* focus_ = nullptr;
    Control::Native* capture_ = nullptr;
    Control::Native* waitFrame_ = nullptr;        // what takes input now, when not all does
    const Control::Native* lastFrame_ = nullptr;  // to be compared only
    Control::Native* focusBefore_ = nullptr;      // before that took it
    std::deque<Post> posts_;
    std::deque<Control::Native*> dirty_;
    std::vector<Timer::Native*> timers_;
    std::int64_t now_ = 0;
};

}  // namespace headless
}  // namespace platform
