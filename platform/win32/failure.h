#pragma once

#include "platform/errors.h"
#include "platform/win32/windows.h"

namespace platform::win32 {

/// Number of the RuntimeError for what Windows refuses without a fault of the user's.
inline constexpr std::int32_t systemError = 51;

/// Throws RuntimeError systemError with the system's own reason.
[[noreturn]] void failWith(const char* what, DWORD code);
[[noreturn]] void fail(const char* what);  ///< the reason is GetLastError()

/// The value, unless it is null or false. `what` begins the description: "Fenster anlegen".
template <class Value>
Value require(Value value, const char* what) {
    if (!value) fail(what);
    return value;
}

/// RuntimeError subscriptOutOfRange unless first <= index <= last.
void checkIndex(int index, int first, int last);

/// A COM call that must succeed.
void requireOk(HRESULT result, const char* what);

/// The system's text for a HRESULT.
std::string resultText(HRESULT result);

}  // namespace platform::win32
