#include "shell/data_directory.h"

#include "platform/errors.h"
#include "platform/files.h"
#include "platform/path.h"

namespace shell {

namespace {

namespace files = platform::files;
namespace path = platform::path;

constexpr const char* dataPathKey = "DataPath";
constexpr const char* customKey = "DataPathCustom";
constexpr const char* programsOwn = "0";
constexpr const char* usersOwn = "1";

std::string below(const std::string& directory, const char* name) {
    return path::withBackslash(path::join(directory, name));
}

// Where settings cannot be written the program finds out again next time, and works all the same.
void useProgramDirectory(platform::Registry& registry) {
    try {
        registry.write("", dataPathKey, programsOwn);
    } catch (const platform::RuntimeError&) {
        return;
    }
}

}  // namespace

std::string dataDirectory(platform::Registry& registry, const Environment& environment) {
    const std::string choice = registry.read("", dataPathKey).value_or(programsOwn);
    std::string directory;
    if (choice == programsOwn) directory = environment.programDirectory;
    if (choice == usersOwn) directory = path::normalise(registry.read("", customKey).value_or(""));
    if (directory.empty() || !files::directoryExists(directory)) {
        useProgramDirectory(registry);
        return environment.programDirectory;
    }
    return directory;
}

Directories workingDirectories(platform::Registry& registry, const Environment& environment) {
    const auto under = [](const std::string& data) {
        return Directories{data, below(data, "TestSets"), below(data, "Picture")};
    };
    Directories result = under(dataDirectory(registry, environment));
    if (!files::directoryExists(result.sets) || !files::directoryExists(result.pictures)) {
        result = under(environment.programDirectory);
        useProgramDirectory(registry);
    }
    return result;
}

std::string pictureDirectory(platform::Registry& registry, const Environment& environment) {
    return below(dataDirectory(registry, environment), "Picture");
}

std::string programFile(const Environment& environment, const std::string& name) {
    return path::join(environment.programDirectory, name);
}

}  // namespace shell
