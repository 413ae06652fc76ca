#pragma once

namespace editor {

/// The registered messages of the suite's protocol. The editor finds windows by the first; the second
/// belongs to the same family and is neither sent nor received here.
inline constexpr const char* suiteMessages = "Veltor Messages F77BD810-5557-11d3-9B5B-16E619000000";
inline constexpr const char* suiteMessageStrings =
    "Veltor Message String F77BD810-5557-11d3-9B5B-16E619000000";

/// Tells the suite's main windows that a new set file has been written; returns 0 once all of them have
/// taken notice.
int NotifySuite();

}  // namespace editor
