// Opening a set file, and what becomes of pictures that are not where it says.
#include <algorithm>
#include <exception>
#include <new>

#include "editor/frmStich.h"
#include "editor/mListView.h"
#include "platform/dialogs.h"
#include "platform/errors.h"

namespace editor {

namespace message = platform::message;

namespace {

/// What is read beside the window; the thread that reads holds it, too.
struct Reading {
    LoadedSet loaded;
    std::vector<int> missing;
};

}  // namespace

std::int16_t frmStich::LoadFile(const std::string& path) {
    const auto reading = std::make_shared<Reading>();
    try {
        platform::BackgroundTask task(
            [reading, path, base = dataDirectory_, fileNames = environment_.fileNames](auto& progress) {
                reading->loaded = readSet(path, base);
                reading->missing = missingSamples(reading->loaded.set, fileNames, progress);
            });
        if (!waitFor("Die Stichprobe wird gelesen und ihre Bilder gesucht ...", task))
            return shell::notOpened;
    } catch (const std::bad_alloc&) {
        say("Die Stichprobe kann nicht geöffnet werden.\r\nDer Arbeitsspeicher reicht nicht aus.",
            message::exclamation);
        return shell::notOpened;
    } catch (const std::exception& failure) {
        say("Die Stichprobe kann nicht geöffnet werden.\r\n" + std::string(failure.what()),
            message::exclamation);
        return shell::notOpened;
    }
    return accept(std::move(reading->loaded), reading->missing);
}

std::int16_t frmStich::accept(LoadedSet loaded, const std::vector<int>& missing) {
    const auto previousRectangles = rectangles();
    const int previousRow = mListView::GetSelectedIndex(lvCItems);
    const int previousRegion = cboROI.listIndex();
    OpenSet previous = std::move(set_);

    takeOver(std::move(loaded.set), loaded.rectangles);
    if (loaded.strayAssignments > 0) set_.setUnchanged(false);
    listMissing(missing);
    const std::int16_t result = CheckItems();
    if (result == shell::notOpened) {
        takeOver(std::move(previous), previousRectangles);
        cboROI.setListIndex(previousRegion);
        if (previousRow > 0) GoToItem(previousRow);
        return result;
    }
    if (loaded.strayAssignments > 0) tellStray(loaded.strayAssignments);
    if (result == shell::frmError::closed) showFirstItem();
    return result;
}

void frmStich::tellStray(int count) {
    say("Die Stichprobe ordnet " + (count == 1 ? std::string("einmal") : std::to_string(count) + " mal") +
            " eine Klasse zu, die es nicht gibt. Dort gilt jetzt die Standardklasse.",
        message::exclamation);
}

void frmStich::listMissing(const std::vector<int>& rows) {
    for (const int row : rows) {
        if (!frmError_) {
            frmError_ = std::make_unique<shell::frmError>(form, registry_, environment_);
            frmError_->onFound = [this](int position, const std::string& directory) {
                set_.movedTo(position, directory);
            };
        }
        frmError_->add(row, set_.samplePath(row));
    }
}

std::int16_t frmStich::CheckItems() {
    if (!frmError_) return shell::frmError::closed;
    Timer2.setEnabled(false);  // the set is not accepted yet
    frmError_->showModal();
    // Until here the dialog is needed, even if this window was closed behind it.
    const auto dialog = std::move(frmError_);
    if (!form.loaded()) return shell::notOpened;
    Timer2.setEnabled(showRuns_);

    const auto state = static_cast<std::int16_t>(dialog->ExitState());
    ListView2.redrawAll();
    lvCItems.redrawAll();
    if (state == shell::frmError::removeRest) dropMissing(dialog->missing());
    if (state == shell::frmError::removeRest || state == shell::frmError::foundAll) {
        showFirstItem();
        if (set_.sampleCount() == 0) removeAllRegions();
    }
    return state;
}

void frmStich::removeAllRegions() {
    while (set_.regionCount() > 0) {
        lvROIs.selectOnly(1);
        btnROIDel_Click();
    }
}

void frmStich::dropMissing(const std::vector<shell::frmError::Missing>& missing) {
    mListView::UnselectAll(ListView2);
    std::for_each(missing.rbegin(), missing.rend(),
                  [&](const auto& file) { ListView2.select(file.position); });
    btnR_Click();
}

void frmStich::takeOver(OpenSet set, const std::vector<RegionRect>& rects) {
    // No list may ask for a row of the former set meanwhile.
    for (platform::ListView* list : {&ListView2, &lvCItems, &lvCClasses, &lvROIs}) list->setCount(0);
    set_ = std::move(set);
    shownRow_ = 0;
    mListView::UnselectAll(ListView2);
    mListView::UnselectAll(lvCItems);
    chkDouble.setChecked(set_.doubleSelection());
    showClasses();
    kvPictureBox1.ROI_Clear();
    for (const RegionRect& r : rects) kvPictureBox1.ROI_Load(r.X, r.Y, r.dX, r.dY);
    showRegions();
    NumberItems();
    SetItemCount(set_.sampleCount());
}

void frmStich::showFirstItem() {
    if (set_.sampleCount() > 0) GoToItem(1);
}

}  // namespace editor
