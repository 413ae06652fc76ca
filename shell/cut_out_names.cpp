#include "shell/cut_out_names.h"

#include "platform/path.h"
#include "platform/text.h"

namespace shell {

namespace {

constexpr const char* ending = ".bmp";

std::string asFileName(std::string name) {
    for (char& c : name) {
        const bool isControl = static_cast<unsigned char>(c) < 0x20;
        if (isControl || std::string_view(R"(\/:*?"<>|)").find(c) != std::string_view::npos) c = '_';
    }
    return name;
}

}  // namespace

std::string CutOutNames::pathOf(const std::string& directory, const std::string& picture, std::int32_t region,
                                const std::string& regionName) {
    namespace path = platform::path;
    namespace text = platform::text;
    const std::string stem = asFileName(path::stem(picture) + '_' + regionName);
    const std::string owner = text::foldCase(picture) + '|' + std::to_string(region);
    for (int number = 1;; ++number) {
        const std::string name = number == 1 ? stem : stem + " (" + std::to_string(number) + ')';
        const std::string file = path::join(directory, name + ending);
        if (isPicture_(file)) continue;
        if (owners_.try_emplace(text::foldCase(name), owner).first->second == owner) return file;
    }
}

}  // namespace shell
