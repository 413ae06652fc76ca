#pragma once

#include <optional>

#include "platform/application.h"
#include "platform/win32/windows.h"

namespace platform::win32 {

/// As long as it lives, the message is the one that is being handled, and the press that it comes from is the
/// user's present one. They nest.
class PressScope {
  public:
    explicit PressScope(const MSG& message);
    ~PressScope();
    PressScope(const PressScope&) = delete;
    PressScope& operator=(const PressScope&) = delete;

  private:
    std::optional<application::Press> before_;
};

}  // namespace platform::win32
