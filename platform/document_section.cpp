#include "platform/document.h"
#include "platform/document_text.h"
#include "platform/text.h"

namespace platform {

namespace {

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

}  // namespace

std::string_view ProfileDocument::Section::key(std::size_t index) const {
    const std::string_view before(text_->data(), entries_[index].start);
    const std::string_view line = before.substr(before.rfind('\n') + 1);
    return profile::trimmed(line.substr(0, line.find('=')));
}

std::string_view ProfileDocument::Section::value(std::size_t index) const {
    return {text_->data() + entries_[index].start, entries_[index].length};
}

std::optional<std::string_view> ProfileDocument::Section::find(std::string_view key) const {
    const auto found = position(key);
    if (!found) return std::nullopt;
    return value(*found);
}

std::optional<std::string_view> ProfileDocument::Section::find(std::int32_t number) const {
    const auto wanted = static_cast<std::uint32_t>(number);
    if (number >= 0 && longest_.has(wanted)) return value(longest_.start + (wanted - longest_.first));
    return find(profile::Decimal(number).text());
}

std::optional<std::size_t> ProfileDocument::Section::position(std::string_view wanted) const {
    if (const auto number = keyNumber(wanted); number && longest_.has(*number))
        return longest_.start + (*number - longest_.first);
    if (index_) {
        const auto found = index_->find(text::foldCase(wanted));
        return found == index_->end() ? std::nullopt : std::optional(found->second);
    }
    for (std::size_t i = outsideRun(0); i < entries_.size(); i = outsideRun(i + 1))
        if (text::equalNoCase(key(i), wanted)) return i;
    return std::nullopt;
}

/// This line, or the one behind the longest run when it stands in it.
std::size_t ProfileDocument::Section::outsideRun(std::size_t index) const {
    return index - longest_.start < longest_.length ? longest_.start + longest_.length : index;
}

/// `value` lies in the text.
void ProfileDocument::Section::append(std::string_view key, std::string_view value) {
    entries_.push_back({static_cast<std::uint32_t>(value.data() - text_->data()),
                        static_cast<std::uint32_t>(value.size())});
    noteRun(entries_.size() - 1, key);
}

/// Takes the line into account, once for each in their order.
void ProfileDocument::Section::noteRun(std::size_t index, std::string_view key) {
    const auto number = keyNumber(key);
    if (number && last_.length > 0 && *number == last_.first + last_.length)
        ++last_.length;
    else
        last_ = number ? Run{index, 1, *number} : Run{};
    if (last_.length > longest_.length) longest_ = last_;
}

bool ProfileDocument::Section::hasRepetitions() const {
    for (std::size_t i = outsideRun(0); i < entries_.size(); i = outsideRun(i + 1))
        if (position(key(i)) != i) return true;
    return false;
}

void ProfileDocument::Section::removeRepetitions() {
    Index seen;
    std::vector<Entry> kept;
    for (std::size_t i = 0; i < entries_.size(); ++i)
        if (seen.emplace(text::foldCase(key(i)), i).second) kept.push_back(entries_[i]);
    entries_ = std::move(kept);
    longest_ = last_ = {};
    for (std::size_t i = 0; i < entries_.size(); ++i) noteRun(i, key(i));
}

void ProfileDocument::Section::finish() {
    static constexpr std::size_t fewEnough = 16;  // to be searched one by one
    if (entries_.size() - longest_.length > fewEnough || hasRepetitions()) removeRepetitions();
    if (entries_.size() - longest_.length <= fewEnough) return;
    auto index = std::make_shared<Index>();
    for (std::size_t i = outsideRun(0); i < entries_.size(); i = outsideRun(i + 1))
        index->emplace(text::foldCase(key(i)), i);
    index_ = std::move(index);
}

}  // namespace platform
