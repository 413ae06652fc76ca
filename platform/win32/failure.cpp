#include "platform/win32/failure.h"

#include <string>

#include "platform/win32/wide.h"

namespace platform::win32 {

void failWith(const char* what, DWORD code) {
    throw RuntimeError(systemError, std::string(what) + ": " + lastErrorText(code));
}

void fail(const char* what) {
    failWith(what, GetLastError());
}

void checkIndex(int index, int first, int last) {
    if (index < first || index > last)
        throw RuntimeError(error::subscriptOutOfRange, "Index außerhalb des gültigen Bereichs.");
}

void requireOk(HRESULT result, const char* what) {
    if (FAILED(result)) throw RuntimeError(systemError, std::string(what) + ": " + resultText(result));
}

std::string resultText(HRESULT result) {
    const bool wrapped = HRESULT_FACILITY(result) == FACILITY_WIN32;
    return lastErrorText(wrapped ? static_cast<DWORD>(HRESULT_CODE(result)) : static_cast<DWORD>(result));
}

}  // namespace platform::win32
