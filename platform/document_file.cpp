#include "platform/document.h"

namespace platform {

const ProfileDocument& ProfileFile::document() {
    if (!read_) read_ = ProfileDocument::load(fileName_);
    return *read_;
}

std::string_view ProfileFile::peek(std::string_view section, std::string_view key,
                                   std::string_view whenAbsent) {
    const auto* found = document().findSection(section);
    return found == nullptr ? whenAbsent : found->find(key).value_or(whenAbsent);
}

const ProfileDocument::Section* ProfileFile::section(std::string_view name) {
    return document().findSection(name);
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

}  // namespace platform
