// Making a set from files: the folder that is browsed and the pictures that come from it.
#include <algorithm>

#include "editor/frmStich.h"
#include "editor/mListView.h"
#include "platform/application.h"
#include "platform/dialogs.h"
#include "platform/path.h"
#include "platform/text.h"

namespace editor {

namespace {

namespace path = platform::path;

enum SourceColumn { nameColumn = 1, sizeColumn, dateColumn };

}  // namespace

void frmStich::btnPath_Click() {
    const std::string folder = platform::chooseFolder(&form, "Quellverzeichnis", Datei1.path());
    if (folder.empty()) return;
    const platform::application::WaitCursor wait;
    Datei1.setPath(folder);
    if (cboSets.text().empty()) {
        cboSets.setText(path::fileName(path::normalise(folder)));
        cboSets_Change();
    }
}

void frmStich::browse(const std::string& directory) {
    if (platform::files::directoryExists(directory)) Datei1.setPath(directory);
}

void frmStich::Datei1_PathChange() {
    txtPath.setText(CheckPath(Datei1.path()));
    sourceFiles_ = Datei1.files();
    showSourceFiles();
}

void frmStich::showSourceFiles() {
    mListView::UnselectAll(ListView1);
    ListView1.setCount(static_cast<int>(sourceFiles_.size()));
}

// One direction for all columns, which each click turns round.
void frmStich::ListView1_ColumnClick(int column) {
    using platform::files::Entry;
    const auto before = [column](const Entry& a, const Entry& b) {
        if (column == sizeColumn && a.size != b.size) return a.size < b.size;
        if (column == dateColumn && a.modified != b.modified) return a.modified < b.modified;
        return platform::text::compareNatural(a.name, b.name) < 0;
    };
    sortDescending_ = !sortDescending_;
    std::stable_sort(sourceFiles_.begin(), sourceFiles_.end(), [&](const Entry& a, const Entry& b) {
        return sortDescending_ ? before(b, a) : before(a, b);
    });
    showSourceFiles();
}

void frmStich::ListView1_ItemClick(int row) {
    if ((sourceShift_ & platform::shiftKey::shift) != 0) return;
    const platform::application::WaitCursor wait;
    // The picture is none of the set: until an item is chosen again a class button has nothing to label.
    mListView::UnselectAll(lvCItems);
    shownRow_ = 0;
    showPicture(path::join(Datei1.path(), sourceFiles_[static_cast<std::size_t>(row - 1)].name));
    ShowInfoLine();
}

int frmStich::FindItemByPath(const std::string& file) const {
    return chkDouble.checked() ? -1 : set_.findSample(file);
}

void frmStich::addSamples(const std::vector<int>& sourceRows) {
    const std::string directory = path::normalise(txtPath.text());
    const bool wasEmpty = set_.sampleCount() == 0;
    set_.reserveSamples(static_cast<std::size_t>(set_.sampleCount()) + sourceRows.size());
    for (const int row : sourceRows) {
        const std::string& name = sourceFiles_[static_cast<std::size_t>(row - 1)].name;
        if (FindItemByPath(path::join(directory, name)) == -1) set_.addSample(directory, name);
    }
    set_.setUnchanged(false);
    samplesChanged();
    if (wasEmpty && set_.sampleCount() > 0) GoToItem(1);
}

void frmStich::btn_Click() {
    std::vector<int> rows;
    for (int row = ListView1.firstSelected(); row > 0; row = ListView1.nextSelected(row)) rows.push_back(row);
    addSamples(rows);
}

void frmStich::btn_A_Click() {
    std::vector<int> rows(sourceFiles_.size());
    for (std::size_t i = 0; i < rows.size(); ++i) rows[i] = static_cast<int>(i + 1);
    addSamples(rows);
}

void frmStich::btnR_Click() {
    std::vector<int> rows;
    for (int row = ListView2.firstSelected(); row > 0; row = ListView2.nextSelected(row)) rows.push_back(row);
    const int current = mListView::GetSelectedIndex(lvCItems);
    set_.removeSamples(rows);
    set_.setUnchanged(false);

    // What is left keeps its current item; a removed one leaves none, as its picture is no longer of the set.
    const auto before = std::lower_bound(rows.begin(), rows.end(), current);
    const bool removed = before != rows.end() && *before == current;
    mListView::UnselectAll(ListView2);
    mListView::UnselectAll(lvCItems);
    samplesChanged();
    if (current == 0 || removed) return;
    shownRow_ = current - static_cast<int>(before - rows.begin());
    lvCItems.selectOnly(shownRow_);
}

void frmStich::btnRA_Click() {
    set_.removeAllSamples();
    mListView::UnselectAll(ListView2);
    mListView::UnselectAll(lvCItems);
    samplesChanged();
}

void frmStich::chkDouble_Click() {
    set_.setDoubleSelection(chkDouble.checked());
    if (chkDouble.checked() || set_.sampleCount() == 0) return;
    if (set_.removeDuplicates() > 0) {
        mListView::UnselectAll(ListView2);
        mListView::UnselectAll(lvCItems);
    }
    samplesChanged();
}

void frmStich::samplesChanged() {
    shownRow_ = 0;
    NumberItems();
    SetItemCount(set_.sampleCount());
}

}  // namespace editor
