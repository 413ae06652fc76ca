// Stands in for the suite's script kernel: writes what it receives, call by call, into kvKernel.log in the
// program directory, and a line into the output box as it runs.
//
// It refuses to start in a directory named "Verweigert", takes no parameter named "Verweigert", and fails
// with a script of that name. Built with KV_KERNEL_INCOMPLETE it lacks an entry point.
#include <fstream>
#include <string>

#include "platform/win32/windows.h"

namespace {

bool endsWith(const std::wstring& text, const std::wstring& end) {
    return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

struct Kernel {
    HWND box;
    std::wstring log;

    void note(const std::wstring& line) const {
        std::ofstream file(log.c_str(), std::ios::binary | std::ios::app);
        for (const wchar_t unit : line + L'\n')
            file.put(static_cast<char>(unit)).put(static_cast<char>(unit >> 8));
    }
};

}  // namespace

extern "C" {

__declspec(dllexport) void* WINAPI kvKernelCreate(HWND outputBox, const wchar_t* programDirectory) {
    const std::wstring directory = programDirectory;
    if (endsWith(directory, L"\\Verweigert")) return nullptr;
    auto* kernel = new Kernel{outputBox, directory + L"\\kvKernel.log"};
    kernel->note(L"Create " + std::to_wstring(reinterpret_cast<INT_PTR>(outputBox)) + L" " + directory);
    return kernel;
}

__declspec(dllexport) BOOL WINAPI
    kvKernelSetParameter(void* kernel, const wchar_t* name, const wchar_t* element, const wchar_t* value) {
    static_cast<Kernel*>(kernel)->note(std::wstring(name) + L"[" + element + L"]=" + value);
    return std::wstring(name) != L"Verweigert";
}

#ifndef KV_KERNEL_INCOMPLETE
__declspec(dllexport) BOOL WINAPI kvKernelRun(void* kernel, const wchar_t* script) {
    const auto& self = *static_cast<Kernel*>(kernel);
    self.note(std::wstring(L"Run ") + script);
    ::SendMessageW(self.box, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(L"Skript gelaufen\r\n"));
    return !endsWith(script, L"\\Verweigert.kvr");
}
#endif

__declspec(dllexport) void WINAPI kvKernelDestroy(void* kernel) {
    static_cast<Kernel*>(kernel)->note(L"Destroy");
    delete static_cast<Kernel*>(kernel);
}

}  // extern "C"
