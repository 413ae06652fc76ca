#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/basic_controls.h"

/// Scripts that work on picture files. Who runs one hands it its parameters and reads what it reports; a
/// script knows nothing of windows, sets or regions.
namespace kernel {

/// What a script is told: element e of parameter p is a text. Names compare without regard to case.
class Parameters {
  public:
    struct Entry {
        std::string name;
        std::string element;
        std::string value;
    };

    /// An element that is set again keeps its place.
    void set(const std::string& name, const std::string& element, const std::string& value);
    /// Empty when it was not set.
    std::string get(const std::string& name, const std::string& element) const;
    /// In the order in which they were set first, names as they were spelled then.
    const std::vector<Entry>& entries() const { return entries_; }

  private:
    std::vector<Entry> entries_;
};

/// Takes one line of what a kernel reports, without a line break.
using Output = std::function<void(const std::string& line)>;

/// Runs scripts, one after the other. Made once for many runs, as it may keep what they have in common.
class ScriptKernel {
  public:
    virtual ~ScriptKernel() = default;
    /// Runs the script (a full path) to its end. What it does and what goes wrong is reported, line by line;
    /// true when it ended well. Throws nothing of its own.
    virtual bool run(const std::string& script, const Parameters& parameters) = 0;
};

/// The suite's kernel, which writes into the output box itself, when the program directory holds a
/// kvKernel.DLL that can be used; else the one built in. A library that cannot be used is reported once.
/// The box must outlive the kernel.
std::unique_ptr<ScriptKernel> makeKernel(const std::string& programDirectory, platform::TextBox& outputBox,
                                         Output output);

/// The kernel that is built in: runs scripts of the language of docs/KERNEL.md.
std::unique_ptr<ScriptKernel> builtInKernel(Output output);

}  // namespace kernel
