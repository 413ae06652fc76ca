#include <algorithm>
#include <charconv>

#include "platform/document.h"
#include "platform/document_text.h"
#include "platform/errors.h"
#include "platform/files.h"
#include "platform/text.h"

namespace platform {

using profile::Decimal;
using profile::isQuoted;
using profile::trimmed;

namespace {

bool isWellFormed(std::string_view value) {
    return text::isUtf8(value) || text::fromUtf16(text::toUtf16(value)) == value;  // lone surrogates are ours
}

}  // namespace

void ProfileWriter::section(std::string_view name) {
    section_ = name;
    ascii_ = ascii_ && text::isAscii(name);
    text_.append("[").append(name).append("]\r\n");
}

void ProfileWriter::set(std::string_view key, std::string_view value) {
    check(key, value);
    ascii_ = ascii_ && text::isAscii(key) && text::isAscii(value);
    const bool quoted = isQuoted(value) || trimmed(value).size() != value.size();
    text_.append(key).append(quoted ? "=\"" : "=").append(value).append(quoted ? "\"\r\n" : "\r\n");
}

void ProfileWriter::set(std::string_view key, std::int32_t value) {
    ascii_ = ascii_ && text::isAscii(key);
    text_.append(key).append("=").append(Decimal(value).text()).append("\r\n");
}

void ProfileWriter::set(std::int32_t key, std::string_view value) {
    set(Decimal(key).text(), value);
}

void ProfileWriter::set(std::int32_t key, std::int32_t value) {
    static constexpr std::size_t longest = 11;  // "-2147483648"
    char line[2 * longest + 3];                 // there are millions: each is appended in one piece
    char* end = std::to_chars(line, line + longest, key).ptr;
    *end++ = '=';
    end = std::to_chars(end, end + longest, value).ptr;
    *end++ = '\r';
    *end++ = '\n';
    text_.append(line, end);
}

void ProfileWriter::check(std::string_view key, std::string_view value) const {
    const auto isControl = [](char c) { return static_cast<unsigned char>(c) < 0x20 && c != '\t'; };
    const bool oneLine = std::none_of(value.begin(), value.end(), isControl);
    if (oneLine && isWellFormed(value)) return;
    throw RuntimeError(error::typeMismatch,
                       "Der Text im Abschnitt [" + section_ + "] unter \"" + std::string(key) + "\" " +
                           (oneLine ? "enthält Bytes, die kein Zeichen sind"
                                    : "enthält einen Zeilenumbruch oder ein anderes Steuerzeichen") +
                           " und kann so nicht gespeichert werden.");
}

std::string ProfileWriter::bytes() const {
    return ascii_ ? text_ : profile::encoded(text_);
}

void ProfileWriter::store(std::string_view fileName) const {
    if (ascii_)
        files::replace(fileName, text_);  // spares a long text the copy
    else
        files::replace(fileName, bytes());
}

}  // namespace platform
