// Having regions cut out into bitmaps of their own.
#include "editor/frmStich.h"
#include "editor/icons.h"
#include "platform/application.h"
#include "platform/text.h"

namespace editor {

namespace {

struct Command {
    const char* tag;  // of the toolbar's save button
    std::int16_t mode;
};
constexpr Command commands[] = {{"btnSaveROI", shell::frmSave::currentRegion},
                                {"btnSaveAllROI", shell::frmSave::allRegions},
                                {"btnSaveAllROI2", shell::frmSave::allRegionsOfAllPictures}};

}  // namespace

void frmStich::saveAsTagged() {
    const std::string tag = Toolbar1.button(Toolbar1.indexOf("btnSave")).tag;
    for (const Command& command : commands) {
        if (platform::text::equalNoCase(command.tag, tag)) return saveRegions(command.mode);
    }
}

void frmStich::saveRegions(std::int16_t mode) {
    if (frmSave_ || !FileExists(shell::programFile(environment_, shell::extractionScript))) return;
    // The picture is not the one that is seen.
    if (showingItem_ || kvPictureBox1.GivenUp()) return platform::application::beep();
    moveRegion();  // a number that is still being typed
    shell::frmSave dialog(form, *this, environment_, PathROI_);
    for (const auto& image : toolbarImages(iconStyle_.size, iconStyle_.barGround)) {
        if (image.key == Toolbar1.button(Toolbar1.indexOf("btnSave")).tag) dialog.form.setIcon(image.icon);
    }
    frmSave_ = &dialog;
    Timer2.setEnabled(false);  // the pictures are stepped through here
    platform::application::guard([&] { dialog.SaveROI(mode); });
    frmSave_ = nullptr;
    Timer2.setEnabled(showRuns_);
    tellCutOuts(dialog, mode);
}

void frmStich::tellCutOuts(const shell::frmSave& dialog, std::int16_t mode) {
    if (!dialog.kernelNotice().empty()) {
        tell(dialog.kernelNotice());
    } else if (dialog.failures() > 0) {
        const std::string count = dialog.failures() == 1
                                      ? "Ein Bereich konnte"
                                      : std::to_string(dialog.failures()) + " Bereiche konnten";
        tell(count + " nicht gespeichert werden. " + dialog.firstFailure());
    } else if (mode == shell::frmSave::currentRegion && !dialog.lastTarget().empty()) {
        tell("Bereich gespeichert: " + dialog.lastTarget());
    }
}

std::array<std::string, 4> frmStich::regionDetails() const {
    return {txtX.text(), txtY.text(), txtDX.text(), txtDY.text()};
}

}  // namespace editor
