#include "tests/support/temp_folder.h"

#include <random>
#include <system_error>

#include "platform/files.h"
#include "platform/path.h"

namespace support {

TempFolder::TempFolder() {
    std::random_device random;
    do {
        made_ = std::filesystem::temp_directory_path() / ("stich-test-" + std::to_string(random()));
    } while (!std::filesystem::create_directory(made_));
    const std::u8string made = made_.u8string();
    path_ = platform::files::fullPath(std::string(made.begin(), made.end()));
}

TempFolder::~TempFolder() {
#ifdef _WIN32
    made_ = std::filesystem::path(LR"(\\?\)") += made_;  // tests make paths beyond 260 characters
#endif
    std::error_code ignored;
    std::filesystem::remove_all(made_, ignored);
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
