#include "tests/support/temp_folder.h"

#include <algorithm>
#include <filesystem>
#include <random>
#include <system_error>

#include "platform/files.h"
#include "platform/path.h"

namespace support {

namespace {

/// From the program's way of writing a path to the system's.
std::filesystem::path onThisSystem(const std::string& path) {
#ifdef _WIN32
    return std::filesystem::path(std::u8string(path.begin(), path.end()));
#else
    std::string rooted = path.substr(2);  // without the drive that stands for the root
    std::replace(rooted.begin(), rooted.end(), '\\', '/');
    return rooted;
#endif
}

std::string asTheProgramWritesIt(const std::filesystem::path& path) {
    const std::u8string text = path.u8string();
    std::string result(text.begin(), text.end());
    std::replace(result.begin(), result.end(), '/', '\\');
    if (result.starts_with('\\')) result.insert(0, "Z:");
    return platform::path::normalise(result);
}

}  // namespace

TempFolder::TempFolder() {
    std::random_device random;
    const std::filesystem::path base = std::filesystem::temp_directory_path();
    std::filesystem::path made;
    do {
        made = base / ("stich-test-" + std::to_string(random()));
    } while (!std::filesystem::create_directory(made));
    path_ = asTheProgramWritesIt(made);
}

TempFolder::~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(onThisSystem(path_), ignored);
}

std::string TempFolder::file(std::string_view name) const {
    return platform::path::join(path_, name);
}

std::string TempFolder::write(std::string_view name, std::string_view content) const {
    const std::string path = file(name);
    platform::files::createDirectories(platform::path::directory(path));
    platform::files::replace(path, content);
    return path;
}

}  // namespace support
