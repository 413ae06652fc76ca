#include "editor/list_texts.h"

#include <array>
#include <ctime>

namespace editor {

std::string sizeText(std::uint64_t bytes) {
    std::string digits = std::to_string((bytes + 1023) / 1024);
    for (std::size_t place = digits.size(); place > 3;) digits.insert(place -= 3, ".");
    return digits + " KB";
}

std::string dateText(std::int64_t secondsSince1970) {
    const auto time = static_cast<std::time_t>(secondsSince1970);
    const std::tm* local = std::localtime(&time);  // one user-interface thread, so its buffer is ours
    if (local == nullptr) return {};
    std::array<char, 32> text{};
    return {text.data(), std::strftime(text.data(), text.size(), "%d.%m.%Y %H:%M", local)};
}

}  // namespace editor
