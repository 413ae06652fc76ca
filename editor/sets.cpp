// The sets directory, the chooser of sets, and saving under a name.
#include <algorithm>

#include "editor/frmStich.h"
#include "editor/notify_suite.h"
#include "editor/saving.h"
#include "editor/set_io.h"
#include "platform/application.h"
#include "platform/dialogs.h"
#include "platform/errors.h"
#include "platform/files.h"
#include "platform/metrics.h"
#include "platform/path.h"
#include "platform/text.h"

namespace editor {

namespace {

namespace files = platform::files;
namespace message = platform::message;
namespace path = platform::path;
namespace text = platform::text;

}  // namespace

std::string frmStich::CheckPath(const std::string& directory) {
    return path::withBackslash(directory);
}

bool frmStich::FileExists(const std::string& file) {
    return files::fileExists(file);
}

std::string frmStich::setFile(const std::string& name) const {
    return setsDirectory_ + name + shell::setExtension;
}

void frmStich::SearchSets(bool fill) {
    if (!readSetNames() || !fill) return;
    cboSets.add(setNames_);
    widenSetList();
}

// The sets directory may lie on a share. False when the user gave up: then nothing is known.
bool frmStich::readSetNames() {
    const auto names = std::make_shared<std::vector<std::string>>();
    platform::BackgroundTask task([names, directory = setsDirectory_](auto& progress) {
        if (!files::directoryExists(directory)) return;
        const auto goOn = [&progress](std::size_t entries) {
            progress.done = static_cast<int>(entries);
            return !progress.cancelled;
        };
        for (const auto& entry : files::list(directory, goOn)) {
            const bool isSet =
                !entry.isDirectory && text::equalNoCase(path::extension(entry.name), shell::setExtension);
            if (isSet) names->push_back(path::stem(entry.name));
        }
        std::sort(names->begin(), names->end(),
                  [](const auto& a, const auto& b) { return text::compareNatural(a, b) < 0; });
    });
    if (!waitFor("Die Stichproben werden gesucht ...", task)) return false;
    setNames_ = std::move(*names);
    return true;
}

void frmStich::widenSetList() {
    int widest = 0;
    for (const auto& name : setNames_) widest = std::max(widest, platform::textWidth(cboSets, name));
    cboSets.setDropDownWidth(widest + platform::metricsOf(form).vScrollWidth);
}

void frmStich::cboSets_Change() {
    setName_ = cboSets.text();
    setIndex_ = cboSets.listIndex();
}

// Of a set that was not chosen in this box: the digits that are typed next are not its name.
void frmStich::clearSetName() {
    cboSets.setText("");
    lvCItems.focus();
}

void frmStich::chooseSet(int index) {
    suppressChooser_ = true;
    cboSets.setListIndex(index);
    if (index < 0) cboSets.setText(setName_);
    suppressChooser_ = false;
}

void frmStich::cboSets_Click() {
    if (suppressChooser_) return;
    const platform::application::WaitCursor wait;
    const std::string chosen = cboSets.text();
    // Typing commits a name as well; the set that is left is the one that is open.
    const bool isOpen = text::equalNoCase(chosen, setName_) && text::equalNoCase(chosen, openName_);
    if (isOpen ? LoadFile(setFile(chosen)) != shell::notOpened : openInstead(setFile(chosen))) {
        cboSets_Change();
        openName_ = chosen;
    } else {
        putChooserBack();
    }
    SetItemCount(set_.sampleCount());
}

// In the place of the set that is open; false when that is still the one.
bool frmStich::openInstead(const std::string& file) {
    if (!leaveSet(openName_.empty() ? setName_ : openName_)) return false;
    if (LoadFile(file) != shell::notOpened) return true;
    // A set with a file is read again, as its changes were saved or given up.
    const std::string former = setFile(openName_);
    const bool again = !openName_.empty() && !text::equalNoCase(file, former);
    if (again && files::fileExists(former)) LoadFile(former);
    return false;
}

// To the set that is open.
void frmStich::putChooserBack() {
    if (!openName_.empty()) {
        setName_ = openName_;
        setIndex_ = listedSet(openName_);
    }
    chooseSet(setIndex_);
}

int frmStich::listedSet(const std::string& name) const {
    for (int i = 0; i < cboSets.count(); ++i) {
        if (text::equalNoCase(cboSets.item(i), name)) return i;
    }
    return -1;
}

// Asks about changes; false when they could not be saved as the user wished.
bool frmStich::leaveSet(const std::string& name) {
    if (set_.sampleCount() == 0 || set_.unchanged()) return true;
    const int answer = say("Änderungen in  \"" + name + shell::setExtension + "\" speichern?",
                           message::yesNo | message::question);
    if (answer != message::yes) return true;
    if (!SaveSetAs(name)) return false;
    // It may stay open, when the one that is to follow cannot be read.
    set_.setUnchanged(true);
    openName_ = name;
    return true;
}

// The usual question is for a file that one knows; of what others did to it meanwhile it says nothing.
bool frmStich::mayReplace(const std::string& name) {
    if (!text::equalNoCase(setFile(name), openFile_.path) || !openFile_.isReplaced()) return true;
    const int answer = say("Die Datei \"" + name + shell::setExtension +
                               "\" wurde von anderer Seite geändert, seit sie hier gelesen oder gespeichert "
                               "wurde.\r\nDiese Änderungen gehen verloren, wenn Sie jetzt speichern.",
                           message::okCancel | message::exclamation | message::defaultButton2);
    return answer == message::ok;
}

bool frmStich::checkTarget(const std::string& name) {
    if (!path::isValidFileName(name + shell::setExtension) || name.back() == ' ' || name.back() == '.') {
        say("Der Name \"" + name +
                "\" kann nicht verwendet werden.\r\n"
                "Ein Name darf keines der Zeichen \\ / : * ? \" < > | und keine Steuerzeichen enthalten, "
                "nicht mit einem Punkt oder Leerzeichen enden und kein Gerätename sein.",
            message::exclamation);
        return false;
    }
    try {
        files::createDirectories(setsDirectory_);
        return readSetNames();
    } catch (const platform::RuntimeError& failure) {
        say(failure.description(), message::exclamation);
        return false;
    }
}

bool frmStich::SaveSetAs(const std::string& name) {
    if (name.empty()) {
        say("Sie haben keinen Namen für die Stichprobe vergeben!", message::exclamation);
        return false;
    }
    moveRegion();  // a number that is still being typed
    if (set_.sampleCount() == 0) {
        say("Sie haben keine Dateien ausgewählt!", message::exclamation);
        return false;
    }
    const auto seen = files::version(setFile(name));
    if (!checkTarget(name) || !mayReplace(name)) return false;
    const bool isThere = std::any_of(setNames_.begin(), setNames_.end(),
                                     [&](const auto& known) { return text::equalNoCase(known, name); });
    if (isThere) {
        const int answer = say("Stichprobendatei \"" + name + shell::setExtension +
                                   "\" ist bereits vorhanden.\r\nVorhandene Datei überschreiben?",
                               message::okCancel | message::question);
        if (answer != message::ok) return false;
    }
    // The questions take their time.
    if (files::version(setFile(name)) != seen && !mayReplace(name)) return false;
    if (!write(setFile(name))) return false;
    offerSaved(name);
    NotifySuite();
    return true;
}

// What is changed while the file is written is not in it.
bool frmStich::write(const std::string& file) {
    std::shared_ptr<Saving> saving;
    const std::uint64_t changes = set_.changes();
    try {
        saving =
            std::make_shared<Saving>(file, setBytes(dataDirectory_, set_, rectangles()), openFile_.version);
        platform::BackgroundTask task([saving](auto& progress) { saving->write(progress); });
        while (!waitFor("Die Stichprobe wird gespeichert ...", task)) {
            if (!saving->giveUp()) continue;
            tell("Die Stichprobe wurde nicht gespeichert.");
            return false;
        }
    } catch (const platform::RuntimeError& failure) {
        if (saving && saving->isStored()) openFile_ = {file, saving->version()};
        say("Die Stichprobe konnte nicht gespeichert werden.\r\n" + failure.description(),
            message::exclamation);
        return false;
    }
    openFile_ = {file, saving->version()};
    if (set_.changes() != changes) return false;
    journal_.forget();
    return true;
}

void frmStich::offerSaved(const std::string& name) {
    int place = 0;
    while (place < cboSets.count() && text::compareNatural(cboSets.item(place), name) < 0) ++place;
    if (place < cboSets.count() && text::equalNoCase(cboSets.item(place), name)) return;
    cboSets.insert(place, name);
    if (text::equalNoCase(name, setName_)) {
        setIndex_ = place;
    } else if (setIndex_ >= place) {
        ++setIndex_;
    }
    setNames_.push_back(name);
    widenSetList();
}

void frmStich::btnSave_Click() {
    const std::string name = cboSets.text();
    const bool saved = SaveSetAs(name);
    set_.setUnchanged(saved);
    if (!saved) return;
    chooseSet(listedSet(name));
    cboSets_Change();
    openName_ = name;
}

}  // namespace editor
