#pragma once

#include <memory>

namespace support {

/// A window of the suite, in this process, that counts how often it is told of a new set file.
class SuiteWindow {
  public:
    SuiteWindow();
    ~SuiteWindow();
    SuiteWindow(const SuiteWindow&) = delete;
    SuiteWindow& operator=(const SuiteWindow&) = delete;

    /// How often since it was last asked.
    int told();

    static constexpr const char* windowClass = "ThunderRT6FormDC";
    static constexpr unsigned setChanged = 1087;

  private:
    struct Native;
    std::unique_ptr<Native> native_;
};

}  // namespace support
