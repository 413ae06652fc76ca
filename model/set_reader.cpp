#include <algorithm>
#include <string>
#include <vector>

#include "model/kvTamSampleSet.h"
#include "model/set_file_checks.h"
#include "platform/path.h"
#include "platform/text.h"

namespace model {

namespace {

using namespace set_file;
using Section = platform::ProfileDocument::Section;

/// Answers for absent sections and keys too, by an empty text.
class Reader {
  public:
    Reader(const platform::ProfileDocument& document, std::string_view fileName)
        : document_(document), fileName_(fileName) {}

    const Section& section(std::string_view name) const {
        static const Section absent;
        const Section* found = document_.findSection(name);
        return found == nullptr ? absent : *found;
    }
    static std::string_view text(const Section& section, std::string_view key,
                                 std::string_view whenAbsent = {}) {
        return section.find(key).value_or(whenAbsent);
    }
    static std::string_view text(const Section& section, std::int32_t sample) {
        return section.find(sample).value_or(std::string_view());
    }
    /// `name` because an absent section knows no name of its own.
    std::int32_t number(const Section& section, std::string_view name, std::string_view key) const {
        return numberAt(text(section, key), name, key, fileName_);
    }
    std::int32_t number(const Section& section, std::string_view name, std::string_view key,
                        std::int32_t whenAbsent) const {
        return text(section, key).empty() ? whenAbsent : number(section, name, key);
    }
    std::int32_t number(const Section& section, std::string_view name, std::int32_t sample) const {
        const std::string_view value = text(section, sample);
        if (const auto found = platform::text::parseInt32(value)) return *found;
        return numberAt(value, name, std::to_string(sample), fileName_);
    }
    void refuseFarEdge(std::int32_t start, std::int32_t length, std::string_view name,
                       std::string_view key) const {
        const std::string problem = edgeProblem(start, length, name, key);
        if (!problem.empty()) throw refusal(fileName_, problem);
    }

  private:
    const platform::ProfileDocument& document_;
    std::string_view fileName_;
};

/// Reads the samples a few hundred at a time: one line after the other of each section in turn, as the file
/// has them, while the samples still lie in the cache.
class SampleReader {
  public:
    SampleReader(const Reader& reader, const Counts& counts, const std::string& appPath)
        : reader_(reader), counts_(counts), appPath_(appPath) {
        for (std::int32_t i = 0; i < counts.rois; ++i) {
            std::string name = regionSection(i);
            const Section& section = reader.section(name);
            regions_.push_back({std::move(name), section});
        }
    }

    kvtamSamples all() {
        static constexpr std::int32_t most = 256;
        kvtamSamples samples;
        samples.Reserve(static_cast<std::size_t>(counts_.items));
        for (std::int32_t done = 0; done < counts_.items; done = samples.Count()) {
            addSome(samples, std::min(most, counts_.items - done));
            for (std::size_t i = 0; i < regions_.size(); ++i) assign(samples, done + 1, i);
        }
        return samples;
    }

  private:
    struct Region {
        std::string name;
        const Section& section;
    };

    void addSome(kvtamSamples& samples, std::int32_t count) const {
        for (std::int32_t n = samples.Count() + 1; count > 0; ++n, --count) {
            kvTamSample& sample = samples.Add(platform::path::resolve(Reader::text(paths_, n), appPath_),
                                              std::string(Reader::text(descriptions_, n)));
            sample.ItemClasses.resize(regions_.size());
        }
    }

    /// From sample `n` on.
    void assign(kvtamSamples& samples, std::int32_t n, std::size_t region) const {
        const auto& [name, section] = regions_[region];
        for (; n <= samples.Count(); ++n)
            samples.Item(n).ItemClasses[region] = reader_.number(section, name, n);
    }

    const Reader& reader_;
    const Counts& counts_;
    const std::string& appPath_;
    const Section& paths_ = reader_.section(itemsSection);
    const Section& descriptions_ = reader_.section(itemDescrSection);
    std::vector<Region> regions_;
};

kvtamClasses readClasses(const Reader& reader, const Counts& counts) {
    kvtamClasses classes;
    for (std::int32_t n = 1; n <= counts.classes; ++n) {
        const Section& section = reader.section(classSection(n));
        classes.Add(std::string(Reader::text(section, nameKey, defaultClassName(n)))).Description =
            Reader::text(section, descriptionKey);
    }
    return classes;
}

/// The whole picture may lack its rectangle, and older programs wrote no "Z".
void readRectangle(const Reader& reader, std::int32_t n, kvTamROI& roi) {
    const std::string name = regionSection(n);
    const Section& section = reader.section(name);
    const auto edge = [&](std::string_view key) {
        return n == 0 ? reader.number(section, name, key, noValue) : reader.number(section, name, key);
    };
    roi.X = edge(xKey);
    roi.Y = edge(yKey);
    roi.dX = edge(dxKey);
    roi.dY = edge(dyKey);
    roi.Z = reader.number(section, name, zKey, noValue);
    reader.refuseFarEdge(roi.X, roi.dX, name, dxKey);
    reader.refuseFarEdge(roi.Y, roi.dY, name, dyKey);
}

kvtamROIs readRegions(const Reader& reader, const Counts& counts) {
    kvtamROIs rois;
    for (std::int32_t n = 0; n < counts.rois; ++n) {
        const Section& section = reader.section(regionSection(n));
        kvTamROI& roi = rois.Add();
        roi.Name = Reader::text(section, nameKey, defaultRegionName(n));
        roi.Description = Reader::text(section, descriptionKey);
        readRectangle(reader, n, roi);
    }
    return rois;
}

}  // namespace

void kvTamSampleSet::Read(const platform::ProfileDocument& document, std::string_view fileName) {
    const Counts counts = readCounts(document, fileName);
    const Reader reader(document, fileName);
    const Section& common = reader.section(commonSection);
    const std::int32_t stdClass = reader.number(common, commonSection, stdClassKey, defaultStdClass);
    const bool doubleSelection = reader.number(common, commonSection, doubleSelectionKey, 0) != 0;
    model::kvtamSamples samples = SampleReader(reader, counts, appPath_).all();
    model::kvtamClasses classes = readClasses(reader, counts);
    model::kvtamROIs rois = readRegions(reader, counts);

    // Everything is understood: from here on nothing fails.
    stdClass_ = stdClass;
    doubleSelection_ = doubleSelection;
    samples_ = std::move(samples);
    classes_ = std::move(classes);
    rois_ = std::move(rois);
    if (rois_.Count() == 0) AddWholePictureROI();
}

}  // namespace model
