#include "platform/document_run.h"

namespace platform::profile {

namespace {

constexpr std::size_t mostDigits = 9;  // always fit

/// Empty behind the last number.
void increment(std::string& digits) {
    for (auto digit = digits.rbegin(); digit != digits.rend(); *digit++ = '0')
        if (*digit != '9') {
            ++*digit;
            return;
        }
    if (digits.size() == mostDigits)
        digits.clear();
    else
        digits.insert(0, 1, '1');
}

}  // namespace

std::optional<std::uint32_t> keyNumber(std::string_view key) {
    if (key.empty() || key.size() > mostDigits || (key[0] == '0' && key.size() > 1)) return std::nullopt;
    std::uint32_t number = 0;
    for (const char c : key) {
        if (c < '0' || c > '9') return std::nullopt;
        number = number * 10 + static_cast<std::uint32_t>(c - '0');
    }
    return number;
}

void RunFinder::next(std::string_view key) {
    if (!expected_.empty() && key == expected_) {
        ++last_.length;
        increment(expected_);
    } else {
        begin(key);
    }
    if (last_.length > longest_.length) longest_ = last_;
    ++told_;
}

void RunFinder::begin(std::string_view key) {
    const auto number = keyNumber(key);
    last_ = number ? KeyRun{told_, 1, *number} : KeyRun{};
    expected_ = number ? key : std::string_view();
    increment(expected_);
}

}  // namespace platform::profile
