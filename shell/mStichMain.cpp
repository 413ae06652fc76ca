#include "shell/mStichMain.h"

#include "editor/startup.h"
#include "platform/application.h"
#include "platform/files.h"

namespace shell {

namespace {

void setUpToolbar(platform::Toolbar& toolbar) {
    toolbar.clear();
    toolbar.add({"btnFR", "erstes Bild", "", {}});
    toolbar.add({"btnR", "vorheriges Bild", "", {}});
    toolbar.add({"btnF", "nächstes Bild", "", {}});
    toolbar.add({"btnFF", "letztes Bild", "", {}});
    toolbar.add({});
    toolbar.add({"btnLoop", "Autoplay", "", {}});
    toolbar.add({"btnStop", "Stop", "", {}});
    toolbar.add({});
    toolbar.add({"btnPath", "Pfad", "", {}});
    toolbar.add({"btnSave",
                 "Region speichern",
                 "btnSaveROI",
                 {{"btnSaveROI", "Region speichern"},
                  {"btnSaveAllROI", "Alle Regionen speichern"},
                  {"btnSaveAllROI2", "Alle Regionen aller Bilder speichern"}}});
}

}  // namespace

bool start(EditorWindow& editor, const Environment& environment, const std::string& commandLine) {
    setUpToolbar(editor.pictureToolbar());
    editor.toolbarReady();

    editor.ReadProp();
    editor.TabStrip1_Click();
    editor.btnCNew_Click();
    editor.SetStdClass(false);
    editor.Slider1_Change();

    editor.offerWholePicture();
    editor.enableGrab(platform::files::fileExists(programFile(environment, acquisitionTool)));

    platform::Registry registry(environment.registryRoot);
    const Directories directories = workingDirectories(registry, environment);
    // Without a place for sets the editor can still be used on one from elsewhere.
    platform::application::guard([&] { platform::files::createDirectories(directories.sets); });
    editor.useDirectories(directories);
    editor.window().show();  // reading what follows may take long: a share, a large folder, a large set
    platform::application::guard([&] { editor.SearchSets(true); });
    platform::application::guard([&] { editor.browse(directories.sets); });

    const bool isNamed = !commandLine.empty() && platform::files::fileExists(commandLine);
    if (isNamed) {
        if (editor.LoadFile(platform::files::fullPath(commandLine)) == notOpened) return false;
        editor.cboSets_Change();
        editor.clearSetName();
    }
    if (!isNamed) editor.offerLeftSets();
    return true;
}

int Main(const std::string& commandLine) {
    const std::string own = platform::application::userFolder();
    const Environment environment{.programDirectory = platform::files::programDirectory(),
                                  .journalDirectory = own.empty() ? own : own + "\\Stich\\Journal"};
    const auto editor = editor::makeWindow(environment);
    int result = 0;
    platform::application::guard([&] {
        if (start(*editor, environment, commandLine)) result = platform::application::run(editor->window());
    });
    return result;
}

}  // namespace shell
