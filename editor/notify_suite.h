#pragma once

namespace editor {

/// Tells the suite's main windows that a new set file has been written; returns 0 once all of them have
/// taken notice.
int NotifySuite();

}  // namespace editor
