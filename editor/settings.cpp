// What the window keeps between runs.
#include <algorithm>

#include "editor/frmStich.h"
#include "platform/dialogs.h"
#include "platform/errors.h"

namespace editor {

namespace {

constexpr const char* firstSaveCommand = "btnSaveROI";
constexpr const char* saveButton = "btnSave";
constexpr int furthestBar = 20000;  // no screen is larger, and nothing computed from it overflows

}  // namespace

shell::EditorSettings frmStich::settings() const {
    const int save = Toolbar1.indexOf(saveButton);
    return {.interval = Slider1.value(),
            .pathROI = PathROI_,
            .saveSatus = save == 0 ? firstSaveCommand : Toolbar1.button(save).tag,
            .bar2 = kvBar2.position(),
            .bar3 = kvBar3.position(),
            .window = form.placement(),
            .stretch = chkStretch.checked() ? 1 : 0,
            .lists = {ListView1.layout(), ListView2.layout(), lvROIs.layout(), lvCClasses.layout(),
                      lvCItems.layout()}};
}

void frmStich::ReadProp() {
    shell::EditorSettings stored = settings();
    stored.pathROI = shell::pictureDirectory(registry_, environment_);
    stored.window.clear();
    const auto problems = shell::ReadProp(registry_, stored);

    Slider1.setValue(stored.interval);
    PathROI_ = stored.pathROI;
    if (const int save = Toolbar1.indexOf(saveButton)) {
        Toolbar1.setTag(save, stored.saveSatus);
        for (const auto& entry : Toolbar1.button(save).menu) {
            if (entry.key == stored.saveSatus) Toolbar1_MenuClick(entry);
        }
    }
    form.setPlacement(stored.window);
    chkStretch.setChecked(stored.stretch != 0);
    kvPictureBox1.Stretch(chkStretch.checked());
    kvBar2.setPosition(std::clamp(stored.bar2, 0, furthestBar));
    kvBar3.setPosition(std::clamp(stored.bar3, 0, furthestBar));
    platform::ListView* const lists[] = {&ListView1, &ListView2, &lvROIs, &lvCClasses, &lvCItems};
    for (std::size_t i = 0; i < stored.lists.size(); ++i) lists[i]->setLayout(stored.lists[i]);
    layOut();

    std::string text;
    for (const auto& problem : problems) text += (text.empty() ? "" : "\r\n") + problem;
    if (!text.empty()) say(text, platform::message::exclamation);
}

// The window is being left: what cannot be stored is told, once, and keeps nobody.
void frmStich::WriteProp() {
    try {
        shell::WriteProp(registry_, settings());
    } catch (const platform::RuntimeError& failure) {
        say(failure.description(), platform::message::exclamation);
    }
}

}  // namespace editor
