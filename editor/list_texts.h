#pragma once

#include <cstdint>
#include <string>

namespace editor {

/// A file's size in whole kilobytes, rounded up, with dots between thousands: "1.024 KB".
std::string sizeText(std::uint64_t bytes);

/// A file's time in local time: "31.12.2024 23:59".
std::string dateText(std::int64_t secondsSince1970);

}  // namespace editor
