#include "platform/document_run.h"

namespace platform::profile {

std::optional<std::uint32_t> keyNumber(std::string_view key) {
    static constexpr std::size_t mostDigits = 9;  // always fit
    if (key.empty() || key.size() > mostDigits || (key[0] == '0' && key.size() > 1)) return std::nullopt;
    std::uint32_t number = 0;
    for (const char c : key) {
        if (c < '0' || c > '9') return std::nullopt;
        number = number * 10 + static_cast<std::uint32_t>(c - '0');
    }
    return number;
}

void RunFinder::next(std::string_view key) {
    const auto number = keyNumber(key);
    if (number && last_.length > 0 && *number == last_.first + last_.length)
        ++last_.length;
    else
        last_ = number ? KeyRun{told_, 1, *number} : KeyRun{};
    if (last_.length > longest_.length) longest_ = last_;
    ++told_;
}

}  // namespace platform::profile
