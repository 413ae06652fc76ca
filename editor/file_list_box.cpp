#include "editor/file_list_box.h"

#include <algorithm>

#include "platform/path.h"
#include "platform/text.h"

namespace editor {

namespace {

namespace text = platform::text;

/// Endings of a pattern, folded, with their dots; none stands for every ending.
std::vector<std::string> endings(const std::string& pattern) {
    std::vector<std::string> result;
    for (std::size_t start = 0; start <= pattern.size();) {
        const std::size_t end = std::min(pattern.find(';', start), pattern.size());
        const std::string one = pattern.substr(start, end - start);
        if (one == "*.*") return {};
        result.push_back(text::foldCase(platform::path::extension(one)));
        start = end + 1;
    }
    return result;
}

}  // namespace

std::vector<platform::files::Entry> FileListBox::read(const std::string& path, const std::string& pattern,
                                                      const platform::files::Continue& goOn) {
    const auto wanted = endings(pattern);
    auto found = platform::files::list(path, goOn);
    std::erase_if(found, [&](const platform::files::Entry& entry) {
        if (entry.isDirectory) return true;
        const std::string ending = text::foldCase(platform::path::extension(entry.name));
        return !wanted.empty() && std::find(wanted.begin(), wanted.end(), ending) == wanted.end();
    });
    std::sort(found.begin(), found.end(),
              [](const auto& a, const auto& b) { return text::compareNatural(a.name, b.name) < 0; });
    return found;
}

void FileListBox::setPath(const std::string& path, std::vector<platform::files::Entry> files) {
    files_ = std::move(files);
    path_ = path;
    if (onPathChange) onPathChange();
}

void FileListBox::setPattern(const std::string& pattern) {
    if (!path_.empty()) files_ = read(path_, pattern);
    pattern_ = pattern;
    if (onPatternChange) onPatternChange();
}

}  // namespace editor
