#pragma once

namespace platform {

/// Sets a flag as long as it lives, and then gives it back its former value: they nest.
class Flagged {
  public:
    explicit Flagged(bool& flag) : flag_(flag), before_(flag) { flag_ = true; }
    ~Flagged() { flag_ = before_; }
    Flagged(const Flagged&) = delete;
    Flagged& operator=(const Flagged&) = delete;

  private:
    bool& flag_;
    bool before_;
};

}  // namespace platform
