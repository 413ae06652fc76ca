#include "platform/registry.h"

#include <map>
#include <utility>

#include "platform/errors.h"
#include "platform/file_calls.h"
#include "platform/text.h"

namespace platform {

namespace {

using Values = std::map<std::pair<std::string, std::string>, std::string>;  // by section and key, folded

/// The user's settings, as long as the process lives: what one object writes the next one of that root reads.
std::map<std::string, Values>& store() {
    static std::map<std::string, Values> roots;
    return roots;
}

}  // namespace

struct Registry::Native {
    std::string root;
};

Registry::Registry(const std::string& root)
    : native_(std::make_unique<Native>(Native{text::foldCase(root)})) {}

Registry::~Registry() = default;

std::optional<std::string> Registry::read(const std::string& section, const std::string& key) const {
    const Values& values = store()[native_->root];
    const auto found = values.find({text::foldCase(section), text::foldCase(key)});
    if (found == values.end()) return std::nullopt;
    return found->second;
}

void Registry::write(const std::string& section, const std::string& key, const std::string& value) {
    using files::Fault;
    const Fault fault = files::faultAt(files::Call::setValue);
    if (fault == Fault::none || fault == Fault::replyLost)
        store()[native_->root][{text::foldCase(section), text::foldCase(key)}] = value;
    if (fault != Fault::none)
        throw RuntimeError(error::fileError, "Die Einstellungen können nicht geschrieben werden: Testfehler");
}

void Registry::removeAll() {
    store().erase(native_->root);
}

}  // namespace platform
