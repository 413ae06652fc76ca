#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace platform::profile {

/// The number of a key that is written as we write numbers, of up to nine digits; empty for every other key.
inline std::optional<std::uint32_t> keyNumber(std::string_view key) {
    static constexpr std::size_t mostDigits = 9;  // always fit
    if (key.empty() || key.size() > mostDigits || (key[0] == '0' && key.size() > 1)) return std::nullopt;
    std::uint32_t number = 0;
    for (const char c : key) {
        if (c < '0' || c > '9') return std::nullopt;
        number = number * 10 + static_cast<std::uint32_t>(c - '0');
    }
    return number;
}

/// Lines with the keys n, n + 1, n + 2, ..., which can be found by their number.
struct KeyRun {
    std::size_t start = 0;  ///< the first line's place in the section, from 0
    std::size_t length = 0;
    std::uint32_t first = 0;

    bool has(std::uint32_t number) const { return number - first < length; }
};

/// Finds the longest run of a section, whose keys it is told in their order.
class RunFinder {
  public:
    void next(std::string_view key) {
        const auto number = keyNumber(key);
        if (number && last_.length > 0 && *number == last_.first + last_.length)
            ++last_.length;
        else
            last_ = number ? KeyRun{told_, 1, *number} : KeyRun{};
        if (last_.length > longest_.length) longest_ = last_;
        ++told_;
    }

    const KeyRun& longest() const { return longest_; }

  private:
    KeyRun longest_;
    KeyRun last_;
    std::size_t told_ = 0;
};

}  // namespace platform::profile
