#pragma once

#include <functional>
#include <memory>

namespace platform {

class Form;

/// Ticks on the user-interface thread. Off and with an interval of 0 at first; an interval of 0 never ticks.
class Timer {
  public:
    explicit Timer(Form& form);
    ~Timer();
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;

    int interval() const;                ///< milliseconds
    void setInterval(int milliseconds);  ///< a running timer starts its interval anew
    bool enabled() const;
    void setEnabled(bool enabled);

    std::function<void()> onTick;

    struct Native;
    Native& native() const { return *native_; }

  private:
    std::unique_ptr<Native> native_;
};

}  // namespace platform
