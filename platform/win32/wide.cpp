#include "platform/win32/wide.h"

#include <algorithm>
#include <array>

#include "platform/text.h"

namespace platform {

std::wstring wide(std::string_view utf8) {
    std::wstring result(utf8.begin(), utf8.end());
    if (std::all_of(utf8.begin(), utf8.end(), [](char c) { return static_cast<signed char>(c) >= 0; }))
        return result;
    const std::u16string units = text::toUtf16(utf8);
    result.assign(units.begin(), units.end());
    return result;
}

std::string narrow(std::wstring_view utf16) {
    if (std::all_of(utf16.begin(), utf16.end(), [](wchar_t c) { return c < 0x80; })) {
        std::string result(utf16.size(), '\0');
        std::transform(utf16.begin(), utf16.end(), result.begin(),
                       [](wchar_t c) { return static_cast<char>(c); });
        return result;
    }
    return text::fromUtf16(std::u16string(utf16.begin(), utf16.end()));
}

std::string lastErrorText(DWORD code) {
    std::array<wchar_t, 512> buffer{};
    const DWORD length = FormatMessageW(
        FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK, nullptr,
        code, 0, buffer.data(), static_cast<DWORD>(buffer.size()), nullptr);
    std::string message = narrow({buffer.data(), length});
    message.erase(message.find_last_not_of(" \r\n") + 1);
    return message.empty() ? "Fehler " + std::to_string(code) + "." : message;
}

}  // namespace platform
