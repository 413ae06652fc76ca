#include "tests/support/memory.h"

#include <vector>

#include "platform/win32/handle.h"

// After <windows.h>, which it needs.
#include <psapi.h>

namespace support {

namespace {

/// What the system tells of every handle of every process; its own headers do not have it.
struct SystemHandle {
    void* object;
    ULONG_PTR process;
    ULONG_PTR value;
    ULONG access;
    USHORT trace, type;
    ULONG attributes, reserved;
};
struct SystemHandles {
    ULONG_PTR count, reserved;
    SystemHandle handles[1];
};

/// GetProcessHandleCount answers 0 under Wine.
int countOfSystem() {
    using Query = LONG(WINAPI*)(ULONG kind, void* answer, ULONG bytes, ULONG* needed);
    constexpr ULONG extendedHandleInformation = 64;
    constexpr auto tooSmall = static_cast<LONG>(0xC0000004);
    const HMODULE system = ::GetModuleHandleW(L"ntdll.dll");
    const auto query = reinterpret_cast<Query>(
        reinterpret_cast<void*>(::GetProcAddress(system, "NtQuerySystemInformation")));
    std::vector<ULONG_PTR> answer(1U << 14);
    const auto bytes = [&] { return static_cast<ULONG>(answer.size() * sizeof answer[0]); };
    LONG result = 0;
    while ((result = query(extendedHandleInformation, answer.data(), bytes(), nullptr)) == tooSmall)
        answer.resize(answer.size() * 2);
    if (result != 0) return -1;
    const auto& found = *reinterpret_cast<const SystemHandles*>(answer.data());
    int count = 0;
    for (ULONG_PTR i = 0; i < found.count; ++i)
        if (found.handles[i].process == ::GetCurrentProcessId()) ++count;
    return count;
}

PROCESS_MEMORY_COUNTERS counters() {
    PROCESS_MEMORY_COUNTERS found{};
    ::K32GetProcessMemoryInfo(::GetCurrentProcess(), &found, sizeof found);
    return found;
}

}  // namespace

Handles handles() {
    return {platform::win32::liveHandles(), countOfSystem()};
}

std::size_t memoryInUse() {
    return counters().PagefileUsage;
}

std::size_t mostMemory() {
    return counters().PeakWorkingSetSize;
}

}  // namespace support
