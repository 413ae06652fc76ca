#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "model/collections.h"
#include "model/set_file_names.h"
#include "platform/document.h"

namespace model {

/// A whole sample set: samples, classes, regions and settings, with the operations that fill it from a
/// directory tree and keep it in a file. In memory class numbers and positions count from 1.
class kvTamSampleSet {
  public:
    /// Base directory of the picture paths: those below it are stored relative to it.
    const std::string& AppPath() const { return appPath_; }
    void AppPath(std::string value) { appPath_ = std::move(value); }
    const std::string& Name() const { return name_; }
    void Name(std::string value) { name_ = std::move(value); }
    /// Number of the standard class.
    std::int32_t StdClass() const { return stdClass_; }
    void StdClass(std::int32_t value) { stdClass_ = value; }
    bool DoubleSelection() const { return doubleSelection_; }
    void DoubleSelection(bool value) { doubleSelection_ = value; }
    /// Full path of the set's file, as last loaded or saved.
    const std::string& FileName() const { return fileName_; }
    void FileName(std::string value) { fileName_ = std::move(value); }

    model::kvtamROIs& kvtamROIs() { return rois_; }
    const model::kvtamROIs& kvtamROIs() const { return rois_; }
    void kvtamROIs(model::kvtamROIs value) { rois_ = std::move(value); }
    model::kvtamClasses& kvtamClasses() { return classes_; }
    const model::kvtamClasses& kvtamClasses() const { return classes_; }
    void kvtamClasses(model::kvtamClasses value) { classes_ = std::move(value); }
    model::kvtamSamples& kvtamSamples() { return samples_; }
    const model::kvtamSamples& kvtamSamples() const { return samples_; }
    void kvtamSamples(model::kvtamSamples value) { samples_ = std::move(value); }

    /// Empties the three collections; the other properties keep their values.
    void Clear();

    /// One class for each subdirectory of `Path` in the natural order of their names, one sample for each
    /// file directly in it, whatever its ending, and the whole picture as the only region. RuntimeError
    /// pathNotFound; the set is then empty.
    void CreateFromDirectory(std::string_view Path);

    /// False, and nothing changes, when the file does not exist. RuntimeError, in German and naming file,
    /// section and key, when it cannot be read or understood; the set is then as before too.
    bool Load(std::string_view FileName);
    /// `Load` of a file that is parsed already; its name is for the errors.
    void Read(const platform::ProfileDocument& document, std::string_view fileName);

    /// Writes the file in one step, its directory first when that is missing. An empty name stands for
    /// `FileName`; another one becomes it. False, and nothing is written, when both are empty. A set without
    /// regions gets the whole picture first. A sample that has no class in a region gets the standard class
    /// there in the file. RuntimeError when a text cannot be stored or the file not written; an older file
    /// is then still there, whole.
    bool Save(std::string_view FileName = {});
    /// What `Save` stores, in the memory.
    platform::ProfileWriter Write();

  private:
    void AddWholePictureROI();

    std::string appPath_;
    std::string name_;
    std::string fileName_;
    std::int32_t stdClass_ = set_file::defaultStdClass;
    bool doubleSelection_ = false;
    model::kvtamROIs rois_;
    model::kvtamClasses classes_;
    model::kvtamSamples samples_;
};

}  // namespace model
