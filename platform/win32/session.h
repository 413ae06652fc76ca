#pragma once

namespace platform::win32 {

/// What windows want done once on their thread before the first one is made: COM in a single-threaded
/// apartment (the decoder and the dialogs ask for it) and the classes of the common controls.
class Session {
  public:
    Session();
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;
};

}  // namespace platform::win32
