#pragma once

#include <string>

#include "platform/registry.h"
#include "shell/environment.h"

namespace shell {

/// The directory under which the suite keeps its data, without a backslash at its end: the program's own,
/// or the user's when the settings say so. One that does not exist gives way to the program's own, and the
/// settings are put right.
std::string dataDirectory(platform::Registry& registry, const Environment& environment);

/// Directories of sample sets and pictures, with a backslash at their ends.
struct Directories {
    std::string data;
    std::string sets;
    std::string pictures;
};
/// Those below the data directory; when either is missing there, those below the program directory.
Directories workingDirectories(platform::Registry& registry, const Environment& environment);

/// Where pictures lie by default: the data directory's, with a backslash at its end.
std::string pictureDirectory(platform::Registry& registry, const Environment& environment);

/// A file of the program directory, whether it exists or not.
std::string programFile(const Environment& environment, const std::string& name);

inline constexpr const char* setExtension = ".kvs";
inline constexpr const char* acquisitionTool = "Grelvin.exe";
inline constexpr const char* extractionScript = "Scripts\\Extract.kvr";

}  // namespace shell
