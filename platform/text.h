#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Text is UTF-8 in std::string. UTF-16 that is not well formed (Windows allows such file names) is kept
/// by writing lone surrogates as three bytes each, so that every name survives the way there and back.
namespace platform::text {

std::string fromUtf16(std::u16string_view utf16);
std::u16string toUtf16(std::string_view utf8);

bool isAscii(std::string_view text);
/// True when the bytes are well-formed UTF-8 (lone surrogates and overlong forms are not).
bool isUtf8(std::string_view bytes);

/// Windows-1252 as Windows itself maps it: the five unused bytes stand for the C1 control of the same number.
std::string fromWindows1252(std::string_view bytes);
/// Empty when a character has no place in Windows-1252.
std::optional<std::string> toWindows1252(std::string_view utf8);

/// The text with every Latin, Greek and Cyrillic letter in the form that names are compared in.
/// The sharp s stays as it is, as in file names.
std::string foldCase(std::string_view utf8);
bool equalNoCase(std::string_view a, std::string_view b);

/// The order people expect of numbered names: digits count as numbers ("bild2" before "bild10"),
/// case does not count. Returns less than, equal to or greater than 0.
int compareNatural(std::string_view a, std::string_view b);
/// The places (from 0) of many texts in that order, equal ones in the order in which they stand: much quicker
/// than comparing them as often as sorting does.
std::vector<std::uint32_t> naturalOrder(const std::vector<std::string_view>& texts);

/// A decimal whole number with an optional sign and blanks around it; anything else, and anything that
/// does not fit, is empty.
std::optional<std::int32_t> parseInt32(std::string_view text);

/// The same, but an error for the caller: RuntimeError typeMismatch or overflow, whose description
/// begins with `what`.
std::int32_t toInt32(std::string_view text, std::string_view what);

/// To the nearest whole number, halves to the even one. RuntimeError overflow when it does not fit.
std::int32_t roundHalfEven(double value);

}  // namespace platform::text
