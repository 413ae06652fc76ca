#include "platform/application.h"
#include "platform/win32/command_line.h"
#include "platform/win32/report.h"
#include "platform/win32/session.h"
#include "platform/win32/windows.h"
#include "shell/mStichMain.h"

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR commandLine, int) {
    try {
        const platform::win32::Session session;
        return shell::Main(platform::win32::commandLinePath(commandLine));
    } catch (...) {
        platform::win32::reportError();
        return 1;
    }
}
