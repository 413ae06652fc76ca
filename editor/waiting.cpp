// What takes long is done beside the window: a line at its foot tells how far it is and can stop it.
#include "editor/frmStich.h"
#include "shell/wait_line.h"

namespace editor {

bool frmStich::waitFor(const std::string& what, platform::BackgroundTask& task) {
    if (waiting_) return false;
    if (!searching_) waitGivenUp_ = false;  // else it may be given up by now
    const shell::WaitLine line{fraWait, lblWait, kvProgressBar1,
                               [this](bool waiting) { showWaiting(waiting); }};
    return shell::waitFor(line, what, task, waitGivenUp_);
}

void frmStich::showWaiting(bool waiting) {
    waiting_ = waiting;
    if (waiting && !form.visible()) form.show();
    Timer2.setEnabled(!waiting && showRuns_);
    fraWait.setVisible(waiting);
    layOut();
}

// Something goes on that a second thing would come in the way of.
bool frmStich::isBusy() const {
    return waiting_ || searching_ || accepting_ || frmError_ || frmSave_;
}

}  // namespace editor
