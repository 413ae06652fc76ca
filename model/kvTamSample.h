#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace model {

/// One picture file of a set, with the class it was given in each region.
class kvTamSample {
  public:
    const std::string& FileName() const { return fileName_; }  ///< the full path of the picture
    void FileName(std::string value) { fileName_ = std::move(value); }

    bool FileFound() const;    ///< whether the file exists now
    std::string File() const;  ///< the part of `FileName` behind the last separator
    std::string Path() const;  ///< the directory part, without a separator at its end

    std::string ItemDescr;
    /// Class numbers, counted from 1, one for each region in the order of the regions.
    std::vector<std::int32_t> ItemClasses;

  private:
    std::string fileName_;
};

}  // namespace model
