#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "kernel/script_kernel.h"
#include "platform/files.h"
#include "tests/support/temp_folder.h"

/// A folder with pictures, a kernel, and what it reported.
class ScriptRuns : public testing::Test {
  protected:
    bool run(const std::string& script) { return kernel_->run(script, parameters_); }
    /// The script that cuts out regions, as it is shipped.
    bool extract(const std::string& source, std::int32_t x, std::int32_t y, std::int32_t dX, std::int32_t dY,
                 const std::string& target) {
        parameters_.set("Parameter0", "0", "Rfile://" + source);
        parameters_.set("Parameter1", "0", std::to_string(x));
        parameters_.set("Parameter1", "1", std::to_string(y));
        parameters_.set("Parameter1", "4", std::to_string(dX));
        parameters_.set("Parameter1", "5", std::to_string(dY));
        parameters_.set("Parameter2", "0", "Wfile://" + target);
        return run(shipped);
    }
    /// What was reported since the last question.
    std::vector<std::string> reported() { return std::exchange(lines_, {}); }
    /// The one error that was reported since, without what every error begins with.
    std::string error(const std::string& script) {
        const auto lines = reported();
        const std::string begin = "Fehler in " + script + ": ";
        if (lines.empty() || !lines.back().starts_with(begin)) return "(no error)";
        return lines.back().substr(begin.size());
    }

    const std::string shipped = platform::files::fullPath(STICH_SOURCE_DIR "/res/Scripts/Extract.kvr");
    support::TempFolder folder_;
    kernel::Parameters parameters_;
    std::vector<std::string> lines_;
    std::unique_ptr<kernel::ScriptKernel> kernel_ =
        kernel::builtInKernel([this](const std::string& line) { lines_.push_back(line); });
};
