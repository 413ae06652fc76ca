#pragma once

#include <functional>
#include <string>

#include "platform/background_task.h"
#include "platform/basic_controls.h"
#include "platform/form.h"

namespace shell {

/// The line at the foot of a window that tells how far something is, and offers to stop it. The window holds
/// its controls and lays them out.
struct WaitLine {
    platform::Panel& frame;
    platform::Label& label;
    platform::ProgressBar& bar;
    std::function<void(bool waiting)> show;
};

/// Waits until the task has ended: true; or until `givenUp` was set, by the line's button or by whoever ends
/// the window, or by the Escape key: false. What the task threw comes out here. The line is shown only when
/// it takes long, and then nothing else can be done with the window.
bool waitFor(const WaitLine& line, const std::string& what, platform::BackgroundTask& task, bool& givenUp);

}  // namespace shell
