#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "editor/open_set.h"
#include "platform/background_task.h"
#include "platform/files.h"

namespace editor {

/// A set as it was read: the tables, the rectangles of its regions (region row k at k - 1), and what had to
/// be put right.
struct LoadedSet {
    OpenSet set;
    std::vector<RegionRect> rectangles;
    int strayAssignments = 0;  ///< that named a class outside the set and got the standard class
};

/// Reads a set file; relative picture paths are joined to `appPath`. RuntimeError, in German and saying
/// where, when the file cannot be read or understood; nothing half read comes out of it.
LoadedSet readSet(const std::string& fileName, const std::string& appPath);

/// The set as it stands in a set file, byte by byte; pictures below `appPath` are stored relative to it.
/// RuntimeError when a text has no place in it.
std::string setBytes(const std::string& appPath, const OpenSet& set,
                     const std::vector<RegionRect>& rectangles);

/// Writes them to the set file in one step. RuntimeError when it could not be written; an older file is then
/// still there, whole.
void writeSet(const std::string& fileName, const std::string& appPath, const OpenSet& set,
              const std::vector<RegionRect>& rectangles);

/// Names of the files of a directory, folded and sorted (platform::files::foldedFileNames).
using FileNames = std::function<std::vector<std::string>(std::string_view directory,
                                                         const platform::files::Continue& goOn)>;

/// The files of a set's samples, to be looked for beside the window, where the set itself may change
/// meanwhile.
class PictureFiles {
  public:
    PictureFiles() = default;
    explicit PictureFiles(const OpenSet& set);

    /// Rows of the samples whose files do not exist, ascending. Every directory is listed once. Tells the
    /// number of samples done; when it is cancelled the answer is worth nothing.
    std::vector<int> missing(const FileNames& fileNames, platform::BackgroundTask::Progress& progress) const;

  private:
    struct Directory {
        std::string path;
        std::vector<int> rows;            // ascending
        std::vector<std::uint32_t> ends;  // of their names in the text that holds all of them
        std::string names;

        void add(int row, std::string_view name);
        std::string_view name(std::size_t index) const;
        void findMissing(const std::vector<std::string>& there, std::vector<int>& missing) const;
    };
    std::vector<Directory> directories_;  // in the order in which they first appear
    int count_ = 0;
};

}  // namespace editor
