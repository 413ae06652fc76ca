#include "editor/set_file.h"

namespace editor {

namespace files = platform::files;

bool SetFile::isReplaced() const {
    const auto found = files::version(path);
    return found && found != version;
}

// A file that others write all the time has a version that nobody knows.
LoadedSet SetFile::read(const std::string& appPath) {
    constexpr int attempts = 5;
    for (int attempt = 1;; ++attempt) {
        version = files::version(path);
        LoadedSet loaded = readSet(path, appPath);
        if (files::version(path) == version) return loaded;
        version.reset();
        if (attempt == attempts) return loaded;
    }
}

}  // namespace editor
