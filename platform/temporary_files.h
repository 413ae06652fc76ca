#pragma once

#include <algorithm>
#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

/// The files that new content is written to before it takes its place, the same on every system. Processes
/// that died in the middle leave theirs behind.
namespace platform::files {

inline constexpr std::string_view temporaryStart = "~kv";
inline constexpr std::string_view temporaryEnd = ".tmp";

/// Another name each time. A process that is dead, or runs on another machine, may have used it too.
inline std::string temporaryFileName(std::uint32_t process) {
    static std::atomic<unsigned> counter = 0;
    return std::string(temporaryStart) + std::to_string(process) + "-" + std::to_string(++counter) +
           std::string(temporaryEnd);
}

/// Exactly what `temporaryFileName` makes.
inline bool isTemporaryFileName(std::string_view name) {
    if (!name.starts_with(temporaryStart) || !name.ends_with(temporaryEnd)) return false;
    name.remove_prefix(temporaryStart.size());
    name.remove_suffix(std::min(name.size(), temporaryEnd.size()));
    const std::size_t dash = name.find('-');
    if (dash == 0 || dash == std::string_view::npos || dash + 1 == name.size()) return false;
    return name.find_first_not_of("0123456789") == dash &&
           name.find_first_not_of("0123456789", dash + 1) == std::string_view::npos;
}

/// What nobody has written to for so long, by the clock of the disk that it lies on, nobody will finish: a
/// save takes seconds.
inline constexpr std::int64_t abandonedAfterSeconds = 24 * 60 * 60;

/// Whether it is time to look for abandoned files in that directory: once, as thousands of files may be
/// written to it. Directories that were looked at may be forgotten.
inline bool firstTimeIn(std::size_t directory) {
    static std::array<std::atomic<std::size_t>, 16> known{};
    return known[directory % known.size()].exchange(directory) != directory;
}
template <class Text>
bool firstTimeIn(const Text& directory) {
    return firstTimeIn(std::hash<Text>{}(directory));
}

}  // namespace platform::files
