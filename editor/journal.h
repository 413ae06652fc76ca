#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "editor/journal_file.h"
#include "platform/background_task.h"

namespace editor {

/// Keeps the changes of the open set that are not saved yet, so that a crash of the program takes no more
/// than the last few seconds. What is kept goes when the changes are saved or given up; what is there when
/// this object goes without that, stays.
///
/// Single labels and moved regions are added to a log, everything else makes another copy of the set. All
/// writing is done beside the window.
class Journal {
  public:
    /// An empty folder keeps nothing.
    explicit Journal(std::string folder) : folder_(std::move(folder)) {}
    ~Journal();
    Journal(const Journal&) = delete;
    Journal& operator=(const Journal&) = delete;

    /// Brings the journal up to date. To be called every few seconds: what it begins is finished by a later
    /// call. A set that is unchanged, or has no samples, has no journal.
    void keep(OpenSet& set, const std::vector<RegionRect>& rectangles, const SetFile& file);
    /// Why nothing can be kept now, in German; empty while all is well.
    const std::string& problem() const { return problem_; }
    /// Whether a call of `keep` has begun what is not finished yet.
    bool isWriting();
    /// The changes are saved or given up, or another set is open.
    void forget();
    /// What was left and has been brought into the open set; it goes as soon as this journal holds it itself.
    void takeOver(std::unique_ptr<JournalFile> left);

  private:
    struct Files;
    class Arrival;

    void write(OpenSet& set, const std::vector<RegionRect>& rectangles, const SetFile& file);
    void writeCopy(const OpenSet& set, const std::vector<RegionRect>& rectangles, const SetFile& file);
    void failed(const std::string& reason);

    std::string folder_;
    std::shared_ptr<Files> files_;  // shared with the writing
    std::unique_ptr<platform::BackgroundTask> writing_, lastWriting_;
    std::vector<std::unique_ptr<JournalFile>> taken_;  // until nothing is being written
    std::optional<std::uint64_t> keptEdits_;  // of the set that was copied last
    std::vector<RegionRect> keptRectangles_;
    std::string problem_;
    int pause_ = 0;  // calls until the next attempt
};

}  // namespace editor
