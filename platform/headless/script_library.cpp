#include "platform/script_library.h"

/// Libraries of Windows cannot be loaded here, so there is never one.
namespace platform {

struct ScriptLibrary::Native {};

ScriptLibrary::ScriptLibrary(std::unique_ptr<Native> native) : native_(std::move(native)) {}
ScriptLibrary::~ScriptLibrary() = default;

std::unique_ptr<ScriptLibrary> ScriptLibrary::load(const std::string&, TextBox&) {
    return nullptr;
}

bool ScriptLibrary::setParameter(const std::string&, const std::string&, const std::string&) {
    return false;
}

bool ScriptLibrary::run(const std::string&) {
    return false;
}

}  // namespace platform
