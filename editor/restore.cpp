// Changes that a former run of the program could not save: keeping them, and giving them back.
#include <algorithm>
#include <exception>
#include <new>

#include "editor/frmStich.h"
#include "editor/list_texts.h"
#include "editor/reading.h"
#include "platform/application.h"
#include "platform/dialogs.h"
#include "platform/errors.h"
#include "platform/path.h"
#include "platform/text.h"

namespace editor {

namespace files = platform::files;
namespace message = platform::message;
namespace path = platform::path;

namespace {

std::string question(const JournalFile& left) {
    const SetFile& file = left.file();
    std::string text = "Das Programm wurde nicht ordnungsgemäß beendet.\r\nNicht gespeicherte Änderungen ";
    text += file.path.empty() ? "einer Stichprobe ohne Namen" : "in \"" + file.path + "\"";
    text += " vom " + dateText(left.written()) + " wiederherstellen?";
    if (file.path.empty()) return text;
    if (!files::fileExists(file.path)) {
        text += "\r\n\r\nDie Datei gibt es nicht mehr.";
    } else if (file.isReplaced()) {
        text +=
            "\r\n\r\nDie Datei wurde seitdem von anderer Seite geändert. Diese Änderungen sind nicht dabei.";
    }
    return text;
}

}  // namespace

void frmStich::Timer4_Tick() {
    if (frmError_ || accepting_) return;
    journal_.keep(set_, rectangles(), openFile_);
    if (hint_.empty() && lblHint.caption() != journal_.problem()) tell("");
}

// The first that the user wants of those that `isMeant` picks; what he does not want goes.
std::unique_ptr<JournalFile> frmStich::offered(const std::function<bool(const SetFile&)>& isMeant) {
    for (auto& left : JournalFile::left(environment_.journalDirectory)) {
        if (!left->isUnderstood()) {
            platform::application::guard([&] { setAside(*left); });
        } else if (isMeant(left->file())) {
            if (say(question(*left), message::yesNo | message::question) == message::yes)
                return std::move(left);
            left->remove();
        }
    }
    return nullptr;
}

std::unique_ptr<JournalFile> frmStich::offeredFor(const std::string& file) {
    return offered([&](const SetFile& left) { return platform::text::equalNoCase(left.path, file); });
}

void frmStich::setAside(JournalFile& left) {
    const std::string aside = left.setAside();
    say("Nicht gespeicherte Änderungen eines früheren Laufs können nicht wiederhergestellt werden.\r\n"
        "Was von ihnen da ist, wurde aufgehoben:\r\n" +
            aside,
        message::exclamation);
}

std::optional<std::int16_t> frmStich::restore(std::unique_ptr<JournalFile> left) {
    const auto reading = std::make_shared<Reading>();
    reading->file = left->file();
    reading->left = std::move(left);
    try {
        if (!readBeside(reading, [](Reading& it) { it.loaded = it.left->read(); })) return shell::notOpened;
    } catch (const platform::RuntimeError&) {
        platform::application::guard([&] { setAside(*reading->left); });
        return std::nullopt;
    } catch (const std::exception&) {  // it stays for a better moment
        say("Die nicht gespeicherten Änderungen können zur Zeit nicht gelesen werden.\r\n"
            "Der Arbeitsspeicher reicht nicht aus.",
            message::exclamation);
        return shell::notOpened;
    }
    const std::int16_t result = accept(*reading);
    if (result != shell::notOpened) journal_.takeOver(std::move(reading->left));
    return result;
}

void frmStich::offerLeftSets() {
    // A share that is not there yet says nothing about its files.
    auto left = offered([](const SetFile& file) {
        return file.path.empty() ||
               (!files::fileExists(file.path) && files::directoryExists(path::directory(file.path)));
    });
    if (!left || restore(std::move(left)).value_or(shell::notOpened) == shell::notOpened) return;
    SetItemCount(set_.sampleCount());
    // Saved again it gets the place that it had.
    const bool hadPlace =
        platform::text::equalNoCase(path::withBackslash(path::directory(openFile_.path)), setsDirectory_);
    if (!hadPlace) return;
    openName_ = path::stem(openFile_.path);
    cboSets.setText(openName_);
    cboSets_Change();
}

}  // namespace editor
