#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace platform {

/// The one exception of this program: a number for programs and a German sentence for the user.
/// Nothing thrown leaves an event handler; at that edge it becomes a message box.
class RuntimeError : public std::runtime_error {
  public:
    RuntimeError(std::int32_t number, const std::string& description)
        : std::runtime_error(description), number_(number) {}

    std::int32_t number() const { return number_; }
    std::string description() const { return what(); }

  private:
    std::int32_t number_;
};

/// Numbers that callers may want to tell apart.
namespace error {
inline constexpr std::int32_t overflow = 6;              ///< a number does not fit into its type
inline constexpr std::int32_t subscriptOutOfRange = 9;   ///< an index or key that is not in the list
inline constexpr std::int32_t typeMismatch = 13;         ///< a text that should be a number is none
inline constexpr std::int32_t fileNotFound = 53;
inline constexpr std::int32_t fileError = 75;            ///< reading, writing or replacing a file failed
inline constexpr std::int32_t pathNotFound = 76;
inline constexpr std::int32_t duplicateKey = 457;        ///< a key is already in use
inline constexpr std::int32_t badPicture = 481;          ///< a picture that cannot be decoded
inline constexpr std::int32_t indexOutOfBounds = static_cast<std::int32_t>(0x80040001);
}  // namespace error

}  // namespace platform
