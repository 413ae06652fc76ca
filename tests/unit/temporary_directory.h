#pragma once

#include <atomic>
#include <chrono>
#include <filesystem>
#include <string>

#include "platform/files.h"
#include "platform/path.h"

/// A new, empty directory of the system's temporary one that goes with the object.
class TemporaryDirectory {
  public:
    TemporaryDirectory() {
        static std::atomic<int> counter = 0;
        const auto now = std::chrono::steady_clock::now().time_since_epoch().count();
        const std::u8string base = std::filesystem::temp_directory_path().u8string();
        path_ = platform::files::fullPath(std::string(base.begin(), base.end()) + "/kv" +
                                          std::to_string(now) + "-" + std::to_string(++counter));
        platform::files::createDirectories(path_);
    }
    ~TemporaryDirectory() {
        std::error_code ignored;
#ifdef _WIN32
        const std::string whole = R"(\\?\)" + path_;  // tests make paths beyond 260 characters
#else
        std::string whole = path_.substr(2);
        for (char& c : whole)
            if (c == '\\') c = '/';
#endif
        std::filesystem::remove_all(std::filesystem::path(std::u8string(whole.begin(), whole.end())),
                                    ignored);
    }
    TemporaryDirectory(const TemporaryDirectory&) = delete;
    TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

    const std::string& path() const {
        return path_;
    }
    std::string operator/(const std::string& name) const {
        return platform::path::join(path_, name);
    }

    /// Writes the file, its directory first.
    std::string put(const std::string& name, const std::string& content = "x") const {
        const std::string file = *this / name;
        platform::files::createDirectories(platform::path::directory(file));
        platform::files::replace(file, content);
        return file;
    }

  private:
    std::string path_;
};
