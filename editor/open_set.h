#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "editor/row_index.h"

namespace editor {

/// A region's rectangle: left, top, width and height in picture pixels.
struct RegionRect {
    std::int32_t X = 0, Y = 0, dX = 0, dY = 0;
};

/// The set that is open: one table of samples, one of classes, one of regions, and whether there is
/// anything to save. Rows count from 1 as in the lists that show them; classes in the assignments count
/// from 0, regions as in the region chooser (0 is the whole picture, k is row k of the region table).
///
/// Every change goes through a named operation here, which clears the unchanged flag, so that no edit can
/// forget it. The region rectangles are the picture control's.
class OpenSet {
  public:
    struct Class {
        std::string name;
        std::string description;
    };
    struct Region {
        std::string name;
        std::string description;
    };

    bool unchanged() const { return unchanged_; }
    void setUnchanged(bool unchanged) { unchanged_ = unchanged; }

    // Samples -------------------------------------------------------------------------------------------
    int sampleCount() const { return static_cast<int>(names_.size()); }
    const std::string& sampleName(int row) const { return names_[at(row)]; }
    const std::string& sampleDirectory(int row) const { return directories_[directoryOf_[at(row)]]; }
    /// Directory and name with one separator between them.
    std::string samplePath(int row) const;
    std::int16_t classOf(int row, int region) const {
        return classOf_[static_cast<std::size_t>(region)][at(row)];
    }

    /// How many samples have this class (from 0) in the region. Kept up to date by every change: costs
    /// nothing.
    int samplesOf(std::int16_t classIndex, int region) const {
        const auto& counts = samplesOf_[static_cast<std::size_t>(region)];
        const auto place = static_cast<std::size_t>(classIndex);
        return place < counts.size() ? counts[place] : 0;
    }

    void reserveSamples(std::size_t count);
    /// Appends one; in every region it gets the standard class. Returns its row.
    int addSample(std::string_view directory, std::string_view name);
    /// `rows` ascending, without repetition.
    void removeSamples(const std::vector<int>& rows);
    /// The rows whose path equals that of an earlier one (case does not count), ascending.
    std::vector<int> duplicates() const;
    void movedTo(int row, std::string_view directory);
    void assign(int row, int region, std::int16_t classIndex);
    void assignAll(int region, std::int16_t classIndex);
    /// As `assign`; remembered for whoever keeps a copy.
    void label(int row, int region, std::int16_t classIndex);
    /// The first row with this path (case does not count), -1 when there is none. Looks it up in an index.
    int findSample(std::string_view path) const;
    int findSample(std::string_view directory, std::string_view name) const;

    // Classes -------------------------------------------------------------------------------------------
    int classCount() const { return static_cast<int>(classes_.size()); }
    const Class& classRow(int row) const { return classes_[at(row)]; }
    /// The row other than `except` whose name is equal (case does not count), 0 when there is none.
    int findClass(std::string_view name, int except = 0) const;
    /// Counts from 0.
    int standardClass() const { return standardClass_; }

    void addClass(std::string_view name, std::string_view description = {});
    void renameClass(int row, std::string_view name);
    void describeClass(int row, std::string_view description);
    /// Samples of this class get the standard class, which is `standardAfterwards` (counted from 0 among
    /// the classes that remain); the numbers of the later classes close up.
    void removeClass(int row, int standardAfterwards);
    void setStandardClass(int classIndex);

    // Regions -------------------------------------------------------------------------------------------
    int regionCount() const { return static_cast<int>(regions_.size()); }
    const Region& regionRow(int row) const { return regions_[at(row)]; }
    int findRegion(std::string_view name, int except = 0) const;  ///< as findClass

    /// Every sample gets the first class in it.
    void addRegion(std::string_view name, std::string_view description = {});
    void renameRegion(int row, std::string_view name);
    void describeRegion(int row, std::string_view description);
    void removeRegion(int row);
    void regionMoved() { touched(); }  ///< by the picture control, who has the rectangles

    // Options -------------------------------------------------------------------------------------------
    bool doubleSelection() const { return doubleSelection_; }
    void setDoubleSelection(bool on);

    // For whoever keeps a copy of it -----------------------------------------------------------------------
    struct Label {
        int row;
        std::int16_t region, classIndex;
    };
    /// Another number after every change.
    std::uint64_t changes() const { return changes_; }
    /// Another number after every change but those by `label` and `regionMoved`.
    std::uint64_t edits() const { return edits_; }
    /// In the order in which they were given, since they were last forgotten.
    const std::vector<Label>& labels() const { return labels_; }
    void forgetLabels() { labels_.clear(); }

  private:
    static std::size_t at(int row) { return static_cast<std::size_t>(row - 1); }
    std::uint32_t directoryNumber(std::string_view directory);
    void forgetIndex() const;
    int lookUp(std::uint32_t hash, std::string_view directory, std::string_view name) const;
    void indexUpTo(int row) const;
    void setClass(int row, int region, std::int16_t classIndex);
    /// How often each class stands in a column; those at the end that never did may be left out.
    using Counts = std::vector<int>;
    static void count(Counts& counts, std::int16_t classIndex, int samples);

    void touched() {
        unchanged_ = false;
        ++changes_;
    }
    void changed() {
        touched();
        ++edits_;
    }

    bool unchanged_ = true;
    std::uint64_t changes_ = 0;
    std::uint64_t edits_ = 0;
    std::vector<Label> labels_;
    bool doubleSelection_ = false;
    int standardClass_ = 0;
    std::vector<Class> classes_;
    std::vector<Region> regions_;

    std::vector<std::string> names_;
    std::vector<std::uint32_t> directoryOf_;
    std::vector<std::string> directories_;  // each spelling once
    std::unordered_map<std::string, std::uint32_t> directoryNumbers_;
    std::vector<std::vector<std::int16_t>> classOf_{1};  // a column per region chooser entry
    std::vector<Counts> samplesOf_{1};                   // for each of these columns

    // The first row of each path by the hash of its folded directory and name; made by the first look-up,
    // kept up to date by additions and dropped by what renumbers rows.
    mutable RowIndex index_;
    mutable int indexed_ = 0;
};

}  // namespace editor
