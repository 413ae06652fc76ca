#include "platform/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <numeric>

#include "platform/errors.h"
#include "platform/text_tables.h"

namespace platform::text {

namespace {

constexpr char32_t replacement = 0xFFFD;

bool isHighSurrogate(char32_t c) {
    return c >= 0xD800 && c <= 0xDBFF;
}
bool isLowSurrogate(char32_t c) {
    return c >= 0xDC00 && c <= 0xDFFF;
}
bool isContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}
bool isDigit(char byte) {
    return byte >= '0' && byte <= '9';
}
char foldAscii(char byte) {
    return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + 32) : byte;
}

struct Decoded {
    char32_t character;
    std::size_t length;  ///< bytes; 0 when they are no character
};

/// Lone surrogates count as characters here.
Decoded decodeAt(std::string_view text, std::size_t at) {
    static constexpr std::array<char32_t, 5> least = {0, 0, 0x80, 0x800, 0x10000};
    const auto lead = static_cast<unsigned char>(text[at]);
    if (lead < 0x80) return {lead, 1};
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || text.size() - at < length) return {replacement, 0};
    char32_t character = lead & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if (!isContinuation(text[at + i])) return {replacement, 0};
        character = character << 6 | (static_cast<unsigned char>(text[at + i]) & 0x3FU);
    }
    if (character < least[length] || character > 0x10FFFF) return {replacement, 0};
    return {character, length};
}

void append(std::string& text, char32_t c) {
    const auto tail = [&](int shift) { text += static_cast<char>(0x80 | (c >> shift & 0x3F)); };
    if (c < 0x80) {
        text += static_cast<char>(c);
    } else if (c < 0x800) {
        text += static_cast<char>(0xC0 | c >> 6), tail(0);
    } else if (c < 0x10000) {
        text += static_cast<char>(0xE0 | c >> 12), tail(6), tail(0);
    } else {
        text += static_cast<char>(0xF0 | c >> 18), tail(12), tail(6), tail(0);
    }
}

std::optional<char> windows1252Byte(char32_t c) {
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return static_cast<char>(c);
    const auto* found = std::find(windows1252.begin(), windows1252.end(), c);
    if (found == windows1252.end()) return std::nullopt;
    return static_cast<char>(0x80 + (found - windows1252.begin()));
}

/// German lists put an umlaut beside its vowel: letters of Latin-1 sort as the letter below their mark.
char32_t sortLetter(char32_t folded) {
    static constexpr std::string_view letters = "aaaaaaaceeeeiiiidnooooo\xF7ouuuuypy";
    if (folded == 0xDF) return 's';
    if (folded < 0xE0 || folded > 0xFF || folded == 0xF7) return folded;
    return static_cast<unsigned char>(letters[folded - 0xE0]);
}

int sign(std::int64_t difference) {
    return difference < 0 ? -1 : difference > 0 ? 1 : 0;
}

std::string_view digitsAt(std::string_view text, std::size_t at) {
    std::size_t end = at;
    while (end < text.size() && isDigit(text[end])) ++end;
    return text.substr(at, end - at);
}

int compareNumbers(std::string_view a, std::string_view b) {
    a.remove_prefix(std::min(a.find_first_not_of('0'), a.size()));
    b.remove_prefix(std::min(b.find_first_not_of('0'), b.size()));
    if (a.size() != b.size()) return a.size() < b.size() ? -1 : 1;
    return sign(a.compare(b));
}

char32_t foldedAt(std::string_view text, std::size_t& at) {
    const auto [character, length] = decodeAt(text, at);
    at += std::max<std::size_t>(length, 1);
    return foldCharacter(character);
}

/// How many bytes both begin with, back to the start of a number or character that they do not share whole.
std::size_t sharedStart(std::string_view a, std::string_view b) {
    const auto first = std::mismatch(a.begin(), a.end(), b.begin(), b.end()).first;
    auto shared = static_cast<std::size_t>(first - a.begin());
    while (shared > 0 && (isDigit(a[shared - 1]) || static_cast<signed char>(a[shared - 1]) < 0)) --shared;
    return shared;
}

std::string_view trimmed(std::string_view text) {
    const auto isBlank = [](char c) { return c == ' ' || c == '\t'; };  // quicker than a search in a set
    while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
    return text;
}

enum class Number { good, none, tooBig };

