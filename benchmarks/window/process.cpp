#include "benchmarks/window/process.h"

#include <array>
#include <stdexcept>

#include "platform/win32/wide.h"
#include "platform/win32/windows.h"

#include <psapi.h>

namespace measure {

using platform::wide;

namespace {

constexpr DWORD patience = 120000;  // milliseconds

PROCESS_MEMORY_COUNTERS counters() {
    PROCESS_MEMORY_COUNTERS found{};
    ::GetProcessMemoryInfo(::GetCurrentProcess(), &found, sizeof found);
    return found;
}

double megabytes(std::size_t bytes) {
    return static_cast<double>(bytes) / 1048576;
}

}  // namespace

Child::Child(const std::vector<std::string>& arguments) {
    std::array<wchar_t, 1024> program{};
    ::GetModuleFileNameW(nullptr, program.data(), static_cast<DWORD>(program.size()));
    std::wstring line = L'"' + std::wstring(program.data()) + L'"';
    for (const std::string& argument : arguments) line += L" \"" + wide(argument) + L'"';
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    if (!::CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup,
                          &process))
        throw std::runtime_error("the child was not started");
    ::CloseHandle(process.hThread);
    process_ = process.hProcess;
}

Child::~Child() {
    ::CloseHandle(process_);
}

void Child::wait() {
    DWORD code = 1;
    if (::WaitForSingleObject(process_, patience) != WAIT_OBJECT_0) ::TerminateProcess(process_, 1);
    ::GetExitCodeProcess(process_, &code);
    if (code != 0) throw std::runtime_error("the child failed");
}

Signal::Signal(const std::string& name) : event_(::CreateEventW(nullptr, FALSE, FALSE, wide(name).c_str())) {
    if (event_ == nullptr) throw std::runtime_error("no event");
}

Signal::~Signal() {
    ::CloseHandle(event_);
}

void Signal::give() {
    ::SetEvent(event_);
}

void Signal::await() {
    if (::WaitForSingleObject(event_, patience) != WAIT_OBJECT_0) throw std::runtime_error("no signal");
}

double memoryNow() {
    return megabytes(counters().WorkingSetSize);
}

double memoryPeak() {
    return megabytes(counters().PeakWorkingSetSize);
}

}  // namespace measure
