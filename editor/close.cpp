// How the window is left.
#include "editor/frmStich.h"
#include "platform/application.h"
#include "platform/dialogs.h"
#include "platform/errors.h"

namespace editor {

namespace message = platform::message;

bool frmStich::Form_QueryUnload() {
    endAgreed_ = false;
    // What goes on in front of the window ends in good order first.
    if (waiting_ || searching_) waitGivenUp_ = true;
    if (frmSave_) frmSave_->form.unload();
    if (waiting_ || searching_ || frmSave_) return false;
    const bool named = endEdits();
    if (set_.sampleCount() == 0 || set_.unchanged()) return endAgreed_ = true;
    if (!named) return false;
    const int answer = say("Änderungen speichern?", message::yesNoCancel | message::question);
    endAgreed_ = answer == message::yes ? SaveSetAs(cboSets.text()) : answer == message::no;
    return endAgreed_;
}

void frmStich::Form_Unload() {
    Timer1.setEnabled(false);
    Timer2.setEnabled(false);
    Timer4.setEnabled(false);
    // The system may end the session before the question was answered.
    if (endAgreed_) journal_.forget();
    WriteProp();
    leaveMissingFiles();
}

// Whoever shows the dialog still needs it.
void frmStich::leaveMissingFiles() {
    if (frmError_) frmError_->form.hide();
}

void frmStich::btnOK_Click() {
    form.unload();
}

void frmStich::btnAbbr_Click() {
    if (waiting_ || searching_) {
        waitGivenUp_ = true;
        return;
    }
    Timer1.setEnabled(false);
    Timer2.setEnabled(false);
    endEdits();
    const bool unchanged = set_.unchanged();
    set_.setUnchanged(true);
    leaveMissingFiles();
    platform::application::doEvents();
    if (!form.unload()) set_.setUnchanged(unchanged);
}

void frmStich::btnGrab_Click() {
    const std::string tool = shell::programFile(environment_, shell::acquisitionTool);
    try {
        platform::application::start(tool);
    } catch (const platform::RuntimeError& failure) {
        say("\"" + std::string(shell::acquisitionTool) + "\" kann nicht gestartet werden.\r\n" +
                failure.description(),
            message::exclamation);
    }
}

}  // namespace editor
