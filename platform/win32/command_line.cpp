#include "platform/win32/command_line.h"

#include "platform/files.h"
#include "platform/win32/wide.h"

namespace platform::win32 {

std::string commandLinePath(std::wstring_view commandLine) {
    constexpr std::wstring_view blanks = L" \t";
    const std::size_t first = commandLine.find_first_not_of(blanks);
    if (first == std::wstring_view::npos) return {};
    commandLine.remove_prefix(first);
    commandLine = commandLine.substr(0, commandLine.find_last_not_of(blanks) + 1);
    if (commandLine.front() == L'"') {
        commandLine.remove_prefix(1);
        return narrow(commandLine.substr(0, commandLine.find(L'"')));
    }
    const std::string whole = narrow(commandLine);
    return files::fileExists(whole) ? whole
                                    : narrow(commandLine.substr(0, commandLine.find_first_of(blanks)));
}

}  // namespace platform::win32
