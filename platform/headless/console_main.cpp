#include <string>
#include <vector>

#include "platform/console.h"

int main(int count, char** arguments) {
    return platform::consoleMain(std::vector<std::string>(arguments + 1, arguments + count));
}
