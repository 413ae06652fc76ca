#include "platform/win32/session.h"

#include "platform/win32/failure.h"

// After <windows.h>, which they need.
#include <commctrl.h>
#include <ole2.h>

namespace platform::win32 {

Session::Session() {
    requireOk(OleInitialize(nullptr), "COM starten");
    INITCOMMONCONTROLSEX classes{};
    classes.dwSize = sizeof classes;
    classes.dwICC = ICC_WIN95_CLASSES | ICC_STANDARD_CLASSES;
    require(InitCommonControlsEx(&classes), "Steuerelemente laden");
}

Session::~Session() {
    OleUninitialize();
}

}  // namespace platform::win32
