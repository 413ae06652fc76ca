#pragma once

#include <functional>
#include <string>
#include <string_view>
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
    /// Shows a folder whose files were read (`read`), and raises `onPathChange`.
    void setPath(const std::string& path, std::vector<platform::files::Entry> files);

    const std::string& pattern() const { return pattern_; }
    /// Reads the folder again and raises `onPatternChange`. RuntimeError pathNotFound.
    void setPattern(const std::string& pattern);

    /// The files of a folder that match a pattern. Touches no list box, so that it can be done elsewhere.
    /// RuntimeError pathNotFound.
    static std::vector<platform::files::Entry> read(const std::string& path, const std::string& pattern,
                                                    const platform::files::Continue& goOn = {});

    /// Whether a file of that name is one of them.
    static bool matches(std::string_view name, const std::string& pattern);

    const std::vector<platform::files::Entry>& files() const { return files_; }

    std::function<void()> onPathChange;
    std::function<void()> onPatternChange;

  private:
    std::string path_;
    std::string pattern_;
    std::vector<platform::files::Entry> files_;
};

}  // namespace editor
