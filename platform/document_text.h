#pragma once

#include <charconv>
#include <cstdint>
#include <string>
#include <string_view>

/// What the readers and writers of profile files share: blanks, quotes, numbers, and the way between a file's
/// bytes and its text (UTF-8).
namespace platform::profile {

/// What Windows takes for blanks at the ends of a line, a key or a value; 0x1A once ended text files.
inline bool isBlank(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r') || c == '\x1A';
}

inline std::string_view trimmed(std::string_view text) {
    while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
    return text;
}

/// In a pair of quotes, single or double.
inline bool isQuoted(std::string_view value) {
    return value.size() >= 2 && value.front() == value.back() &&
           (value.front() == '"' || value.front() == '\'');
}

/// A number's text without an allocation.
class Decimal {
  public:
    explicit Decimal(std::int32_t number)
        : end_(std::to_chars(digits_, digits_ + sizeof digits_, number).ptr) {}
    std::string_view text() const { return {digits_, static_cast<std::size_t>(end_ - digits_)}; }

  private:
    char digits_[11];  // "-2147483648"
    char* end_;
};

/// The text of a file's bytes, by their byte order mark or by what they look like. RuntimeError fileError
/// when they are none.
std::string decoded(std::string bytes);
/// The bytes of a text that is not pure ASCII (else they are the text): Windows-1252 when that is safe, else
/// UTF-16 with a byte order mark.
std::string encoded(std::string_view text);

}  // namespace platform::profile
