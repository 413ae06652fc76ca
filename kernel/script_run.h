#pragma once

#include <functional>
#include <memory>
#include <string>

#include "kernel/script.h"
#include "kernel/script_kernel.h"
#include "platform/picture.h"

namespace kernel {

/// What the commands of a script work with. What these functions throw ends the script.
struct Surroundings {
    /// The picture in a file, by its full path.
    std::function<std::shared_ptr<const platform::Raster>(const std::string& path)> read;
    /// Writes a whole file.
    std::function<void(const std::string& path, const std::string& content)> write;
    Output tell;
};

/// Runs it to its end, or to the first command that fails: RuntimeError with the line of the command.
void runScript(const Script& script, const Parameters& parameters, const Surroundings& surroundings);

}  // namespace kernel
