#include <new>
#include <optional>

#include "kernel/script_kernel.h"
#include "kernel/script_run.h"
#include "platform/document_text.h"
#include "platform/errors.h"
#include "platform/files.h"
#include "platform/path.h"
#include "platform/text.h"

namespace kernel {

namespace {

/// Nobody writes longer ones; a wrong file should not fill the memory.
constexpr std::uint64_t longestScript = 1 << 20;

std::string scriptText(const std::string& path) {
    const auto version = platform::files::version(path);
    if (version && version->size > longestScript)
        throw platform::RuntimeError(platform::error::fileError, "Das Skript ist zu lang.");
    return platform::profile::decoded(platform::files::read(path));
}

/// What came in from files and parameters must not break a line into two or fill the screen.
std::string asOneLine(std::string text) {
    constexpr std::size_t longest = 1000;
    if (text.size() > longest) {
        std::size_t end = longest;
        while (end > 0 && (text[end] & 0xC0) == 0x80) --end;  // not within a character
        text.replace(end, std::string::npos, "...");
    }
    for (char& c : text)
        if (static_cast<unsigned char>(c) < ' ') c = ' ';
    return text;
}

class BuiltInKernel : public ScriptKernel {
  public:
    explicit BuiltInKernel(Output output) : output_(std::move(output)) {}

    bool run(const std::string& script, const Parameters& parameters) override {
        const std::string failed = "Fehler in " + platform::path::fileName(script) + ": ";
        try {
            runScript(parseScript(scriptText(script)), parameters, surroundings_);
            return true;
        } catch (const platform::RuntimeError& error) {
            surroundings_.tell(failed + error.description());
        } catch (const std::bad_alloc&) {
            surroundings_.tell(failed + "Der Arbeitsspeicher reicht nicht aus.");
        }
        return false;
    }

  private:
    /// The last picture that was decoded; the script is run for one region after the other.
    struct Kept {
        std::string path;
        platform::files::Version version;
        std::shared_ptr<const platform::Raster> raster;
    };

    std::shared_ptr<const platform::Raster> read(const std::string& path) {
        const auto version = platform::files::version(path);
        if (kept_ && version == kept_->version && platform::text::equalNoCase(path, kept_->path))
            return kept_->raster;
        kept_.reset();
        auto raster = std::make_shared<const platform::Raster>(platform::readRaster(path));
        surroundings_.tell("Gelesen: " + path + " (" + std::to_string(raster->size.width) + " x " +
                           std::to_string(raster->size.height) + ", " + std::to_string(raster->bitsPerPixel) +
                           " Bit)");
        if (version) kept_ = {path, *version, raster};
        return raster;
    }

    Output output_;
    std::optional<Kept> kept_;
    const Surroundings surroundings_{
        [this](const std::string& path) { return read(path); },
        [](const std::string& path, const std::string& content) { platform::files::replace(path, content); },
        [this](const std::string& line) { output_(asOneLine(line)); }};
};

}  // namespace

std::unique_ptr<ScriptKernel> builtInKernel(Output output) {
    return std::make_unique<BuiltInKernel>(std::move(output));
}

}  // namespace kernel
