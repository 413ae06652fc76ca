#pragma once

#include <algorithm>
#include <functional>

#include "platform/win32/native.h"

namespace platform::win32 {

/// A value within a range, as the scroll bar and the slider have one.
class RangeWindow : public Control::Native {
  public:
    using Native::Native;

    int value() const { return value_; }
    int minimum() const { return minimum_; }
    int maximum() const { return maximum_; }
    int smallChange = 1;
    int largeChange = 10;

    /// Raises `changed` when that makes a difference.
    void set(int wanted) {
        const int before = value_;
        value_ = within(wanted);
        show();
        if (value_ != before) changed();
    }
    void setRange(int least, int most) {
        minimum_ = least;
        maximum_ = std::max(least, most);
        set(value_);
    }

    /// Gives the system's control all of it.
    virtual void show() = 0;

  protected:
    virtual void changed() const = 0;
    int within(int wanted) const { return std::min(std::max(wanted, minimum_), maximum_); }
    int value_ = 0;

  private:
    int minimum_ = 0;
    int maximum_ = 100;
};

}  // namespace platform::win32
