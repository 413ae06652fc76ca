#pragma once

#include <functional>
#include <string>
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

/// Writes the set file in one step; pictures below `appPath` are stored relative to it. RuntimeError when
/// it could not be written or a text has no place in it; an older file is then still there, whole.
void writeSet(const std::string& fileName, const std::string& appPath, const OpenSet& set,
              const std::vector<RegionRect>& rectangles);

/// Names of the files of a directory, folded and sorted (platform::files::foldedFileNames).
using FileNames = std::function<std::vector<std::string>(std::string_view directory,
                                                         const platform::files::Continue& goOn)>;
/// Rows of the samples whose files do not exist, ascending. Every directory is listed once. Tells the number
/// of samples done; when it is cancelled the answer is worth nothing.
std::vector<int> missingSamples(const OpenSet& set, const FileNames& fileNames,
                                platform::BackgroundTask::Progress& progress);

}  // namespace editor
