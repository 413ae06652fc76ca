#include "editor/open_set.h"

#include <algorithm>

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

/// A directory without the separators at its end, which make no difference to a path.
std::string_view bare(std::string_view directory) {
    while (!directory.empty() && (directory.back() == '\\' || directory.back() == '/'))
        directory.remove_suffix(1);
    return directory;
}

/// Equal for texts that differ in case only.
std::uint32_t foldedHash(std::string_view text) {
    const bool ascii = platform::text::isAscii(text);
    const std::string folded = ascii ? std::string() : platform::text::foldCase(text);
    std::uint32_t hash = 2166136261;
    for (const char c : ascii ? text : folded) {
        const bool capital = c >= 'A' && c <= 'Z';
        hash = (hash ^ static_cast<unsigned char>(capital ? c + 32 : c)) * 16777619;
    }
    return hash;
}

/// Neighbours nearly always lie in one directory: its own hash is not to be made anew for each.
class PathHash {
  public:
    std::uint32_t of(std::string_view directory, std::string_view name) {
        if (directory != directory_) {
            directory_ = directory;
            directoryHash_ = foldedHash(bare(directory)) * 31;
        }
        const std::uint32_t mixed = directoryHash_ + foldedHash(name);
        return mixed ^ mixed >> 15;
    }

  private:
    std::string_view directory_;
    std::uint32_t directoryHash_ = foldedHash({}) * 31;
};

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
    const auto standard = static_cast<std::int16_t>(standardClass_);
    for (auto& column : classOf_) column.push_back(standard);
    for (auto& counts : samplesOf_) count(counts, standard, 1);
    changed();
    return sampleCount();
}

void OpenSet::removeSamples(const std::vector<int>& rows) {
    if (rows.empty()) return;
    removeRows(names_, rows);
    removeRows(directoryOf_, rows);
    for (std::size_t region = 0; region < classOf_.size(); ++region) {
        auto& column = classOf_[region];
        for (const int row : rows) count(samplesOf_[region], column[at(row)], -1);
        removeRows(column, rows);
    }
    forgetIndex();
    changed();
}

std::vector<int> OpenSet::duplicates() const {
    std::vector<int> later;
    for (int row = 1; row <= sampleCount(); ++row) {
        if (findSample(sampleDirectory(row), sampleName(row)) < row) later.push_back(row);
    }
    return later;
}

void OpenSet::movedTo(int row, std::string_view directory) {
    directoryOf_[at(row)] = directoryNumber(directory);
    forgetIndex();
    changed();
}

void OpenSet::count(Counts& counts, std::int16_t classIndex, int samples) {
    const auto place = static_cast<std::size_t>(classIndex);
    if (place >= counts.size()) counts.resize(place + 1);
    counts[place] += samples;
}

void OpenSet::setClass(int row, int region, std::int16_t classIndex) {
    std::int16_t& stored = classOf_[static_cast<std::size_t>(region)][at(row)];
    Counts& counts = samplesOf_[static_cast<std::size_t>(region)];
    count(counts, classIndex, 1);  // first what may fail
    count(counts, stored, -1);
    stored = classIndex;
}

void OpenSet::assign(int row, int region, std::int16_t classIndex) {
    setClass(row, region, classIndex);
    changed();
}

void OpenSet::label(int row, int region, std::int16_t classIndex) {
    setClass(row, region, classIndex);
    labels_.push_back({row, static_cast<std::int16_t>(region), classIndex});
    touched();
}

void OpenSet::assignAll(int region, std::int16_t classIndex) {
    auto& column = classOf_[static_cast<std::size_t>(region)];
    std::fill(column.begin(), column.end(), classIndex);
    Counts& counts = samplesOf_[static_cast<std::size_t>(region)];
    std::fill(counts.begin(), counts.end(), 0);
    count(counts, classIndex, sampleCount());
    changed();
}

void OpenSet::forgetIndex() const {
    index_.clear();
    indexed_ = 0;
}

int OpenSet::lookUp(std::uint32_t hash, std::string_view directory, std::string_view name) const {
    return index_.find(hash, [&](int row) {
        return platform::text::equalNoCase(sampleName(row), name) &&
               platform::text::equalNoCase(bare(sampleDirectory(row)), bare(directory));
    });
}

// Only the first row of a path: thousands of equal ones would all be compared for each look-up.
void OpenSet::indexUpTo(int row) const {
    if (indexed_ == 0) index_.reserve(std::max(names_.capacity(), names_.size()));
    PathHash hashes;
    while (indexed_ < row) {
        const int next = ++indexed_;
        const std::uint32_t hash = hashes.of(sampleDirectory(next), sampleName(next));
        if (lookUp(hash, sampleDirectory(next), sampleName(next)) == 0) index_.add(hash, next);
    }
}

int OpenSet::findSample(std::string_view path) const {
    const std::size_t cut = path.find_last_of("\\/") + 1;
    return findSample(path.substr(0, cut), path.substr(cut));
}

int OpenSet::findSample(std::string_view directory, std::string_view name) const {
    indexUpTo(sampleCount());
    const int row = lookUp(PathHash().of(directory, name), directory, name);
    return row == 0 ? -1 : row;
}

int OpenSet::findClass(std::string_view name, int except) const {
    return findName(classes_, name, except);
}
int OpenSet::findRegion(std::string_view name, int except) const {
    return findName(regions_, name, except);
}

void OpenSet::addClass(std::string_view name, std::string_view description) {
    classes_.push_back({std::string(name), std::string(description)});
    changed();
}

void OpenSet::renameClass(int row, std::string_view name) {
    classes_[at(row)].name = name;
    changed();
}

void OpenSet::describeClass(int row, std::string_view description) {
    classes_[at(row)].description = description;
    changed();
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
    for (std::size_t region = 0; region < samplesOf_.size(); ++region) {
        const int moved = samplesOf(removed, static_cast<int>(region));
        Counts& counts = samplesOf_[region];
        if (static_cast<std::size_t>(removed) < counts.size()) counts.erase(counts.begin() + removed);
        count(counts, standard, moved);
    }
    changed();
}

void OpenSet::setStandardClass(int classIndex) {
    standardClass_ = classIndex;
    changed();
}

void OpenSet::addRegion(std::string_view name, std::string_view description) {
    regions_.push_back({std::string(name), std::string(description)});
    classOf_.emplace_back(names_.size(), std::int16_t{0});
    samplesOf_.push_back({sampleCount()});
    changed();
}

void OpenSet::renameRegion(int row, std::string_view name) {
    regions_[at(row)].name = name;
    changed();
}

void OpenSet::describeRegion(int row, std::string_view description) {
    regions_[at(row)].description = description;
    changed();
}

void OpenSet::removeRegion(int row) {
    regions_.erase(regions_.begin() + row - 1);
    classOf_.erase(classOf_.begin() + row);
    samplesOf_.erase(samplesOf_.begin() + row);
    changed();
}

void OpenSet::setDoubleSelection(bool on) {
    doubleSelection_ = on;
    changed();
}

}  // namespace editor
