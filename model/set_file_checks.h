#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/document.h"
#include "platform/errors.h"

/// What every reader of a set file insists on, so that a damaged file is refused in the same words whoever
/// opens it. A problem is a German sentence that begins with its place.
namespace model::set_file {

/// `Abschnitt [Common], Eintrag "Items"`.
std::string place(std::string_view section, std::string_view key);

/// Empty when the value is a whole number.
std::string numberProblem(std::string_view value, std::string_view section, std::string_view key);

/// Empty when a region that begins there and is so long ends at a number as well.
std::string edgeProblem(std::int32_t start, std::int32_t length, std::string_view section, std::string_view key);

struct Counts {
    std::int32_t classes = 0;
    std::int32_t rois = 0;
    std::int32_t items = 0;
};

/// The values as they stand in the file, empty where they are absent.
struct CountTexts {
    std::string_view classes, rois, items;
};

/// Everything that is wrong with the counts of a file of so many lines. Every sample takes a line in "Items"
/// and one in each region, so greater counts are lies that must not cost memory. `counts` gets those that
/// are numbers.
std::vector<std::string> countProblems(const CountTexts& texts, std::size_t lines, Counts& counts);

/// The error by which a file is refused.
platform::RuntimeError refusal(std::string_view fileName, const std::string& problem);

/// The counts of "Common". The file's name is for the RuntimeError (typeMismatch) that refuses bad ones.
Counts readCounts(const platform::ProfileDocument& document, std::string_view fileName);
Counts readCounts(platform::ProfileFile& file, std::string_view fileName);

/// The number that `value` holds; the rest is for the RuntimeError (typeMismatch) when it is none.
std::int32_t numberAt(std::string_view value, std::string_view section, std::string_view key,
                      std::string_view fileName);

}  // namespace model::set_file
