#include "platform/document.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <limits>

#include "platform/errors.h"
#include "platform/file_errors.h"
#include "platform/files.h"
#include "platform/text.h"

namespace platform {

namespace {

constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view littleEndianMark = "\xFF\xFE";
constexpr std::string_view bigEndianMark = "\xFE\xFF";

/// What Windows takes for blanks at the ends of a line, a key or a value; 0x1A once ended text files.
bool isBlank(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r') || c == '\x1A';
}

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
    return text;
}

bool isQuoted(std::string_view value) {
    return value.size() >= 2 && value.front() == value.back() &&
           (value.front() == '"' || value.front() == '\'');
}

/// The number of a key that is written as we write numbers; empty for every other key.
std::optional<std::uint32_t> keyNumber(std::string_view key) {
    static constexpr std::size_t longest = 9;  // digits that always fit
    if (key.empty() || key.size() > longest || (key[0] == '0' && key.size() > 1)) return std::nullopt;
    std::uint32_t number = 0;
    for (const char c : key) {
        if (c < '0' || c > '9') return std::nullopt;
        number = number * 10 + static_cast<std::uint32_t>(c - '0');
    }
    return number;
}

[[noreturn]] void refuse(const char* reason) {
    throw RuntimeError(error::fileError, reason);
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

std::string decoded(std::string bytes) {
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

bool isWellFormed(std::string_view value) {
    return text::isUtf8(value) || text::fromUtf16(text::toUtf16(value)) == value;  // lone surrogates are ours
}

}  // namespace

// Reading ------------------------------------------------------------------------------------------------

std::string_view ProfileDocument::Section::key(std::size_t index) const {
    return {text_->data() + entries_[index].keyStart, entries_[index].keyLength};
}

std::string_view ProfileDocument::Section::value(std::size_t index) const {
    return {text_->data() + entries_[index].valueStart, entries_[index].valueLength};
}

std::optional<std::string_view> ProfileDocument::Section::find(std::string_view key) const {
    const auto found = position(key);
    if (!found) return std::nullopt;
    return value(*found);
}

std::optional<std::string_view> ProfileDocument::Section::find(std::int32_t number) const {
    if (number >= 0 && static_cast<std::uint32_t>(number) - runFirst_ < runLength_)
        return value(runStart_ + (static_cast<std::uint32_t>(number) - runFirst_));
    return find(Decimal(number).text());
}

std::optional<std::size_t> ProfileDocument::Section::position(std::string_view wanted) const {
    if (const auto number = keyNumber(wanted); number && *number - runFirst_ < runLength_)
        return runStart_ + (*number - runFirst_);
    if (index_) {
        const auto found = index_->find(text::foldCase(wanted));
        return found == index_->end() ? std::nullopt : std::optional(found->second);
    }
    for (std::size_t i = outsideRun(0); i < entries_.size(); i = outsideRun(i + 1))
        if (text::equalNoCase(key(i), wanted)) return i;
    return std::nullopt;
}

/// This line, or the one behind the run when it stands in it.
std::size_t ProfileDocument::Section::outsideRun(std::size_t index) const {
    return index - runStart_ < runLength_ ? runStart_ + runLength_ : index;
}

/// Takes the line into account, once for each in their order.
void ProfileDocument::Section::noteRun(std::size_t index) {
    const auto number = keyNumber(key(index));
    if (index == 0 || !number || *number - lastFirst_ != index - lastStart_) {
        lastStart_ = number ? index : index + 1;
        lastFirst_ = number.value_or(0);
    }
    if (index + 1 - lastStart_ <= runLength_) return;
    runStart_ = lastStart_;
    runFirst_ = lastFirst_;
    runLength_ = index + 1 - lastStart_;
}

bool ProfileDocument::Section::hasRepetitions() const {
    for (std::size_t i = outsideRun(0); i < entries_.size(); i = outsideRun(i + 1))
        if (position(key(i)) != i) return true;
    return false;
}

void ProfileDocument::Section::removeRepetitions() {
    Index seen;
    std::erase_if(entries_, [&](const Entry& entry) {
        const std::string_view name(text_->data() + entry.keyStart, entry.keyLength);
        return !seen.emplace(text::foldCase(name), 0).second;
    });
    runLength_ = 0;
    for (std::size_t i = 0; i < entries_.size(); ++i) noteRun(i);
}

void ProfileDocument::Section::finish() {
    static constexpr std::size_t fewEnough = 16;  // to be searched one by one
    if (entries_.size() - runLength_ > fewEnough || hasRepetitions()) removeRepetitions();
    if (entries_.size() - runLength_ <= fewEnough) return;
    auto index = std::make_shared<Index>();
    for (std::size_t i = outsideRun(0); i < entries_.size(); i = outsideRun(i + 1))
        index->emplace(text::foldCase(key(i)), i);
    index_ = std::move(index);
}

struct ProfileDocument::Parser {
    ProfileDocument& document;
    Section* current = nullptr;  // null where lines belong to nothing

    void line(std::string_view line) {
        line = trimmed(line);
        if (line.empty() || line[0] == ';') return;
        const std::size_t closing = line[0] == '[' ? line.rfind(']') : std::string_view::npos;
        if (closing != std::string_view::npos)
            begin(line.substr(1, closing - 1));
        else if (current != nullptr)
            entry(line);
    }

    void begin(std::string_view name) {
        const std::size_t expected = current == nullptr ? 0 : current->size();
        finish();
        if (!document.index_.emplace(text::foldCase(name), document.sections_.size()).second) return;
        current = &document.sections_.emplace_back();
        current->name_ = name;
        current->text_ = document.text_.get();
        if (expected > 1000) current->entries_.reserve(expected);  // long sections have much the same length
    }

    void entry(std::string_view line) {
        const void* sign = std::memchr(line.data(), '=', line.size());
        if (sign == nullptr) return;
        const auto length = static_cast<std::size_t>(static_cast<const char*>(sign) - line.data());
        const std::string_view key = trimmed(line.substr(0, length));
        std::string_view value = trimmed(line.substr(length + 1));
        if (isQuoted(value)) value = value.substr(1, value.size() - 2);
        if (key.empty()) return;
        current->entries_.push_back({offset(key.data()), static_cast<std::uint32_t>(key.size()),
                                     offset(value.data()), static_cast<std::uint32_t>(value.size())});
        current->noteRun(current->size() - 1);
    }

    std::uint32_t offset(const char* at) const {
        return static_cast<std::uint32_t>(at - document.text_->data());
    }

    void finish() {
        if (current != nullptr) current->finish();
        current = nullptr;
    }
};

ProfileDocument::ProfileDocument() = default;
ProfileDocument::ProfileDocument(ProfileDocument&&) noexcept = default;
ProfileDocument& ProfileDocument::operator=(ProfileDocument&&) noexcept = default;
ProfileDocument::~ProfileDocument() = default;

ProfileDocument ProfileDocument::parse(std::string_view bytes) {
    return adopt(std::string(bytes));
}

ProfileDocument ProfileDocument::adopt(std::string bytes) {
    ProfileDocument document;
    document.text_ = std::make_unique<std::string>(decoded(std::move(bytes)));
    std::string_view rest = *document.text_;
    if (rest.find('\0') != std::string_view::npos) refuse("Der Inhalt ist kein Text.");
    if (rest.size() > std::numeric_limits<std::uint32_t>::max()) refuse("Der Text ist zu lang.");
    Parser parser{document};
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        parser.line(rest.substr(0, end));
        rest.remove_prefix(std::min(end + 1, rest.size()));
        ++document.lines_;
    }
    parser.finish();
    return document;
}

ProfileDocument ProfileDocument::load(std::string_view fileName) {
    std::string bytes = files::read(fileName);
    try {
        return adopt(std::move(bytes));
    } catch (const RuntimeError& problem) {
        throw files::cannotRead(fileName, false, problem.description());
    }
}

std::size_t ProfileDocument::sectionCount() const {
    return sections_.size();
}
const ProfileDocument::Section& ProfileDocument::section(std::size_t index) const {
    return sections_[index];
}
std::size_t ProfileDocument::lineCount() const {
    return lines_;
}

const ProfileDocument::Section* ProfileDocument::findSection(std::string_view name) const {
    for (std::size_t i = lastFound_; i < sections_.size() && i < lastFound_ + 2; ++i) {
        if (sections_[i].name_ != name) continue;
        lastFound_ = i;
        return &sections_[i];
    }
    const auto found = index_.find(text::foldCase(name));
    if (found == index_.end()) return nullptr;
    lastFound_ = found->second;
    return &sections_[lastFound_];
}

// Writing ------------------------------------------------------------------------------------------------

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
    text_.append(key).append("=").append(Decimal(value).text()).append("\r\n");
}

