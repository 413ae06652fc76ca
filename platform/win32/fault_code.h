#pragma once

#include "platform/file_calls.h"
#include "platform/win32/windows.h"

namespace platform::win32 {

/// What the system answers to a call that fails so.
inline DWORD codeOf(files::Fault fault) {
    switch (fault) {
        case files::Fault::noSpace:
            return ERROR_DISK_FULL;
        case files::Fault::accessDenied:
            return ERROR_ACCESS_DENIED;
        case files::Fault::crash:
            return ERROR_PROCESS_ABORTED;
        default:
            return ERROR_NETNAME_DELETED;
    }
}

}  // namespace platform::win32
