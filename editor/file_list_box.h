#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/files.h"

namespace editor {

/// The files of one folder that match a pattern, in natural order of their names. It has no picture of its
/// own: whoever shows the files listens to its events.
class FileListBox {
  public:
    /// "*.bmp;*.jpg" and the like: endings only, case does not count; "*.*" takes all.
    explicit FileListBox(std::string pattern) : pattern_(std::move(pattern)) {}

    const std::string& path() const { return path_; }
    /// Lists the folder and raises `onPathChange`. RuntimeError pathNotFound leaves everything as it was.
    void setPath(const std::string& path);

    const std::string& pattern() const { return pattern_; }
    void setPattern(const std::string& pattern);  ///< raises `onPatternChange`

    const std::vector<platform::files::Entry>& files() const { return files_; }

    std::function<void()> onPathChange;
    std::function<void()> onPatternChange;

  private:
    std::vector<platform::files::Entry> read(const std::string& path) const;
    std::string path_;
    std::string pattern_;
    std::vector<platform::files::Entry> files_;
};

}  // namespace editor
