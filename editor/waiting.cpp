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

// Who gives up one picture does not want the next one to come on its own.
bool frmStich::waitForPicture(platform::BackgroundTask& task) {
    if (frmSave_ && frmSave_->form.visible()) return frmSave_->waitFor(task);
    // Nor does he give up the set that is being opened with it.
    const bool setGivenUp = searching_ && waitGivenUp_;
    const bool came = !setGivenUp && waitFor("Das Bild wird geladen ...", task);
    waitGivenUp_ = setGivenUp;
    if (!came && showRuns_) runShow(false);
    return came;
}

void frmStich::showWaiting(bool waiting) {
    waiting_ = waiting;
    if (waiting && !form.visible()) form.show();
    // A picture is waited for in the midst of a search, too, for which the show rests.
    Timer2.setEnabled(showRuns_ && !waiting && !searching_);
    fraWait.setVisible(waiting);
    layOut();
}

// Something goes on that a second thing would come in the way of.
bool frmStich::isBusy() const {
    return waiting_ || searching_ || accepting_ || frmError_ || frmSave_;
}

}  // namespace editor