Number parse(std::string_view text, std::int32_t& value) {
    text = trimmed(text);
    if (!text.empty() && text[0] == '+') {
        text.remove_prefix(1);
        if (!text.empty() && text[0] == '-') return Number::none;
    }
    const auto [end, problem] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (problem == std::errc::invalid_argument || end != text.data() + text.size()) return Number::none;
    return problem == std::errc() ? Number::good : Number::tooBig;
}

}  // namespace

std::string fromUtf16(std::u16string_view utf16) {
    std::string text;
    text.reserve(utf16.size());
    for (std::size_t i = 0; i < utf16.size(); ++i) {
        char32_t c = utf16[i];
        if (isHighSurrogate(c) && i + 1 < utf16.size() && isLowSurrogate(utf16[i + 1]))
            c = 0x10000 + ((c - 0xD800) << 10) + (utf16[++i] - 0xDC00U);
        append(text, c);
    }
    return text;
}

std::u16string toUtf16(std::string_view utf8) {
    std::u16string text;
    text.reserve(utf8.size());
    for (std::size_t i = 0; i < utf8.size();) {
        const auto [c, length] = decodeAt(utf8, i);
        i += std::max<std::size_t>(length, 1);
        if (c < 0x10000) {
            text += static_cast<char16_t>(c);
        } else {
            text += static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10));
            text += static_cast<char16_t>(0xDC00 + ((c - 0x10000) & 0x3FF));
        }
    }
    return text;
}

bool isAscii(std::string_view text) {
    std::size_t i = 0;
    for (std::uint64_t eight = 0; i + sizeof eight <= text.size(); i += sizeof eight) {
        std::memcpy(&eight, text.data() + i, sizeof eight);
        if (eight & 0x8080808080808080U) return false;
    }
    return std::all_of(text.begin() + static_cast<std::ptrdiff_t>(i), text.end(),
                       [](char c) { return static_cast<signed char>(c) >= 0; });
}

bool isUtf8(std::string_view bytes) {
    if (isAscii(bytes)) return true;
    for (std::size_t i = 0; i < bytes.size();) {
        const auto [c, length] = decodeAt(bytes, i);
        if (length == 0 || isHighSurrogate(c) || isLowSurrogate(c)) return false;
        i += length;
    }
    return true;
}

std::string fromWindows1252(std::string_view bytes) {
    if (isAscii(bytes)) return std::string(bytes);
    std::string text;
    text.reserve(bytes.size() + bytes.size() / 8);
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        append(text, code >= 0x80 && code < 0xA0 ? windows1252[code - 0x80U] : code);
    }
    return text;
}

std::optional<std::string> toWindows1252(std::string_view utf8) {
    if (isAscii(utf8)) return std::string(utf8);
    std::string bytes;
    bytes.reserve(utf8.size());
    for (std::size_t i = 0; i < utf8.size();) {
        const auto [c, length] = decodeAt(utf8, i);
        const auto byte = windows1252Byte(c);
        if (length == 0 || !byte) return std::nullopt;
        bytes += *byte;
        i += length;
    }
    return bytes;
}

std::string foldCase(std::string_view utf8) {
    std::string folded(utf8);
    std::transform(folded.begin(), folded.end(), folded.begin(), foldAscii);
    if (isAscii(folded)) return folded;
    folded.clear();
    for (std::size_t i = 0; i < utf8.size();) {
        const auto [c, length] = decodeAt(utf8, i);
        if (length == 0)
            folded += utf8[i];  // no character: kept, so that different names stay different
        else
            append(folded, foldCharacter(c));
        i += std::max<std::size_t>(length, 1);
    }
    return folded;
}

bool equalNoCase(std::string_view a, std::string_view b) {
    const std::size_t both = std::min(a.size(), b.size());
    for (std::size_t i = 0; i < both; ++i) {
        if (a[i] == b[i]) continue;
        const bool ascii = static_cast<signed char>(a[i]) >= 0 && static_cast<signed char>(b[i]) >= 0;
        if (ascii && foldAscii(a[i]) != foldAscii(b[i])) return false;
        if (ascii) continue;
        while (i > 0 && isContinuation(a[i])) --i;
        return foldCase(a.substr(i)) == foldCase(b.substr(i));
    }
    return a.size() == b.size();
}

