#include <string>
#include <vector>

#include "model/kvTamSampleSet.h"
#include "platform/errors.h"
#include "platform/path.h"

namespace model {

namespace {

using namespace set_file;
using platform::ProfileWriter;

void writeCommon(ProfileWriter& file, const kvTamSampleSet& set) {
    file.section(commonSection);
    file.set(classesKey, set.kvtamClasses().Count());
    file.set(stdClassKey, set.StdClass());
    file.set(roisKey, set.kvtamROIs().Count());
    file.set(itemsKey, set.kvtamSamples().Count());
    file.set(doubleSelectionKey, set.DoubleSelection() ? 1 : 0);
}

void writeClasses(ProfileWriter& file, const kvtamClasses& classes) {
    std::int32_t number = 0;
    for (const kvTamClass& entry : classes) {
        file.section(classSection(++number));
        file.set(nameKey, entry.Name);
        file.set(descriptionKey, entry.Description);
    }
}

void writeRegion(ProfileWriter& file, std::int32_t number, const kvTamROI& roi) {
    file.section(regionSection(number));
    file.set(nameKey, roi.Name);
    file.set(descriptionKey, roi.Description);
    file.set(xKey, roi.X);
    file.set(yKey, roi.Y);
    file.set(dxKey, roi.dX);
    file.set(dyKey, roi.dY);
    file.set(zKey, roi.Z);
}

/// The class numbers region by region: samples lie far apart in memory and are better visited once.
std::vector<std::vector<std::int32_t>> assignments(const kvTamSampleSet& set) {
    std::vector<std::vector<std::int32_t>> columns(static_cast<std::size_t>(set.kvtamROIs().Count()));
    for (auto& column : columns) column.reserve(static_cast<std::size_t>(set.kvtamSamples().Count()));
    for (const kvTamSample& sample : set.kvtamSamples())
        for (std::size_t i = 0; i < columns.size(); ++i)
            columns[i].push_back(i < sample.ItemClasses.size() ? sample.ItemClasses[i] : set.StdClass());
    return columns;
}

void writeItems(ProfileWriter& file, const kvTamSampleSet& set) {
    std::int32_t number = 0;
    file.section(itemsSection);
    for (const kvTamSample& sample : set.kvtamSamples())
        file.set(++number, platform::path::relativeTo(sample.FileName(), set.AppPath()));
    number = 0;
    file.section(itemDescrSection);
    for (const kvTamSample& sample : set.kvtamSamples()) file.set(++number, sample.ItemDescr);
}

/// Enough for the usual set, so that its text never moves.
std::size_t expectedSize(const kvTamSampleSet& set) {
    static constexpr std::size_t perAssignment = 12;  // "123456=123" and the line's end
    std::size_t size = 4096;
    for (const kvTamSample& sample : set.kvtamSamples())
        size += sample.FileName().size() + sample.ItemDescr.size() + 2 * perAssignment +
                perAssignment * static_cast<std::size_t>(set.kvtamROIs().Count());
    return size;
}

}  // namespace

ProfileWriter kvTamSampleSet::Write() {
    if (classes_.Count() > mostClasses)
        throw platform::RuntimeError(
            platform::error::overflow,
            "Eine Stichprobe kann höchstens " + std::to_string(mostClasses) + " Klassen haben.");
    if (rois_.Count() == 0) AddWholePictureROI();
    ProfileWriter file;
    file.reserve(expectedSize(*this));
    writeCommon(file, *this);
    writeClasses(file, classes_);
    const auto columns = assignments(*this);
    std::int32_t region = 0;
    for (const kvTamROI& roi : rois_) {
        writeRegion(file, region, roi);
        std::int32_t sample = 0;
        for (const std::int32_t number : columns[static_cast<std::size_t>(region)])
            file.set(++sample, number);
        ++region;
    }
    writeItems(file, *this);
    return file;
}

}  // namespace model
