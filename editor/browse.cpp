// The player bar: stepping through the pictures and letting them run.
#include "editor/frmStich.h"
#include "editor/mListView.h"
#include "platform/application.h"
#include "platform/dialogs.h"
#include "platform/text.h"

namespace editor {

namespace {

// The toolbar's sixth and seventh buttons.
constexpr int startButton = 6;
constexpr int stopButton = 7;

}  // namespace

void frmStich::EnableToolbar1(bool enable) {
    if (!enable) {
        showRuns_ = false;
        Timer2.setEnabled(false);
    }
    for (int i = 1; i <= Toolbar1.count(); ++i) {
        bool on = enable;
        if (Toolbar1.button(i).key == "btnSaveROI") on = kvPictureBox1.ROI() != 0;
        if (Toolbar1.button(i).key == "btnSave") on = enable && canCutOut_;
        if (i == startButton) on = enable && !showRuns_;
        if (i == stopButton) on = enable && showRuns_;
        Toolbar1.setEnabled(i, on);
    }
}

void frmStich::Toolbar1_ButtonClick(const std::string& key) {
    const int count = lvCItems.count();
    if (count == 0) return;
    const int row = mListView::GetSelectedIndex(lvCItems);
    const auto is = [&](const char* name) { return platform::text::equalNoCase(key, name); };
    if (is("btnFR")) GoToItem(1);
    if (is("btnR")) GoToItem(row <= 1 ? count : row - 1);
    if (is("btnF")) GoToItem(row == count ? 1 : row + 1);
    if (is("btnFF")) GoToItem(count);
    if (is("btnLoop")) runShow(true);
    if (is("btnStop")) runShow(false);
    if (is("btnPath")) chooseCutOutDirectory();
    if (is("btnSave")) saveAsTagged();
}

void frmStich::chooseCutOutDirectory() {
    const std::string chosen = platform::chooseFolder(&form, "Zielverzeichnis", PathROI_);
    if (!chosen.empty()) PathROI_ = chosen;
}

void frmStich::runShow(bool run) {
    showRuns_ = run;
    if (run) Timer2_Tick();
    Timer2.setEnabled(showRuns_);
    EnableToolbar1(lvCItems.count() > 0);
}

// The timer rests while the next picture is brought, so that ticks never pile up. What is handled meanwhile
// may stop the show.
void frmStich::Timer2_Tick() {
    const int count = lvCItems.count();
    if (count == 0 || form.blocked()) return;  // a question is answered first
    const int row = mListView::GetSelectedIndex(lvCItems);
    Timer2.setEnabled(false);
    platform::application::guard([&] { GoToItem(row == count ? 1 : row + 1); });
    Timer2.setEnabled(showRuns_);
}

void frmStich::Slider1_Change() {
    Timer2.setInterval(Slider1.value());
    const std::string seconds = platform::formatNumber(Slider1.value() / 1000.0, 1);
    txtTime.setCaption(' ' + seconds + 's');
}

void frmStich::Toolbar1_MenuClick(const platform::Toolbar::MenuEntry& entry) {
    const int save = Toolbar1.indexOf("btnSave");
    Toolbar1.setTag(save, entry.key);
    Toolbar1.setImage(save, entry.key);
    Toolbar1.setToolTip(save, entry.text);
}

}  // namespace editor
