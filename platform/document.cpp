#include "platform/document.h"

#include <algorithm>

#include "platform/document_text.h"
#include "platform/errors.h"
#include "platform/file_errors.h"
#include "platform/files.h"
#include "platform/text.h"

namespace platform {

using profile::trimmed;

struct ProfileDocument::Parser {
    ProfileDocument& document;
    Section* current = nullptr;    // null where lines belong to nothing
    profile::RunFinder runs = {};  // of the current section

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
        const std::size_t sign = line.find('=');
        if (sign == std::string_view::npos) return;
        const std::string_view key = trimmed(line.substr(0, sign));
        std::string_view value = trimmed(line.substr(sign + 1));
        if (profile::isQuoted(value)) value = value.substr(1, value.size() - 2);
        if (key.empty()) return;
        current->entries_.push_back({static_cast<std::uint32_t>(value.data() - document.text_->data()),
                                     static_cast<std::uint32_t>(value.size())});
        runs.next(key);
    }

    void finish() {
        if (current != nullptr) current->finish(runs.longest());
        current = nullptr;
        runs = {};
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
    document.text_ = std::make_unique<std::string>(profile::decoded(std::move(bytes)));
    std::string_view rest = *document.text_;
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

}  // namespace platform
