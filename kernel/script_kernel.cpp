#include "kernel/script_kernel.h"

#include "platform/errors.h"
#include "platform/script_library.h"
#include "platform/text.h"

namespace kernel {

namespace {

/// The suite's kernel. What a script reports goes into the box, and only what keeps it from running to
/// `output`.
class LibraryKernel : public ScriptKernel {
  public:
    LibraryKernel(std::unique_ptr<platform::ScriptLibrary> library, Output output)
        : library_(std::move(library)), output_(std::move(output)) {}

    bool run(const std::string& script, const Parameters& parameters) override {
        for (const auto& [name, element, value] : parameters.entries()) {
            if (library_->setParameter(name, element, value)) continue;
            output_(std::string(platform::ScriptLibrary::fileName) + " nimmt " + name + "[" + element +
                    "] nicht an.");
            return false;
        }
        return library_->run(script);
    }

  private:
    std::unique_ptr<platform::ScriptLibrary> library_;
    Output output_;
};

bool names(const Parameters::Entry& entry, const std::string& name, const std::string& element) {
    return platform::text::equalNoCase(entry.name, name) &&
           platform::text::equalNoCase(entry.element, element);
}

}  // namespace

void Parameters::set(const std::string& name, const std::string& element, const std::string& value) {
    for (Entry& entry : entries_)
        if (names(entry, name, element)) {
            entry.value = value;
            return;
        }
    entries_.push_back({name, element, value});
}

std::string Parameters::get(const std::string& name, const std::string& element) const {
    for (const Entry& entry : entries_)
        if (names(entry, name, element)) return entry.value;
    return {};
}

std::unique_ptr<ScriptKernel> makeKernel(const std::string& programDirectory, platform::TextBox& outputBox,
                                         Output output) {
    try {
        if (auto library = platform::ScriptLibrary::load(programDirectory, outputBox))
            return std::make_unique<LibraryKernel>(std::move(library), std::move(output));
    } catch (const platform::RuntimeError& error) {
        output(error.description() + " Der eingebaute Kern führt die Skripte aus.");
    }
    return builtInKernel(std::move(output));
}

}  // namespace kernel
