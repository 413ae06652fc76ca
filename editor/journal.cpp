#include "editor/journal.h"

#include <atomic>
#include <exception>

namespace editor {

namespace {

constexpr int pauseAfterFailure = 15;  // calls
constexpr int patience = 3000;         // milliseconds, for a disk that does not answer

bool equal(const RegionRect& a, const RegionRect& b) {
    return a.X == b.X && a.Y == b.Y && a.dX == b.dX && a.dY == b.dY;
}

void waitFor(const std::unique_ptr<platform::BackgroundTask>& task) {
    try {
        if (task) task->wait(patience);
    } catch (const std::exception&) {  // nobody needs what it wrote any more
    }
}

}  // namespace

/// The window touches these only while nothing is being written.
struct Journal::Files {
    std::unique_ptr<JournalFile> own;
    std::vector<std::unique_ptr<JournalFile>> older;  // needed until the own one holds all of them
    std::atomic<bool> oneArrived{false};

    void removeOlder() {
        for (const auto& journal : older) journal->remove();
        older.clear();
    }
    void remove() {
        if (own) own->remove();
        own.reset();
        removeOlder();
    }
};

/// The end of a writing and the decision to forget come in any order; whoever comes second removes the files.
class Journal::Arrival {
  public:
    explicit Arrival(std::shared_ptr<Files> files) : files_(std::move(files)) {}
    ~Arrival() {
        if (files_->oneArrived.exchange(true)) files_->remove();
    }
    Arrival(const Arrival&) = delete;
    Arrival& operator=(const Arrival&) = delete;
    Files* operator->() const { return files_.get(); }

  private:
    std::shared_ptr<Files> files_;
};

Journal::~Journal() {
    waitFor(lastWriting_);
    waitFor(writing_);
}

void Journal::keep(OpenSet& set, const std::vector<RegionRect>& rectangles, const SetFile& file) {
    if (isWriting()) return;
    if (set.unchanged() || set.sampleCount() == 0 || folder_.empty()) {
        set.forgetLabels();
        return forget();
    }
    if (pause_ > 0 && --pause_ > 0) return;
    try {
        write(set, rectangles, file);
    } catch (const std::exception& failure) {
        failed(failure.what());
    }
}

bool Journal::isWriting() {
    if (!writing_) return false;
    try {
        if (!writing_->wait(0)) return true;
        problem_.clear();
    } catch (const std::exception& failure) {
        failed(failure.what());
    }
    writing_.reset();
    return false;
}

// What was written last may be cut off: no more is added to it, and it is needed until all is there anew.
void Journal::failed(const std::string& reason) {
    problem_ = "Nicht gespeicherte Änderungen können zur Zeit nicht gesichert werden. " + reason;
    pause_ = pauseAfterFailure;
    keptEdits_.reset();
    if (!files_ || !files_->own) return;
    if (files_->own->holdsCopy())
        files_->older.push_back(std::move(files_->own));
    else
        files_->own->remove();
    files_->own.reset();
}

void Journal::write(OpenSet& set, const std::vector<RegionRect>& rectangles, const SetFile& file) {
    if (!files_) files_ = std::make_shared<Files>();
    for (auto& left : taken_) files_->older.push_back(std::move(left));
    taken_.clear();
    if (set.edits() != keptEdits_ || rectangles.size() != keptRectangles_.size()) {
        writeCopy(set, rectangles, file);
    } else {
        std::vector<JournalFile::MovedRegion> moved;
        for (std::size_t i = 0; i < rectangles.size(); ++i) {
            if (!equal(rectangles[i], keptRectangles_[i]))
                moved.emplace_back(static_cast<int>(i + 1), rectangles[i]);
        }
        if (set.labels().empty() && moved.empty()) return;
        files_->oneArrived = false;
        writing_ =
            std::make_unique<platform::BackgroundTask>([files = files_, labels = set.labels(), moved](auto&) {
                const Arrival own(files);
                own->own->writeChanges(labels, moved);
            });
    }
    keptEdits_ = set.edits();
    keptRectangles_ = rectangles;
    set.forgetLabels();
}

void Journal::writeCopy(const OpenSet& set, const std::vector<RegionRect>& rectangles, const SetFile& file) {
    files_->oneArrived = false;
    writing_ = std::make_unique<platform::BackgroundTask>([files = files_, folder = folder_,
                                                           copy = std::make_shared<const OpenSet>(set),
                                                           rectangles, file](auto&) {
        const Arrival own(files);
        if (!own->own) own->own = JournalFile::create(folder, file);
        own->own->writeCopy(*copy, rectangles);
        own->removeOlder();
    });
}

void Journal::forget() {
    keptEdits_.reset();
    pause_ = 0;
    problem_.clear();
    for (const auto& left : taken_) left->remove();
    taken_.clear();
    if (!files_) return;
    if (!writing_) {
        files_->remove();
    } else {
        const Arrival second(files_);
        waitFor(lastWriting_);
        lastWriting_ = std::move(writing_);
    }
    files_.reset();
}

void Journal::takeOver(std::unique_ptr<JournalFile> left) {
    taken_.push_back(std::move(left));
}

}  // namespace editor
