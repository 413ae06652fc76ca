#include "platform/document_text.h"

#include <algorithm>
#include <limits>

#include "platform/errors.h"
#include "platform/text.h"

namespace platform::profile {

namespace {

constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view littleEndianMark = "\xFF\xFE";
constexpr std::string_view bigEndianMark = "\xFE\xFF";

[[noreturn]] void refuse(const char* reason) {
    throw RuntimeError(error::fileError, reason);
}

/// Only ASCII and no zero character. One pass, since the bytes of a long file do not stay in the cache.
bool isPlain(std::string_view bytes) {
    static constexpr std::size_t piece = 65536;
    for (; !bytes.empty(); bytes.remove_prefix(std::min(piece, bytes.size()))) {
        unsigned faults = 0;  // 0 has the top bit after subtracting one, all beyond ASCII had it before
        for (const char byte : bytes.substr(0, piece)) {
            const auto code = static_cast<unsigned char>(byte);
            faults |= static_cast<unsigned char>(code | (code - 1U));
        }
        if (faults & 0x80U) return false;
    }
    return true;
}

std::string fromUtf16Bytes(std::string_view bytes, bool bigEndian) {
    if (bytes.size() % 2 != 0) refuse("Der Text bricht mitten in einem Zeichen ab.");
    std::u16string units(bytes.size() / 2, u'\0');
    for (std::size_t i = 0; i < units.size(); ++i) {
        const auto first = static_cast<unsigned char>(bytes[2 * i]);
        const auto second = static_cast<unsigned char>(bytes[2 * i + 1]);
        units[i] = static_cast<char16_t>(bigEndian ? first << 8 | second : second << 8 | first);
    }
    return text::fromUtf16(units);
}

std::string withoutMark(std::string bytes) {
    const std::string_view view = bytes;
    if (view.starts_with(littleEndianMark)) return fromUtf16Bytes(view.substr(2), false);
    if (view.starts_with(bigEndianMark)) return fromUtf16Bytes(view.substr(2), true);
    if (view.starts_with(utf8Mark)) {
        if (!text::isUtf8(view)) refuse("Der Text ist kein gültiges UTF-8.");
        return bytes.erase(0, utf8Mark.size());
    }
    return text::isUtf8(view) ? std::move(bytes) : text::fromWindows1252(view);
}

std::string utf16Bytes(std::string_view text) {
    std::string bytes(littleEndianMark);
    const std::u16string units = text::toUtf16(text);
    bytes.reserve(bytes.size() + 2 * units.size());
    for (const char16_t unit : units) {
        bytes += static_cast<char>(unit & 0xFF);
        bytes += static_cast<char>(unit >> 8);
    }
    return bytes;
}

}  // namespace

std::string decoded(std::string bytes) {
    const bool plain = isPlain(bytes);
    std::string text = plain ? std::move(bytes) : withoutMark(std::move(bytes));
    if (!plain && text.find('\0') != std::string::npos) refuse("Der Inhalt ist kein Text.");
    if (text.size() > std::numeric_limits<std::uint32_t>::max()) refuse("Der Text ist zu lang.");
    return text;
}

std::string encoded(std::string_view text) {
    auto ansi = text::toWindows1252(text);
    return ansi && !text::isUtf8(*ansi) ? std::move(*ansi) : utf16Bytes(text);
}

}  // namespace platform::profile
