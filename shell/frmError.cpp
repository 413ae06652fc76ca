#include "shell/frmError.h"

#include <algorithm>
#include <memory>

#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/metrics.h"
#include "platform/path.h"
#include "platform/text.h"
#include "shell/data_directory.h"
#include "shell/settings.h"
#include "shell/wait_line.h"

namespace shell {

namespace {

namespace files = platform::files;
namespace message = platform::message;
namespace path = platform::path;
namespace text = platform::text;

constexpr const char* section = "Error";
constexpr const char* windowKey = "Window";
constexpr const char* listKey = "ListView1";
constexpr const char* question =
    "Wenn Sie kein anderes Verzeichnis angeben werden die nicht auffindbaren Dateien aus der Stichprobe "
    "entfernt!\r\nMöchten Sie nach den entsprechenden Dateien suchen?";

// Long names, the path and the file must exist.
constexpr std::uint32_t openFlags = 0x200000 | 0x1000 | 0x800;

constexpr std::int32_t nothingSearched = -1;

}  // namespace

frmError::frmError(platform::Form& owner, platform::Registry& registry, const Environment& environment)
    : form("frmError", "Fehlende Dateien", {.clientSize = {560, 360}, .dialog = true, .owner = &owner}),
      lblTop(form, "lblTop", "Diese Dateien der Stichprobe wurden &nicht gefunden:"),
      ListView1(form, "ListView1", {{"Nr.", 6}, {"Erwartet unter", 64}}, {}),
      lblQuestion(form, "lblQuestion", {}, platform::Label::Style::wrapped),
      btnSearch(form, "btnSearch", "&Suchen..."),
      btnDel(form, "btnDel", "&Entfernen"),
      btnAbbr(form, "btnAbbr", "&Abbrechen"),
      fraWait(form, "fraWait"),
      lblWait(fraWait, "lblWait", {}, platform::Label::Style::plain),
      kvProgressBar1(fraWait, "kvProgressBar1"),
      btnWait(fraWait, "btnWait", "Abbrechen"),
      registry_(registry),
      environment_(environment) {
    form.onResize = [this] { Form_Resize(); };
    form.onUnload = [this] { Form_Unload(); };
    form.onQueryUnload = [this] {
        givenUp_ = true;  // what goes on in front of it ends in good order first
        return !fraWait.visible();
    };
    btnWait.onClick = [this] { givenUp_ = true; };
    btnSearch.onClick = [this] { btnSearch_Click(); };
    btnDel.onClick = [this] { btnDel_Click(); };
    btnAbbr.onClick = [this] { btnAbbr_Click(); };
    ListView1.cell = [this](int row, int subItem) {
        const Missing& file = missing_[static_cast<std::size_t>(row - 1)];
        return subItem == 0 ? std::to_string(file.position) : file.path;
    };
    Form_Load();
}

frmError::~frmError() {
    form.unload();
}

void frmError::Form_Load() {
    form.setMinimumSize({420, 260});
    form.setPlacement(registry_.read(section, windowKey).value_or(""));
    ListView1.setLayout(registry_.read(section, listKey).value_or(""));
    lblQuestion.setCaption(question);
    kvProgressBar1.setAccessibleName("Fortschritt");
    fraWait.setVisible(false);
    Form_Resize();
}

void frmError::Form_Unload() {
    writeValues(registry_, section, {{windowKey, form.placement()}, {listKey, ListView1.layout()}});
}

void frmError::Form_Resize() {
    const auto m = platform::metricsOf(form);
    const auto [width, height] = form.clientSize();
    const int margin = m.px(5);
    const int buttonHeight = m.lineHeight + m.px(10);
    const int buttonWidth = m.px(90);
    const int buttonTop = height - margin - buttonHeight;
    const int questionHeight = 3 * m.lineHeight + m.px(2);
    const int questionTop = buttonTop - m.px(8) - questionHeight;

    using platform::Rect;
    lblTop.move(Rect::at(margin, margin, width - 2 * margin, m.lineHeight));
    const int listTop = margin + m.lineHeight + m.px(4);
    ListView1.move({margin, listTop, width - margin, questionTop - m.px(6)});
    lblQuestion.move(Rect::at(margin, questionTop, width - 2 * margin, questionHeight));
    int right = width - margin;
    for (platform::Button* button : {&btnAbbr, &btnDel, &btnSearch}) {
        button->move(Rect::at(right - buttonWidth, buttonTop, buttonWidth, buttonHeight));
        right -= buttonWidth + m.px(6);
    }
    layOutWait(lblQuestion.bounds(), buttonHeight);
}

// In the place of the question, which it answers.
void frmError::layOutWait(platform::Rect area, int buttonHeight) {
    using platform::Rect;
    const auto m = platform::metricsOf(form);
    const int buttonLeft = area.width() - m.px(90);
    const int right = buttonLeft - m.px(6);
    const int barTop = m.lineHeight + m.px(3);
    fraWait.move(area);
    lblWait.move(Rect::at(0, 0, right, m.lineHeight));
    kvProgressBar1.move(Rect::at(0, barTop, right, m.px(16)));
    btnWait.move(Rect::at(buttonLeft, m.px(3), m.px(90), buttonHeight));
}

void frmError::showWaiting(bool waiting) {
    lblQuestion.setVisible(!waiting);
    fraWait.setVisible(waiting);
    for (platform::Button* button : {&btnSearch, &btnDel, &btnAbbr}) button->setEnabled(!waiting);
    if (!waiting) btnSearch.focus();
}

void frmError::showModal() {
    ListView1.setCount(static_cast<int>(missing_.size()));
    form.showModal();
}

void frmError::leave(std::int32_t state) {
    exitState_ = state;
    form.hide();
}

std::int32_t frmError::SearchDirectory() {
    if (missing_.empty()) return nothingSearched;
    const int row = std::max(1, ListView1.firstSelected());
    const std::string offered = path::fileName(missing_[static_cast<std::size_t>(row - 1)].path);

    const std::string chosen =
        platform::showOpenFile(&form, {.title = "Datei öffnen",
                                       .fileName = offered,
                                       .filter = "Windows-Bitmap (*.bmp)|*.bmp",
                                       .filterIndex = 1,
                                       .initialDirectory = dataDirectory(registry_, environment_),
                                       .flags = openFlags});
    if (chosen == offered || !files::fileExists(chosen)) return nothingSearched;

    // The directory is listed once, however many files are looked for in it.
    const std::string directory = path::directory(chosen);
    std::vector<std::string> there;
    if (!readNames(directory, there)) return nothingSearched;
    std::erase_if(missing_, [&](const Missing& file) {
        const std::string name = text::foldCase(path::fileName(file.path));
        if (!std::binary_search(there.begin(), there.end(), name)) return false;
        if (onFound) onFound(file.position, directory);
        return true;
    });
    ListView1.unselectAll();
    ListView1.setCount(static_cast<int>(missing_.size()));
    return static_cast<std::int32_t>(missing_.size());
}

// The directory may be large, or lie on a share. False when the user gave up.
bool frmError::readNames(const std::string& directory, std::vector<std::string>& names) {
    const auto found = std::make_shared<std::vector<std::string>>();
    platform::BackgroundTask task([found, directory, list = environment_.fileNames](auto& progress) {
        *found = list(directory, [&progress](std::size_t entries) {
            progress.done = static_cast<int>(entries);
            return !progress.cancelled;
        });
    });
    givenUp_ = false;
    const WaitLine line{fraWait, lblWait, kvProgressBar1, [this](bool waiting) { showWaiting(waiting); }};
    if (!waitFor(line, "Das Verzeichnis wird durchsucht ...", task, givenUp_) || !form.visible())
        return false;
    names = std::move(*found);
    return true;
}

void frmError::btnSearch_Click() {
    for (;;) {
        const std::int32_t left = SearchDirectory();
        if (left == nothingSearched) return;
        if (left == 0) {
            platform::showMessage(&form, {"Alle Elemente konnten erfolgreich zugewiesen werden.",
                                          message::information, form.caption()});
            leave(foundAll);
            return;
        }
        const int again = platform::showMessage(
            &form, {"Nicht alle Elemente konnten zugewiesen werden.\r\nMöchten Sie erneut suchen?",
                    message::okCancel | message::question, form.caption()});
        if (again != message::ok) return;
    }
}

void frmError::btnDel_Click() {
    const int answer = platform::showMessage(
        &form, {"Sind Sie sicher, daß Sie die restlichen Dateien aus der Stichprobe entfernen möchten?",
                message::yesNo | message::question, form.caption()});
    if (answer == message::yes) leave(removeRest);
}

void frmError::btnAbbr_Click() {
    leave(cancelled);
}

}  // namespace shell
