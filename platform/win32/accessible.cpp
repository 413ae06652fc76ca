#include "platform/win32/accessible.h"

#include "platform/win32/handle.h"
#include "platform/win32/wide.h"

// They want <windows.h> and COM before them, and the identifiers made in this file.
#include <initguid.h>
#include <objbase.h>
#include <oleacc.h>

namespace platform::win32 {

void setAccessibleName(HWND window, const std::string& name) {
    IAccPropServices* found = nullptr;
    if (FAILED(CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER, IID_IAccPropServices,
                                reinterpret_cast<void**>(&found))))
        return;
    const UniqueCom<IAccPropServices> services(found);
    services.get()->SetHwndPropStr(window, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, PROPID_ACC_NAME,
                                   wide(name).c_str());
}

}  // namespace platform::win32