int compareNatural(std::string_view a, std::string_view b) {
    std::size_t i = sharedStart(a, b);
    std::size_t j = i;
    int marks = 0;  // what decides when all letters and numbers are equal: umlauts, then leading zeros
    int zeros = 0;
    while (i < a.size() && j < b.size()) {
        if (isDigit(a[i]) && isDigit(b[j])) {
            const std::string_view left = digitsAt(a, i);
            const std::string_view right = digitsAt(b, j);
            if (const int order = compareNumbers(left, right)) return order;
            if (zeros == 0)
                zeros =
                    sign(static_cast<std::int64_t>(left.size()) - static_cast<std::int64_t>(right.size()));
            i += left.size();
            j += right.size();
            continue;
        }
        const char32_t left = foldedAt(a, i);
        const char32_t right = foldedAt(b, j);
        if (left == right) continue;
        if (const int order = sign(std::int64_t{sortLetter(left)} - std::int64_t{sortLetter(right)}))
            return order;
        if (marks == 0) marks = left < right ? -1 : 1;
    }
    if (i < a.size() || j < b.size()) return i < a.size() ? 1 : -1;
    return marks != 0 ? marks : zeros;
}

namespace {

/// Bytes that stand in the order of the text's letters and numbers. A number is a digit, as letters see it,
/// its length without leading zeros, and its digits.
void appendNaturalKey(std::string& key, std::string_view text) {
    for (std::size_t i = 0; i < text.size();) {
        if (isDigit(text[i])) {
            std::string_view digits = digitsAt(text, i);
            i += digits.size();
            digits.remove_prefix(std::min(digits.find_first_not_of('0'), digits.size()));
            key += '0';
            // In as many bytes for all, the highest first.
            for (int shift = 24; shift >= 0; shift -= 8)
                key += static_cast<char>(digits.size() >> shift & 0xFF);
            key += digits;
        } else if (static_cast<signed char>(text[i]) >= 0) {
            key += foldAscii(text[i++]);
        } else {
            append(key, sortLetter(foldedAt(text, i)));
        }
    }
}

}  // namespace

std::vector<std::uint32_t> naturalOrder(const std::vector<std::string_view>& texts) {
    std::vector<std::uint32_t> order(texts.size());
    std::iota(order.begin(), order.end(), 0U);
    const auto equalKeysBefore = [&](std::uint32_t a, std::uint32_t b) {
        const int natural = compareNatural(texts[a], texts[b]);
        return natural != 0 ? natural < 0 : a < b;
    };
    if (std::is_sorted(order.begin(), order.end(), equalKeysBefore))
        return order;  // as most folders are listed

    std::string keys;  // one behind the other: a text of its own for each would cost more than the sorting
    std::vector<std::size_t> starts;
    for (const std::string_view text : texts) {
        starts.push_back(keys.size());
        appendNaturalKey(keys, text);
    }
    starts.push_back(keys.size());
    const auto key = [&](std::uint32_t i) {
        return std::string_view(keys).substr(starts[i], starts[i + 1] - starts[i]);
    };
    std::sort(order.begin(), order.end(), [&](std::uint32_t a, std::uint32_t b) {
        const int difference = key(a).compare(key(b));
        return difference != 0 ? difference < 0 : equalKeysBefore(a, b);
    });
    return order;
}

std::optional<std::int32_t> parseInt32(std::string_view text) {
    std::int32_t value = 0;
    if (parse(text, value) != Number::good) return std::nullopt;
    return value;
}

std::int32_t toInt32(std::string_view text, std::string_view what) {
    std::int32_t value = 0;
    const Number outcome = parse(text, value);
    if (outcome == Number::good) return value;
    const std::string begin = std::string(what) + ": \"" + std::string(text) + "\" ist ";
    if (outcome == Number::tooBig)
        throw RuntimeError(error::overflow, begin + "als Zahl zu groß oder zu klein.");
    throw RuntimeError(error::typeMismatch, begin + "keine ganze Zahl.");
}

std::int32_t roundHalfEven(double value) {
    const double rounded = std::nearbyint(value);  // the default rounding mode does it
    if (!(rounded >= std::numeric_limits<std::int32_t>::min() &&
          rounded <= std::numeric_limits<std::int32_t>::max()))
        throw RuntimeError(error::overflow, "Die Zahl ist zu groß.");
    return static_cast<std::int32_t>(rounded);
}

}  // namespace platform::text
