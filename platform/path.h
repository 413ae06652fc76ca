#pragma once

#include <string>
#include <string_view>

/// Paths carry backslashes everywhere in the program; platform/files turns them into what the system
/// wants. On systems without drives the root of the file system is drive Z:, as Wine shows it, so that a
/// path written there means the same file to the editor.
namespace platform::path {

/// The part behind the last separator; the whole text when there is none.
std::string fileName(std::string_view path);
/// The part before the last separator, without it (but "C:\" keeps its own); empty when there is none.
std::string directory(std::string_view path);
/// The file name without its last ending; "a.b.bmp" gives "a.b", ".kvs" gives "".
std::string stem(std::string_view path);
/// The last ending with its dot, as spelled; empty when there is none.
std::string extension(std::string_view path);

/// With a backslash at the end, unless there is one already. The empty text gives "\".
std::string withBackslash(std::string_view path);
/// Directory and name with exactly one separator between them. An empty directory gives the name.
std::string join(std::string_view directory, std::string_view name);

/// Drive with root ("C:\a"), network share ("\\server\share\a") or rooted without a drive ("\a").
bool isAbsolute(std::string_view path);
/// Forward slashes become backslashes, doubled ones single (but for the two that start a share),
/// "." and ".." are resolved, blanks around it and a separator at its end go ("C:\" keeps its own).
std::string normalise(std::string_view path);

/// `path` as seen from the directory `base`, when it lies below it (case does not count); otherwise as it is.
std::string relativeTo(std::string_view path, std::string_view base);
/// A relative path joined to `base`; an absolute one as it is.
std::string resolve(std::string_view path, std::string_view base);

/// Whether Windows can store a file under this name: not empty, none of \ / : * ? " < > | nor a control
/// character, no dot or blank at its end, and not the name of a device (CON, NUL, COM1, ...).
bool isValidFileName(std::string_view name);

}  // namespace platform::path
