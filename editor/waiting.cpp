// What takes long is done beside the window: a line at its foot tells how far it is and can stop it.
#include "editor/frmStich.h"
#include "platform/application.h"

namespace editor {

namespace {

// In milliseconds.
constexpr int tellAfter = 400;  // what is done by then needs no telling
constexpr int lookEvery = 30;

}  // namespace

bool frmStich::waitFor(const std::string& what, platform::BackgroundTask& task) {
    if (waiting_) return false;
    if (!searching_) waitGivenUp_ = false;  // else it may be given up by now
    if (task.wait(tellAfter)) return !waitGivenUp_;
    showWaiting(true);
    try {
        while (!waitGivenUp_ && !task.wait(lookEvery)) {
            showProgress(what, task.progress());
            if (platform::application::doEventsFor(fraWait)) waitGivenUp_ = true;
        }
    } catch (...) {
        showWaiting(false);
        throw;
    }
    showWaiting(false);
    return !waitGivenUp_;
}

void frmStich::showWaiting(bool waiting) {
    waiting_ = waiting;
    if (waiting && !form.visible()) form.show();
    Timer2.setEnabled(!waiting && showRuns_);
    fraWait.setVisible(waiting);
    layOut();
}

void frmStich::showProgress(const std::string& what, const platform::BackgroundTask::Progress& progress) {
    const int total = progress.total;
    const int done = progress.done;
    // What is counted without an end in sight is told as a number.
    lblWait.setCaption(total > 0 || done == 0 ? what : what + ' ' + std::to_string(done));
    kvProgressBar1.setMaximum(total);
    kvProgressBar1.setValue(total > 0 ? done : 0);
}

}  // namespace editor
