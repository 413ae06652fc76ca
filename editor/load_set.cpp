// Opening a set file, and what becomes of pictures that are not where it says.
#include <algorithm>

#include "editor/frmStich.h"
#include "editor/mListView.h"
#include "editor/set_io.h"
#include "model/set_file_names.h"
#include "platform/dialogs.h"
#include "platform/errors.h"

namespace editor {

namespace message = platform::message;

std::int16_t frmStich::LoadFile(const std::string& path) {
    LoadedSet loaded;
    try {
        loaded = readSet(path, dataDirectory_);
    } catch (const platform::RuntimeError& failure) {
        say("Die Stichprobe kann nicht geöffnet werden.\r\n" + failure.description(), message::exclamation);
        return shell::notOpened;
    }
    OpenSet previous = std::move(set_);
    const auto previousRectangles = rectangles();
    const int previousRow = mListView::GetSelectedIndex(lvCItems);

    takeOver(std::move(loaded.set), loaded.rectangles);
    listMissing();
    const std::int16_t result = CheckItems();
    if (result == shell::notOpened) {
        takeOver(std::move(previous), previousRectangles);
        if (previousRow > 0) GoToItem(previousRow);
        return result;
    }
    if (frmError_) frmError_.reset();
    if (result == shell::frmError::closed) showFirstItem();
    if (loaded.strayAssignments > 0) {
        say("Die Stichprobe ordnet " + std::to_string(loaded.strayAssignments) +
                " mal eine Klasse zu, die es nicht gibt. Dort gilt jetzt die Standardklasse.",
            message::exclamation);
        set_.setUnchanged(false);
    }
    return result;
}

void frmStich::listMissing() {
    for (const int row : missingSamples(set_)) {
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
    frmError_->showModal();
    const auto state = frmError_->ExitState();
    if (state == shell::frmError::cancelled) frmError_.reset();
    if (state == shell::frmError::removeRest) removeMissing();
    if (state == shell::frmError::removeRest || state == shell::frmError::foundAll) {
        ListView2.redrawAll();
        lvCItems.redrawAll();
        if (set_.sampleCount() > 0) {
            showFirstItem();
        } else {
            while (set_.regionCount() > 0) {
                lvROIs.selectOnly(1);
                btnROIDel_Click();
            }
        }
        frmError_.reset();
    }
    return static_cast<std::int16_t>(state);
}

void frmStich::removeMissing() {
    mListView::UnselectAll(ListView2);
    const auto& missing = frmError_->missing();
    std::for_each(missing.rbegin(), missing.rend(),
                  [&](const auto& file) { ListView2.select(file.position); });
    btnR_Click();
}

void frmStich::takeOver(OpenSet set, const std::vector<RegionRect>& rects) {
    set_ = std::move(set);
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
