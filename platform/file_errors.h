#pragma once

#include <string>
#include <string_view>

#include "platform/errors.h"

/// What the user reads when a file operation fails, the same on every system. `reason` is the system's own.
namespace platform::files {

inline RuntimeError failure(std::int32_t number, const char* what, std::string_view path,
                            const char* happened, const std::string& reason) {
    return {number, what + (" \"" + std::string(path)) + "\" " + happened + ": " + reason};
}

inline RuntimeError cannotRead(std::string_view path, bool missing, const std::string& reason) {
    return failure(missing ? error::fileNotFound : error::fileError, "Die Datei", path,
                   missing ? "wurde nicht gefunden" : "kann nicht gelesen werden", reason);
}
inline RuntimeError cannotWrite(std::string_view path, const std::string& reason) {
    return failure(error::fileError, "Die Datei", path, "kann nicht geschrieben werden", reason);
}
inline RuntimeError cannotRemove(std::string_view path, const std::string& reason) {
    return failure(error::fileError, "Die Datei", path, "kann nicht gelöscht werden", reason);
}
inline RuntimeError cannotList(std::string_view path, const std::string& reason) {
    return failure(error::pathNotFound, "Das Verzeichnis", path, "kann nicht gelesen werden", reason);
}
inline RuntimeError cannotCreate(std::string_view path, const std::string& reason) {
    return failure(error::fileError, "Das Verzeichnis", path, "kann nicht angelegt werden", reason);
}

}  // namespace platform::files
