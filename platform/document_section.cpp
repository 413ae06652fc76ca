#include "platform/document.h"
#include "platform/document_text.h"
#include "platform/text.h"

namespace platform {

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
    if (number >= 0 && run_.has(wanted)) return value(run_.start + (wanted - run_.first));
    return find(profile::Decimal(number).text());
}

std::optional<std::size_t> ProfileDocument::Section::position(std::string_view wanted) const {
    if (const auto number = profile::keyNumber(wanted); number && run_.has(*number))
        return run_.start + (*number - run_.first);
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
    return index - run_.start < run_.length ? run_.start + run_.length : index;
}

bool ProfileDocument::Section::hasRepetitions() const {
    for (std::size_t i = outsideRun(0); i < entries_.size(); i = outsideRun(i + 1))
        if (position(key(i)) != i) return true;
    return false;
}

void ProfileDocument::Section::removeRepetitions() {
    Index seen;
    profile::RunFinder runs;
    std::vector<Entry> kept;
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        if (!seen.emplace(text::foldCase(key(i)), i).second) continue;
        kept.push_back(entries_[i]);
        runs.next(key(i));
    }
    entries_ = std::move(kept);
    run_ = runs.longest();
}

void ProfileDocument::Section::finish(const profile::KeyRun& longest) {
    run_ = longest;
    static constexpr std::size_t fewEnough = 16;  // to be searched one by one
    if (entries_.size() - run_.length > fewEnough || hasRepetitions()) removeRepetitions();
    if (entries_.size() - run_.length <= fewEnough) return;
    auto index = std::make_shared<Index>();
    for (std::size_t i = outsideRun(0); i < entries_.size(); i = outsideRun(i + 1))
        index->emplace(text::foldCase(key(i)), i);
    index_ = std::move(index);
}

}  // namespace platform
