#include "platform/mnemonic.h"

namespace platform {

std::string withoutMnemonic(const std::string& text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '&' && ++i == text.size()) break;
        result += text[i];
    }
    return result;
}

std::string asMnemonic(const std::string& text) {
    std::string result;
    for (const char c : text) result.append(c == '&' ? 2 : 1, c);
    return result;
}

}  // namespace platform
