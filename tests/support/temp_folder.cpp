#include "tests/support/temp_folder.h"

#include <algorithm>
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
    const std::u8string text = made_.u8string();
    path_.assign(text.begin(), text.end());
    std::replace(path_.begin(), path_.end(), '/', '\\');
    if (path_.starts_with('\\')) path_.insert(0, "Z:");
}

// What was made here is removed, whatever the program under test takes its path to be.
TempFolder::~TempFolder() {
    std::error_code ignored;
#ifdef _WIN32
    made_ = LR"(\\?\)" + made_.wstring();  // tests make paths beyond 260 characters
#endif
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
