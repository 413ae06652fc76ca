// The sets directory, the chooser of sets, and saving under a name.
#include <algorithm>
#include <memory>
#include <new>
#include <optional>

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
    if (!lookAtSets({}) || !fill) return;
    cboSets.add(setNames_);
    widenSetList();
}

// The sets directory may lie on a share. None when the user gave up: then nothing is known.
std::optional<frmStich::Target> frmStich::lookAtSets(const std::string& target) {
    const auto found = std::make_shared<Target>();
    platform::BackgroundTask task([found, target, directory = setsDirectory_](auto& progress) {
        if (!target.empty()) files::createDirectories(directory);
        if (!files::directoryExists(directory)) return;
        const auto goOn = [&progress](std::size_t entries) {
            progress.done = static_cast<int>(entries);
            return !progress.cancelled;
        };
        for (const auto& entry : files::list(directory, goOn)) {
            const bool isSet =
                !entry.isDirectory && text::equalNoCase(path::extension(entry.name), shell::setExtension);
            if (isSet) found->names.push_back(path::stem(entry.name));
        }
        std::sort(found->names.begin(), found->names.end(),
                  [](const auto& a, const auto& b) { return text::compareNatural(a, b) < 0; });
        if (!target.empty()) found->version = files::version(target);
    });
    if (!waitFor("Die Stichproben werden gesucht ...", task)) return std::nullopt;
    setNames_ = found->names;
    return *found;
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
        // The digits that are typed next are no part of a name. Who steps through the list by key stays in
        // it.
        const auto press = platform::application::currentPress();
        if (press && press->byMouse) platform::application::post(form, [this] { lvCItems.focus(); });
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
    if (!endEdits()) return false;
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
bool frmStich::mayReplace(const std::string& name, const Target& target) {
    const bool isOurs = text::equalNoCase(setFile(name), openFile_.path);
    if (!isOurs || !target.version || target.version == openFile_.version) return true;
    const int answer = say("Die Datei \"" + name + shell::setExtension +
                               "\" wurde von anderer Seite geändert, seit sie hier gelesen oder gespeichert "
                               "wurde.\r\nDiese Änderungen gehen verloren, wenn Sie jetzt speichern.",
                           message::okCancel | message::exclamation | message::defaultButton2);
    return answer == message::ok;
}

bool frmStich::checkName(const std::string& name) {
    if (name.empty()) {
        say("Sie haben keinen Namen für die Stichprobe vergeben!", message::exclamation);
        return false;
    }
    if (!endEdits()) return false;
    if (set_.sampleCount() == 0) {
        say("Sie haben keine Dateien ausgewählt!", message::exclamation);
        return false;
    }
    if (path::isValidFileName(name + shell::setExtension) && name.back() != ' ' && name.back() != '.')
        return true;
    say("Der Name \"" + name +
            "\" kann nicht verwendet werden.\r\n"
            "Ein Name darf keines der Zeichen \\ / : * ? \" < > | und keine Steuerzeichen enthalten, "
            "nicht mit einem Punkt oder Leerzeichen enden und kein Gerätename sein.",
        message::exclamation);
    return false;
}

// None when it cannot be told, which the user knows then.
std::optional<frmStich::Target> frmStich::lookAtTarget(const std::string& name) {
    try {
        return lookAtSets(setFile(name));
    } catch (const platform::RuntimeError& failure) {
        say(failure.description(), message::exclamation);
        return std::nullopt;
    }
}

bool frmStich::SaveSetAs(const std::string& name) {
    if (!checkName(name)) return false;
    const auto target = lookAtTarget(name);
    if (!target || !mayReplace(name, *target)) return false;
    const bool isThere = std::any_of(target->names.begin(), target->names.end(),
                                     [&](const auto& known) { return text::equalNoCase(known, name); });
    if (isThere) {
        const int answer = say("Stichprobendatei \"" + name + shell::setExtension +
                                   "\" ist bereits vorhanden.\r\nVorhandene Datei überschreiben?",
                               message::okCancel | message::question);
        if (answer != message::ok) return false;
        // The question takes its time.
        const auto now = lookAtTarget(name);
        if (!now || (now->version != target->version && !mayReplace(name, *now))) return false;
    }
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
        const bool isOurs = text::equalNoCase(file, openFile_.path);
        saving = std::make_shared<Saving>(file, setBytes(dataDirectory_, set_, rectangles()),
                                          isOurs ? openFile_.version : std::nullopt);
        platform::BackgroundTask task([saving](auto& progress) { saving->write(progress); });
        while (!waitFor("Die Stichprobe wird gespeichert ...", task)) {
            if (!saving->giveUp()) continue;
            tell("Die Stichprobe wurde nicht gespeichert.");
            return false;
        }
    } catch (const std::bad_alloc&) {
        say("Die Stichprobe konnte nicht gespeichert werden.\r\nDer Arbeitsspeicher reicht nicht aus.",
            message::exclamation);
        return false;
    } catch (const platform::RuntimeError& failure) {
        if (saving && saving->isStored()) openFile_ = {file, saving->version()};
        say("Die Stichprobe konnte nicht gespeichert werden.\r\n" + failure.description(),
            message::exclamation);
        return false;
    }
    openFile_ = {file, saving->version()};
    if (set_.changes() != changes) {
        tell("Die Stichprobe wurde beim Speichern noch geändert. Bitte speichern Sie sie noch einmal.");
        return false;
    }
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
