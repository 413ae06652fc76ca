#include "platform/path.h"

#include <algorithm>
#include <array>
#include <vector>

#include "platform/text.h"

namespace platform::path {

namespace {

constexpr std::string_view separators = "\\/";

bool isSeparator(char c) {
    return c == '\\' || c == '/';
}

bool startsWithDrive(std::string_view path) {
    return path.size() >= 2 && path[1] == ':' &&
           ((path[0] >= 'A' && path[0] <= 'Z') || (path[0] >= 'a' && path[0] <= 'z'));
}

bool startsWithShare(std::string_view path) {
    return path.size() >= 2 && isSeparator(path[0]) && isSeparator(path[1]);
}

std::vector<std::string_view> components(std::string_view path) {
    std::vector<std::string_view> found;
    while (!path.empty()) {
        const std::size_t end = std::min(path.find_first_of(separators), path.size());
        if (end > 0) found.push_back(path.substr(0, end));
        path.remove_prefix(std::min(end + 1, path.size()));
    }
    return found;
}

std::string_view withoutBlanks(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

/// "\\?\" before a drive or "UNC\" only switches off what Windows does to a path; it is the same one without.
std::string withoutVerbatimPrefix(std::string_view path) {
    static constexpr std::string_view prefix = R"(\\?\)";
    static constexpr std::string_view share = R"(UNC\)";
    const std::string_view rest = path.substr(path.starts_with(prefix) ? prefix.size() : path.size());
    if (startsWithDrive(rest)) return std::string(rest);
    if (text::equalNoCase(rest.substr(0, share.size()), share))
        return R"(\\)" + std::string(rest.substr(share.size()));
    return std::string(path);
}

/// Splits off what ".." cannot leave: "C:\", "\\server\share\" or "\"; empty for a relative path.
std::string takeRoot(std::string_view& path) {
    if (startsWithDrive(path)) {
        const bool rooted = path.size() > 2 && isSeparator(path[2]);
        std::string root(path.substr(0, 2));
        path.remove_prefix(rooted ? 3 : 2);
        return rooted ? root + '\\' : root;
    }
    if (startsWithShare(path)) {
        const std::vector<std::string_view> parts = components(path);
        if (parts.empty()) return {};
        if (parts.size() == 1) {
            path = {};
            return R"(\\)" + std::string(parts[0]);
        }
        const char* end = parts[1].data() + parts[1].size();
        path.remove_prefix(static_cast<std::size_t>(end - path.data()));
        return R"(\\)" + std::string(parts[0]) + '\\' + std::string(parts[1]) + '\\';
    }
    if (path.empty() || !isSeparator(path[0])) return {};
    path.remove_prefix(1);
    return "\\";
}

bool isDevice(std::string_view name) {
    static constexpr std::array plain = {"CON", "PRN", "AUX", "NUL", "CONIN$", "CONOUT$"};
    static constexpr std::array digits = {"1", "2", "3", "4", "5", "6", "7", "8", "9", "¹", "²", "³"};
    const std::string_view base = withoutBlanks(name.substr(0, name.find('.')));
    const auto isBase = [&](std::string_view device) { return text::equalNoCase(base, device); };
    if (std::any_of(plain.begin(), plain.end(), isBase)) return true;
    const std::string_view kind = base.substr(0, 3);
    if (!text::equalNoCase(kind, "COM") && !text::equalNoCase(kind, "LPT")) return false;
    return std::find(digits.begin(), digits.end(), base.substr(3)) != digits.end();
}

}  // namespace

std::string fileName(std::string_view path) {
    const std::size_t last = path.find_last_of(separators);
    return std::string(last == std::string_view::npos ? path : path.substr(last + 1));
}

std::string directory(std::string_view path) {
    const std::size_t last = path.find_last_of(separators);
    if (last == std::string_view::npos) return {};
    const bool root = last == 0 || (last == 2 && startsWithDrive(path));
    return std::string(path.substr(0, root ? last + 1 : last));
}

std::string stem(std::string_view path) {
    const std::string name = fileName(path);
    return name.substr(0, name.rfind('.'));
}

std::string extension(std::string_view path) {
    const std::string name = fileName(path);
    const std::size_t dot = name.rfind('.');
    return dot == std::string::npos ? std::string() : name.substr(dot);
}

std::string withBackslash(std::string_view path) {
    std::string result(path);
    if (result.empty() || !isSeparator(result.back())) result += '\\';
    return result;
}

std::string join(std::string_view directory, std::string_view name) {
    if (directory.empty()) return std::string(name);
    while (!name.empty() && isSeparator(name[0])) name.remove_prefix(1);
    std::string result;
    result.reserve(directory.size() + 1 + name.size());
    result = directory;
    if (!isSeparator(result.back())) result += '\\';
    return result += name;
}

bool isAbsolute(std::string_view path) {
    if (!path.empty() && isSeparator(path[0])) return true;
    return startsWithDrive(path) && path.size() > 2 && isSeparator(path[2]);
}

std::string normalise(std::string_view path) {
    const std::string whole = withoutVerbatimPrefix(withoutBlanks(path));
    std::string_view rest = whole;
    std::string result = takeRoot(rest);
    std::vector<std::string_view> kept;
    for (const std::string_view part : components(rest)) {
        if (part == ".") continue;
        const bool up = part == "..";
        if (up && !kept.empty() && kept.back() != "..")
            kept.pop_back();
        else if (!up || result.empty())
            kept.push_back(part);
    }
    const std::size_t rootLength = result.size();
    for (const std::string_view part : kept) {
        if (result.size() > rootLength) result += '\\';
        result += part;
    }
    if (kept.empty() && startsWithShare(result) && isSeparator(result.back())) result.pop_back();
    if (result.empty() && !whole.empty()) return ".";
    return result;
}

std::string relativeTo(std::string_view path, std::string_view base) {
    while (!base.empty() && isSeparator(base.back())) base.remove_suffix(1);
    if (base.empty()) return std::string(path);
    // A capital letter may take another number of bytes than its small one: as many separators, not bytes.
    std::size_t end = 0;
    for (auto left = std::count_if(base.begin(), base.end(), isSeparator); end < path.size(); ++end)
        if (isSeparator(path[end]) && left-- == 0) break;
    if (end + 1 >= path.size() || !text::equalNoCase(path.substr(0, end), base)) return std::string(path);
    const std::string_view rest = path.substr(end + 1);
    return std::string(isAbsolute(rest) ? path : rest);
}

std::string resolve(std::string_view path, std::string_view base) {
    return isAbsolute(path) ? std::string(path) : join(base, path);
}

bool isValidFileName(std::string_view name) {
    static constexpr std::string_view forbidden = "\\/:*?\"<>|";
    static constexpr std::size_t longest = 255;  // UTF-16 units
    const auto isForbidden = [](char c) {
        return static_cast<unsigned char>(c) < 0x20 || forbidden.find(c) != std::string_view::npos;
    };
    if (name.empty() || name.back() == '.' || name.back() == ' ') return false;
    if (std::any_of(name.begin(), name.end(), isForbidden) || isDevice(name)) return false;
    return text::toUtf16(name).size() <= longest;
}

}  // namespace platform::path
