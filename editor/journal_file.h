#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "editor/open_set.h"
#include "editor/set_file.h"
#include "platform/files.h"
#include "platform/own_file.h"

namespace editor {

/// One journal on the disk: a copy of a set, which is a set file with whole paths, and a log of what was
/// changed since. The log is a text of lines; the line of a copy is written once the copy is whole, and takes
/// back all lines before it. A log that ends in the middle of a line counts up to there.
///
/// As long as this object or its process lives, the journal is nobody else's.
class JournalFile {
  public:
    using MovedRegion = std::pair<int, RegionRect>;  ///< row in the region table and where it is now

    /// A new one. RuntimeError fileError.
    static std::unique_ptr<JournalFile> create(const std::string& folder, const SetFile& file);
    /// Those that were left, the latest first; the ones in which nothing whole was kept are removed.
    static std::vector<std::unique_ptr<JournalFile>> left(const std::string& folder);

    /// Each ends on the disk or throws RuntimeError; after that this journal takes nothing more.
    void writeCopy(const OpenSet& set, const std::vector<RegionRect>& rectangles);
    void writeChanges(const std::vector<OpenSet::Label>& labels, const std::vector<MovedRegion>& regions);

    /// Whether there is anything in it that could be given back.
    bool holdsCopy() const { return copies_ > 0; }

    // Of one that was left.
    bool isUnderstood() const { return log_.problem.empty(); }
    const SetFile& file() const { return log_.file; }
    std::int64_t written() const { return written_; }  ///< seconds since 1970-01-01 UTC
    /// The set as it was at last, with changes to be saved. RuntimeError, in German, when it is not
    /// understood as a whole.
    LoadedSet read() const;
    /// Keeps it under another name, which is returned, and nobody finds it again. RuntimeError.
    std::string setAside();

    /// What cannot be removed stays.
    void remove();

  private:
    struct Log {
        SetFile file;
        int copy = 0;  // number of the one that counts
        std::vector<OpenSet::Label> labels;
        std::vector<MovedRegion> regions;
        std::string problem;

        static Log parse(const std::string& text, const std::string& fileName);
        bool take(std::string_view line);
    };

    JournalFile(std::string base, std::unique_ptr<platform::OwnFile> own)
        : base_(std::move(base)), own_(std::move(own)) {}
    static std::unique_ptr<JournalFile> openLeft(const std::string& base);
    static void removeOrphans(const std::string& folder, const std::vector<platform::files::Entry>& entries);
    std::string logFile() const;
    std::string copyFile(int number) const;

    std::string base_;  // path without its ending
    std::unique_ptr<platform::OwnFile> own_;
    int copies_ = 0;
    std::int64_t written_ = 0;
    Log log_;
};

}  // namespace editor
