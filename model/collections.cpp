#include "model/collections.h"

namespace model {

kvTamSample& kvtamSamples::Add(std::string FileName, std::string description, std::string_view sKey) {
    kvTamSample& sample = append(sKey);
    sample.FileName(std::move(FileName));
    sample.ItemDescr = std::move(description);
    return sample;
}

kvTamClass& kvtamClasses::Add(std::string Name, std::string_view sKey) {
    kvTamClass& added = append(sKey);
    added.Name = std::move(Name);
    added.Number = Count();
    return added;
}

kvTamROI& kvtamROIs::Add(std::string_view sKey) {
    return append(sKey);
}

}  // namespace model
