#include <string>
#include <vector>

#include "platform/console.h"
#include "platform/win32/wide.h"

/// German text comes out right whatever code page the console had; it gets its own back.
int wmain(int count, wchar_t** arguments) {
    const UINT before = GetConsoleOutputCP();
    SetConsoleOutputCP(CP_UTF8);
    std::vector<std::string> texts;
    for (int i = 1; i < count; ++i) texts.push_back(platform::narrow(arguments[i]));
    const int result = platform::consoleMain(texts);
    SetConsoleOutputCP(before);
    return result;
}
