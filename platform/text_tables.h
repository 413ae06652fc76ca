#pragma once

#include <array>

/// What text.cpp looks up about single characters.
namespace platform::text {

/// What the bytes 0x80 to 0x9F of Windows-1252 stand for.
extern const std::array<char16_t, 32> windows1252;

/// The letter in the form that names are compared in; every other character as it is.
char32_t foldCharacter(char32_t character);

}  // namespace platform::text
