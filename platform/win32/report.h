#pragma once

namespace platform::win32 {

/// Shows the exception that is being handled to the user.
void reportError();

}  // namespace platform::win32
