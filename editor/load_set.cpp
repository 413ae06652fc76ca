// Opening a set file, and what becomes of pictures that are not where it says.
#include <algorithm>
#include <exception>
#include <memory>
#include <new>

#include "editor/frmStich.h"
#include "editor/mListView.h"
#include "editor/reading.h"
#include "platform/application.h"
#include "platform/dialogs.h"
#include "platform/errors.h"
#include "platform/flagged.h"

namespace editor {

namespace message = platform::message;

namespace {

constexpr const char* readingSet = "Die Stichprobe wird gelesen und ihre Bilder gesucht ...";

/// Whether it is known at once that the file is there: a share may not answer.
bool isThereAtOnce(const std::string& file) {
    constexpr int patience = 300;  // in milliseconds
    const auto isThere = std::make_shared<bool>(false);
    platform::BackgroundTask look([=](auto&) { *isThere = platform::files::fileExists(file); });
    return look.wait(patience) && *isThere;
}

}  // namespace

bool frmStich::readBeside(const std::shared_ptr<Reading>& reading,
                          const std::function<void(Reading&)>& read) {
    platform::BackgroundTask task([reading, read](auto&) {
        read(*reading);
        reading->pictures = PictureFiles(reading->loaded.set);
    });
    return waitFor(readingSet, task);
}

std::int16_t frmStich::LoadFile(const std::string& path) {
    if (auto left = offeredFor(path)) {
        if (const auto result = restore(std::move(left))) return *result;
    }
    const auto reading = std::make_shared<Reading>();
    reading->file.path = path;
    try {
        const auto read = [base = dataDirectory_](Reading& it) { it.loaded = it.file.read(base); };
        if (!readBeside(reading, read)) return shell::notOpened;
    } catch (const std::bad_alloc&) {
        say("Die Stichprobe kann nicht geöffnet werden.\r\nDer Arbeitsspeicher reicht nicht aus.",
            message::exclamation);
        return shell::notOpened;
    } catch (const std::exception& failure) {
        say("Die Stichprobe kann nicht geöffnet werden.\r\n" + std::string(failure.what()),
            message::exclamation);
        return shell::notOpened;
    }
    return accept(*reading);
}

std::int16_t frmStich::accept(Reading& reading) {
    const platform::Flagged accepting(accepting_);
    LoadedSet& loaded = reading.loaded;
    const std::string previousPicture = kvPictureBox1.FileName();
    const auto previousRectangles = rectangles();
    const int previousRow = mListView::GetSelectedIndex(lvCItems);
    const int previousRegion = cboROI.listIndex();
    OpenSet previous = std::move(set_);

    std::int16_t result = shell::notOpened;
    // Whatever happens, it is one set or the other.
    platform::application::guard([&] {
        takeOver(std::move(loaded.set), loaded.rectangles);
        if (loaded.strayAssignments > 0) set_.setUnchanged(false);
        if (lookForPictures(reading.pictures)) result = CheckItems();
    });
    if (result == shell::notOpened) {
        frmError_.reset();
        takeOver(std::move(previous), previousRectangles);
        cboROI.setListIndex(previousRegion);
        if (previousRow > 0)
            GoToItem(previousRow);
        else
            putPictureBack(previousPicture);
        return result;
    }
    journal_.forget();  // saved or given up
    openFile_ = reading.file;
    if (loaded.strayAssignments > 0) tellStray(loaded.strayAssignments);
    if (result == shell::frmError::closed && shownRow_ == 0) showFirstItem();
    return result;
}

// In a large folder this takes long: meanwhile the first picture is shown. False when the user gave up.
bool frmStich::lookForPictures(const PictureFiles& files) {
    waitGivenUp_ = false;
    const platform::Flagged searching(searching_);
    const auto missing = std::make_shared<std::vector<int>>();
    platform::BackgroundTask search([missing, files, fileNames = environment_.fileNames](auto& progress) {
        *missing = files.missing(fileNames, progress);
    });
    Timer2.setEnabled(false);
    bool searched = false;
    platform::application::guard([&] {
        showFirstMeanwhile();
        searched = waitFor(readingSet, search) && form.loaded();
    });
    if (form.loaded()) Timer2.setEnabled(showRuns_);
    if (searched) listMissing(*missing);
    return searched;
}

// The set is not accepted yet: what the user did with the window meanwhile was meant for the one before.
void frmStich::showFirstMeanwhile() {
    if (set_.sampleCount() == 0 || !isThereAtOnce(ItemPath(1))) return;
    platform::application::doEventsFor(fraWait);
    GoToItem(1);
    form.update();
}

// No item was chosen: either a file of the source directory was seen, or nothing yet.
void frmStich::putPictureBack(const std::string& file) {
    if (!file.empty()) {
        showPicture(file);
    } else if (!kvPictureBox1.FileName().empty()) {
        kvPictureBox1.FileName("");
        kvPictureBox1.Picture(nullptr);
        kvPictureBox1.Refresh();
        SetPicSize(0, 0, 0, 0);
        shownFile_.clear();
    }
    ShowInfoLine();
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
