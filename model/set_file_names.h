#pragma once

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

/// Sections, keys and defaults of a sample-set file. Class sections and the keys of samples count from 1,
/// region sections from 0; region 0 is the whole picture. Class numbers in the file count from 1.
namespace model::set_file {

inline constexpr std::string_view ending = ".kvs";
/// The directory below the data directory that holds the set files.
inline constexpr std::string_view setsDirectory = "TestSets";

inline constexpr std::string_view commonSection = "Common";
inline constexpr std::string_view classesKey = "Classes";
inline constexpr std::string_view stdClassKey = "StdClass";
inline constexpr std::string_view roisKey = "ROIs";
inline constexpr std::string_view itemsKey = "Items";
inline constexpr std::string_view doubleSelectionKey = "DoubleSelection";

inline constexpr std::string_view classPrefix = "Class";
inline constexpr std::string_view regionPrefix = "ROI";
inline constexpr std::string_view nameKey = "Name";
inline constexpr std::string_view descriptionKey = "Description";
inline constexpr std::string_view xKey = "X";
inline constexpr std::string_view yKey = "Y";
inline constexpr std::string_view dxKey = "dX";
inline constexpr std::string_view dyKey = "dY";
inline constexpr std::string_view zKey = "Z";

inline constexpr std::string_view itemsSection = "Items";
inline constexpr std::string_view itemDescrSection = "ItemDescr";

inline constexpr std::string_view wholePicture = "(gesamtes Bild)";  ///< name and description of region 0
inline constexpr std::int32_t defaultStdClass = 1;
inline constexpr std::int32_t noValue = -1;  ///< X, Y, dX, dY of region 0, and every Z that nobody set
/// The editor counts classes in 16 bits.
inline constexpr std::int32_t mostClasses = std::numeric_limits<std::int16_t>::max();

inline std::string classSection(std::int32_t number) {
    return std::string(classPrefix) + std::to_string(number);
}
inline std::string regionSection(std::int32_t number) {
    return std::string(regionPrefix) + std::to_string(number);
}
inline std::string defaultClassName(std::int32_t number) {
    return "Klasse" + std::to_string(number);
}
inline std::string defaultRegionName(std::int32_t number) {
    return "Bereich" + std::to_string(number);
}

}  // namespace model::set_file
