#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace support {

/// A directory of the test's own, removed with all that is in it.
class TempFolder {
  public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    /// As the program writes it, without a backslash at its end.
    const std::string& path() const { return path_; }
    /// The path of a file or subdirectory in it, such as "a\\b.txt".
    std::string file(std::string_view name) const;
    /// Writes a file, making the directories that lead to it, and returns its path.
    std::string write(std::string_view name, std::string_view content = "x") const;

  private:
    std::filesystem::path made_;
    std::string path_;
};

}  // namespace support