void ProfileWriter::set(std::int32_t key, std::string_view value) {
    set(Decimal(key).text(), value);
}
void ProfileWriter::set(std::int32_t key, std::int32_t value) {
    set(Decimal(key).text(), value);
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
    if (ascii_) return text_;
    auto ansi = text::toWindows1252(text_);
    return ansi && !text::isUtf8(*ansi) ? std::move(*ansi) : utf16Bytes(text_);
}

void ProfileWriter::store(std::string_view fileName) const {
    if (ascii_)
        files::replace(fileName, text_);  // spares a long text the copy
    else
        files::replace(fileName, bytes());
}

// One entry per call -------------------------------------------------------------------------------------

const ProfileDocument& ProfileFile::document() {
    if (!read_) read_ = ProfileDocument::load(fileName_);
    return *read_;
}

std::string_view ProfileFile::peek(std::string_view section, std::string_view key,
                                   std::string_view whenAbsent) {
    const auto* found = document().findSection(section);
    return found == nullptr ? whenAbsent : found->find(key).value_or(whenAbsent);
}

std::string ProfileFile::read(std::string_view section, std::string_view key, std::string_view whenAbsent) {
    return std::string(peek(section, key, whenAbsent));
}

std::size_t ProfileFile::lineCount() {
    return document().lineCount();
}

void ProfileFile::write(std::string_view section, std::string_view key, std::string_view value) {
    if (writing_ != section) written_.section(writing_ = section);
    written_.set(key, value);
}

void ProfileFile::write(std::string_view section, std::int32_t key, std::int32_t value) {
    if (writing_ != section) written_.section(writing_ = section);
    written_.set(key, value);
}

void ProfileFile::flush() {
    written_.store(fileName_);
    written_ = {};
    writing_.clear();
    read_.reset();  // the next look reads what is there now
}

}  // namespace platform
