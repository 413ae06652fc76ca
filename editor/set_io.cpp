#include "editor/set_io.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <unordered_map>
#include <utility>

#include "model/set_file_checks.h"
#include "model/set_file_names.h"
#include "platform/document.h"
#include "platform/errors.h"
#include "platform/files.h"
#include "platform/path.h"
#include "platform/text.h"

namespace editor {

namespace {

namespace path = platform::path;
namespace set_file = model::set_file;
namespace text = platform::text;
using platform::ProfileFile;

/// The file that is being read, with its name for messages.
struct Source {
    ProfileFile file;
    std::string fileName;

    std::string_view text(std::string_view section, std::string_view key, std::string_view whenAbsent = "") {
        return file.peek(section, key, whenAbsent);
    }
    std::int32_t number(std::string_view section, std::string_view key) {
        return set_file::numberAt(text(section, key), section, key, fileName);
    }
    std::int32_t number(std::string_view section, std::string_view key, std::int32_t whenEmpty) {
        return text(section, key).empty() ? whenEmpty : number(section, key);
    }
    /// A length whose far edge must be a number, too.
    std::int32_t length(std::string_view section, std::string_view key, std::int32_t start) {
        const std::int32_t found = number(section, key);
        const std::string problem = set_file::edgeProblem(start, found, section, key);
        if (!problem.empty()) throw set_file::refusal(fileName, problem);
        return found;
    }
};

/// A key that is a number, as text, without an allocation: there are millions of them.
class NumberKey {
  public:
    std::string_view of(int number) {
        const auto end = std::to_chars(std::begin(digits_), std::end(digits_), number).ptr;
        return {digits_, static_cast<std::size_t>(end - digits_)};
    }

  private:
    char digits_[12];
};

/// Joins stored paths to the base directory; neighbours nearly always lie in the same one.
class StoredPaths {
  public:
    explicit StoredPaths(const std::string& base) : base_(base), directory_(base) {}

    void addTo(OpenSet& set, std::string_view stored) {
        const std::size_t cut = stored.find_last_of("\\/") + 1;
        if (stored.substr(0, cut) != stored_) {
            stored_ = stored.substr(0, cut);
            directory_ = path::normalise(path::resolve(stored_, base_));
        }
        set.addSample(directory_, stored.substr(cut));
    }

