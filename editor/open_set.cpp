#include "editor/open_set.h"

#include <algorithm>
#include <functional>

#include "platform/path.h"
#include "platform/text.h"

namespace editor {

namespace {

template <class Rows>
int findName(const Rows& rows, std::string_view name, int except) {
    int row = 0;
    for (const auto& candidate : rows) {
        if (++row != except && platform::text::equalNoCase(candidate.name, name)) return row;
    }
    return 0;
}

std::size_t pathHash(std::string_view path) {
    return std::hash<std::string>{}(platform::text::foldCase(path));
}

/// Takes the elements at the given rows (ascending, from 1) out of a column in one pass.
template <class T>
void removeRows(std::vector<T>& column, const std::vector<int>& rows) {
    auto next = rows.begin();
    std::size_t kept = 0;
    for (std::size_t i = 0; i < column.size(); ++i) {
        if (next != rows.end() && static_cast<std::size_t>(*next) == i + 1) {
            ++next;
        } else if (kept++ != i) {
            column[kept - 1] = std::move(column[i]);
        }
    }
    column.resize(kept);
}

}  // namespace

std::string OpenSet::samplePath(int row) const {
    return platform::path::join(sampleDirectory(row), sampleName(row));
}

void OpenSet::reserveSamples(std::size_t count) {
    names_.reserve(count);
    directoryOf_.reserve(count);
    for (auto& column : classOf_) column.reserve(count);
}

std::uint32_t OpenSet::directoryNumber(std::string_view directory) {
    // Pictures of one folder follow each other: the last one's number is nearly always the answer.
    if (!directoryOf_.empty() && directories_[directoryOf_.back()] == directory) return directoryOf_.back();
    const auto [place, isNew] = directoryNumbers_.try_emplace(
        std::string(directory), static_cast<std::uint32_t>(directories_.size()));
    if (isNew) directories_.emplace_back(directory);
    return place->second;
}

int OpenSet::addSample(std::string_view directory, std::string_view name) {
    const std::uint32_t number = directoryNumber(directory);
    names_.emplace_back(name);
    directoryOf_.push_back(number);
    for (auto& column : classOf_) column.push_back(static_cast<std::int16_t>(standardClass_));
    unchanged_ = false;
    return sampleCount();
}

void OpenSet::removeSamples(const std::vector<int>& rows) {
    if (rows.empty()) return;
    removeRows(names_, rows);
    removeRows(directoryOf_, rows);
    for (auto& column : classOf_) removeRows(column, rows);
    forgetIndex();
    unchanged_ = false;
}

std::vector<int> OpenSet::duplicates() const {
    std::vector<int> later;
    for (int row = 1; row <= sampleCount(); ++row) {
        if (findSample(samplePath(row)) < row) later.push_back(row);
    }
    return later;
}

void OpenSet::movedTo(int row, std::string_view directory) {
    directoryOf_[at(row)] = directoryNumber(directory);
    forgetIndex();
    unchanged_ = false;
}

void OpenSet::assign(int row, int region, std::int16_t classIndex) {
    classOf_[static_cast<std::size_t>(region)][at(row)] = classIndex;
    unchanged_ = false;
}

void OpenSet::assignAll(int region, std::int16_t classIndex) {
    auto& column = classOf_[static_cast<std::size_t>(region)];
    std::fill(column.begin(), column.end(), classIndex);
    unchanged_ = false;
}

void OpenSet::forgetIndex() const {
    index_.clear();
    indexed_ = 0;
}

// Only the first row of a path: thousands of equal ones would all be compared for each look-up.
void OpenSet::indexSample(int row) const {
    const std::string path = samplePath(row);
    const auto [first, last] = index_.equal_range(pathHash(path));
    const bool isThere = std::any_of(first, last, [&](const auto& entry) {
        return platform::text::equalNoCase(samplePath(entry.second), path);
    });
    if (!isThere) index_.emplace(pathHash(path), row);
}

int OpenSet::findSample(std::string_view path) const {
    if (index_.empty()) index_.reserve(names_.size());
    while (indexed_ < sampleCount()) indexSample(++indexed_);
    const auto [first, last] = index_.equal_range(pathHash(path));
    const auto found = std::find_if(first, last, [&](const auto& entry) {
        return platform::text::equalNoCase(samplePath(entry.second), path);
    });
    return found == last ? -1 : found->second;
}

int OpenSet::findClass(std::string_view name, int except) const {
    return findName(classes_, name, except);
}
int OpenSet::findRegion(std::string_view name, int except) const {
    return findName(regions_, name, except);
}

void OpenSet::addClass(std::string_view name, std::string_view description) {
    classes_.push_back({std::string(name), std::string(description)});
    unchanged_ = false;
}

void OpenSet::renameClass(int row, std::string_view name) {
    classes_[at(row)].name = name;
    unchanged_ = false;
}

void OpenSet::describeClass(int row, std::string_view description) {
    classes_[at(row)].description = description;
    unchanged_ = false;
}

void OpenSet::removeClass(int row, int standardAfterwards) {
    const auto removed = static_cast<std::int16_t>(row - 1);
    const auto standard = static_cast<std::int16_t>(standardAfterwards);
    classes_.erase(classes_.begin() + removed);
    standardClass_ = standardAfterwards;
    for (auto& column : classOf_) {
        for (auto& value : column) {
            if (value == removed) {
                value = standard;
            } else if (value > removed) {
                --value;
            }
        }
    }
    unchanged_ = false;
}

void OpenSet::setStandardClass(int classIndex) {
    standardClass_ = classIndex;
    unchanged_ = false;
}

void OpenSet::addRegion(std::string_view name, std::string_view description) {
    regions_.push_back({std::string(name), std::string(description)});
    classOf_.emplace_back(names_.size(), std::int16_t{0});
    unchanged_ = false;
}

void OpenSet::renameRegion(int row, std::string_view name) {
    regions_[at(row)].name = name;
    unchanged_ = false;
}

void OpenSet::describeRegion(int row, std::string_view description) {
    regions_[at(row)].description = description;
    unchanged_ = false;
}

void OpenSet::removeRegion(int row) {
    regions_.erase(regions_.begin() + row - 1);
    classOf_.erase(classOf_.begin() + row);
    unchanged_ = false;
}

void OpenSet::setDoubleSelection(bool on) {
    doubleSelection_ = on;
    unchanged_ = false;
}

}  // namespace editor
