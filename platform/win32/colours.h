#pragma once

namespace platform::win32 {

/// Whether the user has asked for colours that are told apart easily; then none but the system's own are
/// used.
bool isHighContrast();

}  // namespace platform::win32
