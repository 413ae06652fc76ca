#include "editor/file_list_box.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "platform/path.h"
#include "platform/text.h"

namespace editor {

namespace {

namespace text = platform::text;
using platform::files::Entry;

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

bool endsWithOne(std::string_view name, const std::vector<std::string>& wanted) {
    const std::string_view ending = name.substr(std::min(name.rfind('.'), name.size()));
    const auto isEnding = [&](const std::string& one) { return text::equalNoCase(one, ending); };
    return wanted.empty() || std::any_of(wanted.begin(), wanted.end(), isEnding);
}

std::vector<Entry> sorted(std::vector<Entry> files) {
    std::vector<std::string_view> names;
    for (const Entry& file : files) names.push_back(file.name);
    std::vector<Entry> result;
    result.reserve(files.size());
    for (const std::uint32_t place : text::naturalOrder(names)) result.push_back(std::move(files[place]));
    return result;
}

}  // namespace

std::vector<platform::files::Entry> FileListBox::read(const std::string& path, const std::string& pattern,
                                                      const platform::files::Continue& goOn) {
    const auto wanted = endings(pattern);
    auto found = platform::files::list(path, goOn);
    std::erase_if(found,
                  [&](const Entry& entry) { return entry.isDirectory || !endsWithOne(entry.name, wanted); });
    return sorted(std::move(found));
}

bool FileListBox::matches(std::string_view name, const std::string& pattern) {
    return endsWithOne(name, endings(pattern));
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