  private:
    std::string base_;
    std::string stored_;
    std::string directory_;
};

void readClasses(Source& source, int count, OpenSet& set) {
    for (int n = 1; n <= count; ++n) {
        const std::string section = set_file::classSection(n);
        set.addClass(source.text(section, set_file::nameKey, set_file::defaultClassName(n)),
                     source.text(section, set_file::descriptionKey));
    }
}

/// Region 0 is the whole picture, of which nothing is kept.
void readRegions(Source& source, int count, LoadedSet& loaded) {
    for (int n = 1; n < count; ++n) {
        const std::string section = set_file::regionSection(n);
        loaded.set.addRegion(source.text(section, set_file::nameKey, set_file::defaultRegionName(n)),
                             source.text(section, set_file::descriptionKey));
        const auto number = [&](std::string_view key) { return source.number(section, key); };
        const std::int32_t x = number(set_file::xKey);
        const std::int32_t y = number(set_file::yKey);
        loaded.rectangles.push_back(
            {x, y, source.length(section, set_file::dxKey, x), source.length(section, set_file::dyKey, y)});
    }
}

void readItems(Source& source, int count, const std::string& appPath, OpenSet& set) {
    StoredPaths paths(appPath);
    NumberKey number;
    set.reserveSamples(static_cast<std::size_t>(count));
    for (int n = 1; n <= count; ++n) {
        const std::string_view stored = source.text(set_file::itemsSection, number.of(n));
        // A file that was cut off: its samples must not look like pictures that are gone.
        if (stored.empty()) {
            throw set_file::refusal(
                source.fileName, set_file::place(set_file::itemsSection, number.of(n)) + ": Der Pfad fehlt.");
        }
        paths.addTo(set, stored);
    }
}

void readAssignments(Source& source, const set_file::Counts& counts, LoadedSet& loaded) {
    NumberKey number;
    for (int region = 0; region < counts.rois; ++region) {
        const std::string section = set_file::regionSection(region);
        const auto* entries = source.file.section(section);
        for (int n = 1; n <= counts.items; ++n) {
            const auto value = entries == nullptr ? std::nullopt : entries->find(n);
            const auto plain = value ? text::parseInt32(*value) : std::nullopt;
            const std::int32_t stored = plain ? *plain : source.number(section, number.of(n));
            const bool known = stored >= 1 && stored <= counts.classes;
            if (!known) ++loaded.strayAssignments;
            const int classIndex = known ? stored - 1 : loaded.set.standardClass();
            loaded.set.assign(n, region, static_cast<std::int16_t>(classIndex));
        }
    }
}

}  // namespace

LoadedSet readSet(const std::string& fileName, const std::string& appPath) {
    Source source{ProfileFile(fileName), fileName};
    const set_file::Counts counts = set_file::readCounts(source.file, fileName);
    const std::int32_t standard =
        source.number(set_file::commonSection, set_file::stdClassKey, set_file::defaultStdClass);
    LoadedSet loaded;
    readClasses(source, counts.classes, loaded.set);
    loaded.set.setStandardClass(standard >= 1 && standard <= counts.classes ? standard - 1 : 0);
    loaded.set.setDoubleSelection(source.number(set_file::commonSection, set_file::doubleSelectionKey, 0) !=
                                  0);
    readRegions(source, counts.rois, loaded);
    readItems(source, counts.items, appPath, loaded.set);
    readAssignments(source, counts, loaded);
    loaded.set.setUnchanged(true);
    return loaded;
}

namespace {

void writeClasses(ProfileFile& file, const OpenSet& set) {
    for (int n = 1; n <= set.classCount(); ++n) {
        const std::string name = set_file::classSection(n);
        file.write(name, set_file::nameKey, set.classRow(n).name);
        file.write(name, set_file::descriptionKey, set.classRow(n).description);
    }
}

void writeRegion(ProfileFile& file, const OpenSet& set, int region, const RegionRect& r) {
    const std::string sectionName = set_file::regionSection(region);
    const bool whole = region == 0;
    const std::string wholeName(set_file::wholePicture);
    file.write(sectionName, set_file::nameKey, whole ? wholeName : set.regionRow(region).name);
    file.write(sectionName, set_file::descriptionKey, whole ? wholeName : set.regionRow(region).description);
    const std::pair<std::string_view, std::int32_t> numbers[] = {{set_file::xKey, r.X},
                                                                 {set_file::yKey, r.Y},
                                                                 {set_file::dxKey, r.dX},
                                                                 {set_file::dyKey, r.dY},
                                                                 {set_file::zKey, set_file::noValue}};
    for (const auto& [what, value] : numbers) file.write(sectionName, what, std::to_string(value));
    for (int n = 1; n <= set.sampleCount(); ++n) file.write(sectionName, n, set.classOf(n, region) + 1);
}

void writeItems(ProfileFile& file, const OpenSet& set, const std::string& appPath) {
    const std::string* known = nullptr;
    std::string stored;
    NumberKey number;
    for (int n = 1; n <= set.sampleCount(); ++n) {
        const std::string& directory = set.sampleDirectory(n);
        if (&directory != known) {
            known = &directory;
            // Relative to the base with the separator at its end, or empty for the base itself.
            const std::string probe = path::relativeTo(path::join(directory, "x"), appPath);
            stored = probe.substr(0, probe.size() - 1);
        }
        file.write(set_file::itemsSection, number.of(n), stored + set.sampleName(n));
    }
}

}  // namespace

std::string setBytes(const std::string& appPath, const OpenSet& set,
                     const std::vector<RegionRect>& rectangles) {
    ProfileFile file{std::string()};
    file.write(set_file::commonSection, set_file::classesKey, std::to_string(set.classCount()));
    file.write(set_file::commonSection, set_file::stdClassKey, std::to_string(set.standardClass() + 1));
    file.write(set_file::commonSection, set_file::roisKey, std::to_string(set.regionCount() + 1));
    file.write(set_file::commonSection, set_file::itemsKey, std::to_string(set.sampleCount()));
    file.write(set_file::commonSection, set_file::doubleSelectionKey, set.doubleSelection() ? "1" : "0");
    writeClasses(file, set);
    constexpr auto none = set_file::noValue;
    for (int region = 0; region <= set.regionCount(); ++region) {
        const bool whole = region == 0;
        writeRegion(
            file, set, region,
            whole ? RegionRect{none, none, none, none} : rectangles[static_cast<std::size_t>(region - 1)]);
    }
    writeItems(file, set, appPath);
    NumberKey number;
    for (int n = 1; n <= set.sampleCount(); ++n) file.write(set_file::itemDescrSection, number.of(n), "");
    return file.bytes();
}

void writeSet(const std::string& fileName, const std::string& appPath, const OpenSet& set,
              const std::vector<RegionRect>& rectangles) {
    platform::files::replace(fileName, setBytes(appPath, set, rectangles));
}

PictureFiles::PictureFiles(const OpenSet& set) : count_(set.sampleCount()) {
    std::unordered_map<const std::string*, std::size_t> places;  // the set keeps each directory once
    const std::string* last = nullptr;
    std::size_t place = 0;
    for (int row = 1; row <= count_; ++row) {
        const std::string& directory = set.sampleDirectory(row);
        if (&directory != last) {
            last = &directory;
            const auto [found, isNew] = places.try_emplace(last, directories_.size());
            if (isNew) directories_.push_back({.path = directory, .rows = {}, .ends = {}, .names = {}});
            place = found->second;
        }
        directories_[place].add(row, set.sampleName(row));
    }
}

void PictureFiles::Directory::add(int row, std::string_view name) {
    rows.push_back(row);
    names += name;
    ends.push_back(static_cast<std::uint32_t>(names.size()));
}

std::string_view PictureFiles::Directory::name(std::size_t index) const {
    const std::size_t start = index == 0 ? 0 : ends[index - 1];
    return std::string_view(names).substr(start, ends[index] - start);
}

void PictureFiles::Directory::findMissing(const std::vector<std::string>& there,
                                          std::vector<int>& missing) const {
    auto next = there.begin();  // samples mostly follow each other as the names do
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const std::string folded = text::foldCase(name(i));
        if (next == there.end() || *next != folded)
            next = std::lower_bound(there.begin(), there.end(), folded);
        if (next != there.end() && *next == folded) {
            ++next;
            continue;
        }
        // Old programs stored short names, which no listing tells.
        const bool isShort = name(i).find('~') != std::string_view::npos;
        if (!isShort || !platform::files::fileExists(platform::path::join(path, name(i))))
            missing.push_back(rows[i]);
    }
}

std::vector<int> PictureFiles::missing(const FileNames& fileNames,
                                       platform::BackgroundTask::Progress& progress) const {
    std::vector<int> missing;
    progress.total = count_;
    int before = 0;
    for (const Directory& directory : directories_) {
        const auto size = static_cast<int>(directory.rows.size());
        // Listing takes the time; it is as good as done when as many names have come as are looked for.
        const auto there = fileNames(directory.path, [&](std::size_t entries) {
            progress.done = before + std::min(size, static_cast<int>(entries));
            return !progress.cancelled;
        });
        if (progress.cancelled) return missing;
        directory.findMissing(there, missing);
        progress.done = before += size;
    }
    std::sort(missing.begin(), missing.end());
    return missing;
}

}  // namespace editor
