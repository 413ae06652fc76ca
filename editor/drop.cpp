// What is dropped on the window from the Explorer: a set is opened, pictures are added, a folder is browsed.
#include <algorithm>
#include <initializer_list>
#include <iterator>

#include "editor/frmStich.h"
#include "platform/application.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/path.h"
#include "platform/text.h"

namespace editor {

namespace {

namespace path = platform::path;
namespace text = platform::text;
using Paths = std::vector<std::string>;

struct Dropped {
    Paths folders, pictures, sets, others;
};

/// Asks the disk for each of them, which takes its time for thousands on a share.
Dropped sorted(Paths paths, const std::string& pictures, platform::BackgroundTask::Progress& progress) {
    std::sort(paths.begin(), paths.end(),
              [](const auto& a, const auto& b) { return text::compareNatural(a, b) < 0; });
    Dropped dropped;
    progress.total = static_cast<int>(paths.size());
    for (std::string& one : paths) {
        if (progress.cancelled) break;
        const auto kind = [&]() -> Paths& {
            if (platform::files::directoryExists(one)) return dropped.folders;
            if (FileListBox::matches(one, pictures)) return dropped.pictures;
            if (text::equalNoCase(path::extension(one), shell::setExtension)) return dropped.sets;
            return dropped.others;
        };
        kind().push_back(std::move(one));
        ++progress.done;
    }
    return dropped;
}

}  // namespace

void frmStich::filesDropped(const std::vector<std::string>& paths) {
    if (isBusy()) return platform::application::beep();
    const auto dropped = std::make_shared<Dropped>();
    platform::BackgroundTask task([dropped, paths, pattern = Datei1.pattern()](auto& progress) {
        *dropped = sorted(paths, pattern, progress);
    });
    if (!waitFor("Die abgelegten Dateien werden geprüft ...", task)) return;
    auto& [folders, pictures, sets, others] = *dropped;
    if (!sets.empty()) {
        tellUnused("Geöffnet wird nur die Stichprobe \"" + path::fileName(sets.front()) + "\".",
                   {Paths(sets.begin() + 1, sets.end()), pictures, folders, others});
        return openDropped(sets.front());
    }
    if (!pictures.empty()) addFiles(pictures);
    if (!folders.empty()) {
        TabStrip1.select(1);
        TabStrip1_Click();
        browseChosen(folders.front());
        tellUnused(
            "Es wird nur der Inhalt des Verzeichnisses \"" + path::fileName(folders.front()) + "\" gezeigt.",
            {Paths(folders.begin() + 1, folders.end())});
    }
    tellUnused(
        "Nur Bilder (*.bmp, *.jpg), Verzeichnisse und Stichproben (*.kvs) können hier abgelegt werden.",
        {others});
}

void frmStich::tellUnused(const std::string& reason, const std::vector<Paths>& unused) {
    constexpr std::size_t most = 10;
    Paths names;
    for (const Paths& paths : unused)
        std::transform(paths.begin(), paths.end(), std::back_inserter(names), path::fileName);
    if (names.empty()) return;
    std::string told = reason + "\r\nNicht verwendet:";
    for (std::size_t i = 0; i < std::min(most, names.size()); ++i) told += "\r\n" + names[i];
    if (names.size() > most) told += "\r\nund " + std::to_string(names.size() - most) + " weitere";
    say(told, platform::message::exclamation);
}

void frmStich::addFiles(const std::vector<std::string>& files) {
    std::vector<std::string> directories;
    for (const std::string& file : files) directories.push_back(path::normalise(path::directory(file)));
    addSamples(files.size(), [&](std::size_t i) -> SampleFile {
        const std::string_view file = files[i];
        return {directories[i], file.substr(file.find_last_of("\\/") + 1)};
    });
}

// One of the sets directory is chosen as by its name; another one has no name here, as one from the command
// line.
void frmStich::openDropped(const std::string& file) {
    const std::string name = path::stem(file);
    if (text::equalNoCase(path::normalise(file), path::normalise(setFile(name)))) {
        offerSaved(name);
        cboSets.setListIndex(listedSet(name));
        return lvCItems.focus();
    }
    const platform::application::WaitCursor wait;
    if (openInstead(file)) {
        openName_.clear();
        clearSetName();
        cboSets_Change();
    }
    SetItemCount(set_.sampleCount());
}

}  // namespace editor
