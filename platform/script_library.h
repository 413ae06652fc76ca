#pragma once

#include <memory>
#include <string>

#include "platform/basic_controls.h"

namespace platform {

/// The suite's script kernel, a library that may lie in the program directory: kvKernel.DLL, with the entry
/// points that docs/KERNEL.md describes. It writes its messages into a text box of ours.
class ScriptLibrary {
  public:
    static constexpr const char* fileName = "kvKernel.DLL";

    /// Null when the directory holds no such file. RuntimeError fileError when it holds one that cannot be
    /// used: it cannot be loaded, lacks an entry point, or refuses to start. The box must outlive the library.
    static std::unique_ptr<ScriptLibrary> load(const std::string& programDirectory, TextBox& outputBox);
    ~ScriptLibrary();
    ScriptLibrary(const ScriptLibrary&) = delete;
    ScriptLibrary& operator=(const ScriptLibrary&) = delete;

    /// Element `element` of the parameter `name`, for all runs from now on. False when the library refuses.
    bool setParameter(const std::string& name, const std::string& element, const std::string& value);
    /// Runs the script (a full path) to its end; false when the library says that it failed.
    bool run(const std::string& script);

    struct Native;   ///< the system's side of it, defined by each platform

  private:
    explicit ScriptLibrary(std::unique_ptr<Native> native);
    std::unique_ptr<Native> native_;
};

}  // namespace platform
