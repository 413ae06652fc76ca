// Making a set from files: the folder that is browsed and the pictures that come from it.
#include <algorithm>
#include <numeric>
#include <utility>

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
    if (!folder.empty()) browseChosen(folder);
}

void frmStich::browseChosen(const std::string& folder) {
    const platform::application::WaitCursor wait;
    if (readFolder(folder) && cboSets.text().empty()) {
        cboSets.setText(path::fileName(path::normalise(folder)));
        cboSets_Change();
    }
}

void frmStich::browse(const std::string& directory) {
    if (platform::files::directoryExists(directory)) readFolder(directory);
}

bool frmStich::readFolder(const std::string& folder) {
    const auto found = std::make_shared<std::vector<platform::files::Entry>>();
    platform::BackgroundTask task([found, folder, pattern = Datei1.pattern()](auto& progress) {
        *found = FileListBox::read(folder, pattern, [&progress](std::size_t entries) {
            progress.done = static_cast<int>(entries);
            return !progress.cancelled;
        });
    });
    if (!waitFor("Das Verzeichnis wird gelesen ...", task)) return false;
    Datei1.setPath(folder, std::move(*found));
    return true;
}

void frmStich::Datei1_PathChange() {
    txtPath.setText(CheckPath(Datei1.path()));
    txtPath.setToolTip(txtPath.text());  // it may be longer than the box
    sourceFiles_ = Datei1.files();
    showSourceFiles();
}

void frmStich::showSourceFiles() {
    mListView::UnselectAll(ListView1);
    ListView1.setCount(static_cast<int>(sourceFiles_.size()));
}

// One direction for all columns, which each click turns round.
void frmStich::ListView1_ColumnClick(int column) {
    const platform::application::WaitCursor wait;
    using platform::files::Entry;
    const auto before = [column](const Entry& a, const Entry& b) {
        if (column == sizeColumn && a.size != b.size) return a.size < b.size;
        if (column == dateColumn && a.modified != b.modified) return a.modified < b.modified;
        return platform::text::compareNatural(a.name, b.name) < 0;
    };
    sortDescending_ = !sortDescending_;
    std::vector<int> order(sourceFiles_.size());  // the old place of each row
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&](int a, int b) {
        if (sortDescending_) std::swap(a, b);
        return before(sourceFiles_[static_cast<std::size_t>(a)], sourceFiles_[static_cast<std::size_t>(b)]);
    });
    arrangeSourceFiles(order);
}

// What was selected still is, wherever it stands now.
void frmStich::arrangeSourceFiles(const std::vector<int>& order) {
    const int selected = ListView1.selectedCount();
    const bool all = selected == ListView1.count();  // thousands of rows, one by one, take their time
    std::vector<platform::files::Entry> arranged;
    std::vector<int> rows;
    for (const int place : order) {
        arranged.push_back(std::move(sourceFiles_[static_cast<std::size_t>(place)]));
        if (!all && selected > 0 && ListView1.selected(place + 1))
            rows.push_back(static_cast<int>(arranged.size()));
    }
    sourceFiles_ = std::move(arranged);
    showSourceFiles();
    if (all) ListView1.selectAll();
    for (const int row : rows) ListView1.select(row);
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
    // What chkDouble shows, too; asking the box for every file would take ten times as long as the rest.
    return set_.doubleSelection() ? -1 : set_.findSample(file);
}

void frmStich::addSamples(std::size_t count, const std::function<SampleFile(std::size_t)>& file) {
    const bool wasEmpty = set_.sampleCount() == 0;
    set_.reserveSamples(static_cast<std::size_t>(set_.sampleCount()) + count);
    for (std::size_t i = 0; i < count; ++i) {
        const auto [directory, name] = file(i);
        const bool isThere = !set_.doubleSelection() && set_.findSample(directory, name) != -1;
        if (!isThere) set_.addSample(directory, name);
    }
    set_.setUnchanged(false);
    NumberItems();
    SetItemCount(set_.sampleCount());
    if (wasEmpty && set_.sampleCount() > 0) GoToItem(1);
}

void frmStich::btn_Click() {
    const std::vector<int> rows = mListView::SelectedRows(ListView1);
    const std::string directory = path::normalise(txtPath.text());
    addSamples(rows.size(), [&](std::size_t i) -> SampleFile {
        return {directory, sourceFiles_[static_cast<std::size_t>(rows[i] - 1)].name};
    });
}

void frmStich::btn_A_Click() {
    const std::string directory = path::normalise(txtPath.text());
    addSamples(sourceFiles_.size(), [&](std::size_t i) -> SampleFile {
        return {directory, sourceFiles_[i].name};
    });
}

void frmStich::btnR_Click() {
    removeSamples(mListView::SelectedRows(ListView2));
    set_.setUnchanged(false);
}

// What is left keeps its current item; a removed one leaves none, as its picture is no longer of the set.
void frmStich::removeSamples(const std::vector<int>& rows) {
    const auto afterwards = [&rows](int row) {
        const auto place = std::lower_bound(rows.begin(), rows.end(), row);
        const bool goes = place != rows.end() && *place == row;
        return row == 0 || goes ? 0 : row - static_cast<int>(place - rows.begin());
    };
    const int current = afterwards(mListView::GetSelectedIndex(lvCItems));
    set_.removeSamples(rows);
    NumberItems();
    mListView::UnselectAll(ListView2);
    mListView::UnselectAll(lvCItems);
    SetItemCount(set_.sampleCount());

    shownRow_ = afterwards(shownRow_);
    if (current == 0) return;
    lvCItems.selectOnly(current);
    // Its picture was still on its way, to a row that is another one now.
    if (current != shownRow_) GoToItem(current);
}

void frmStich::btnRA_Click() {
    std::vector<int> rows(static_cast<std::size_t>(set_.sampleCount()));
    std::iota(rows.begin(), rows.end(), 1);
    removeSamples(rows);
}

void frmStich::chkDouble_Click() {
    set_.setDoubleSelection(chkDouble.checked());
    if (!chkDouble.checked()) removeSamples(set_.duplicates());
}

}  // namespace editor
