#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Files and directories by path. Long paths, network shares and names of any letters work; case does not
/// count when a name is looked up. Operations that can fail throw RuntimeError with a German description
/// that ends in the system's own reason; queries answer false or empty.
namespace platform::files {

struct Entry {
    std::string name;
    bool isDirectory = false;
    std::uint64_t size = 0;       ///< bytes
    std::int64_t modified = 0;    ///< seconds since 1970-01-01 UTC
};

bool exists(std::string_view path);            ///< a file or a directory
bool fileExists(std::string_view path);
bool directoryExists(std::string_view path);

/// One state of a file: while it is the same, so is the content. Only to be compared.
struct Version {
    std::uint64_t size = 0;
    std::int64_t changed = 0;
    friend bool operator==(const Version&, const Version&) = default;
};
/// Empty when there is no such file.
std::optional<Version> version(std::string_view path);

/// Asked now and then while something goes on, with what is done by then (of a listing the number of its
/// entries so far); false ends it.
using Continue = std::function<bool(std::size_t done)>;
/// All entries but "." and "..", in no particular order. RuntimeError pathNotFound.
std::vector<Entry> list(std::string_view directory, const Continue& goOn = {});
/// Names of the files only, folded for comparison (text::foldCase) and sorted; the quick answer to "which
/// of these exist?". A directory that cannot be listed holds nothing.
std::vector<std::string> foldedFileNames(std::string_view directory, const Continue& goOn = {});

/// The directory and all that lead to it. Nothing happens when it exists.
void createDirectories(std::string_view directory);

/// The whole content. RuntimeError fileNotFound or fileError.
std::string read(std::string_view path);
/// Up to `count` bytes from `offset`; fewer at the end of the file, none when it cannot be read.
std::string readAt(std::string_view path, std::uint64_t offset, std::size_t count);

/// The new content in one step: written beside the target, flushed to the disk, and put in its place, so
/// that at any moment either the old file or the new one is there, whole. The directory must exist; a file
/// that is write-protected stays. On an error (RuntimeError fileError) one of them is there, the old one
/// unless the network kept the answer to itself. What the content was written to is removed; where not even
/// that is possible, or the process dies, a later replacement in that directory does it, after a day.
///
/// `goOn` is asked now and then with the number of bytes written so far, and at last, when all of them are on
/// the disk, with their full number: after that the new content takes its place. False leaves the old file as
/// it is, and is then the answer.
bool replace(std::string_view path, std::string_view content, const Continue& goOn = {});

void remove(std::string_view path);   ///< nothing happens when it is not there

/// The full path of `path` as the system sees it from the current directory.
std::string fullPath(std::string_view path);
/// The directory that holds the running program, without a backslash at its end.
std::string programDirectory();

}  // namespace platform::files
