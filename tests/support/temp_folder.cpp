#include "tests/support/temp_folder.h"

#include <algorithm>
#include <filesystem>
#include <random>
#include <system_error>

#include "platform/files.h"
#include "platform/path.h"

namespace support {

TempFolder::TempFolder() {
    std::random_device random;
    const std::u8string base = std::filesystem::temp_directory_path().u8string();
    const std::string name = "stich-test-" + std::to_string(random()) + "-" + std::to_string(random());
    path_ = platform::files::fullPath(std::string(base.begin(), base.end()) + "/" + name);
    platform::files::createDirectories(path_);
}

TempFolder::~TempFolder() {
#ifdef _WIN32
    const std::string whole = R"(\\?\)" + path_;  // tests make paths beyond 260 characters
#else
    std::string whole = path_.substr(2);  // without the drive that stands for the root
    std::replace(whole.begin(), whole.end(), '\\', '/');
#endif
    std::error_code ignored;
    std::filesystem::remove_all(std::filesystem::path(std::u8string(whole.begin(), whole.end())), ignored);
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
