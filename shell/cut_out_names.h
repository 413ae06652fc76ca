#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <utility>

namespace shell {

/// Names of the files that one run of the extraction writes: PICTURE_REGION.bmp. What a file name cannot
/// hold becomes "_". A name that another picture or region of the run has already, or that is a picture of
/// the set itself, gets " (2)", " (3)", ...
class CutOutNames {
  public:
    /// Whether a path is a picture of the set, which must never be written to.
    using IsPicture = std::function<bool(const std::string& path)>;
    explicit CutOutNames(IsPicture isPicture) : isPicture_(std::move(isPicture)) {}

    /// The path of the cut-out, in `directory`; the same for the same picture (full path) and region (from
    /// 1). Case does not count.
    std::string pathOf(const std::string& directory, const std::string& picture, std::int32_t region,
                       const std::string& regionName);

  private:
    IsPicture isPicture_;
    std::map<std::string, std::string> owners_;  // the picture and region of each name, all folded
};

}  // namespace shell
