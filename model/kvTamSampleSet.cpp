#include "model/kvTamSampleSet.h"

#include <algorithm>
#include <vector>

#include "platform/files.h"
#include "platform/path.h"
#include "platform/text.h"

namespace model {

namespace {

namespace files = platform::files;
namespace path = platform::path;

/// The names of a directory's subdirectories, or of its files, in natural order.
std::vector<std::string> names(const std::string& directory, bool directories) {
    std::vector<std::string> found;
    for (files::Entry& entry : files::list(directory))
        if (entry.isDirectory == directories) found.push_back(std::move(entry.name));
    std::sort(found.begin(), found.end(), [](const std::string& a, const std::string& b) {
        const int order = platform::text::compareNatural(a, b);
        return order != 0 ? order < 0 : a < b;
    });
    return found;
}

}  // namespace

void kvTamSampleSet::Clear() {
    rois_.Clear();
    classes_.Clear();
    samples_.Clear();
}

void kvTamSampleSet::CreateFromDirectory(std::string_view Path) {
    Clear();
    const std::string root = files::fullPath(Path);
    model::kvtamClasses classes;
    model::kvtamSamples samples;
    for (const std::string& className : names(root, true)) {
        const std::int32_t number = classes.Add(className).Number;
        const std::string directory = path::join(root, className);
        for (const std::string& name : names(directory, false))
            samples.Add(path::join(directory, name), name).ItemClasses.push_back(number);
    }
    classes_ = std::move(classes);
    samples_ = std::move(samples);
    AddWholePictureROI();
}

bool kvTamSampleSet::Load(std::string_view FileName) {
    if (!files::fileExists(FileName)) return false;
    Read(platform::ProfileDocument::load(FileName), FileName);
    fileName_ = FileName;
    return true;
}

bool kvTamSampleSet::Save(std::string_view FileName) {
    if (!FileName.empty()) fileName_ = FileName;
    if (fileName_.empty()) return false;
    const platform::ProfileWriter file = Write();
    files::createDirectories(path::directory(fileName_));
    file.store(fileName_);
    return true;
}

void kvTamSampleSet::AddWholePictureROI() {
    kvTamROI& whole = rois_.Add();
    whole.Name = set_file::wholePicture;
    whole.Description = set_file::wholePicture;
}

}  // namespace model
