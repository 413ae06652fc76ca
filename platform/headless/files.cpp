#include "platform/files.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <memory>
#include <system_error>

#include "platform/file_calls.h"
#include "platform/file_errors.h"
#include "platform/headless/file_path.h"
#include "platform/path.h"
#include "platform/temporary_files.h"
#include "platform/text.h"

namespace platform::files {

namespace {

class Descriptor {
  public:
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor() { close(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    int get() const { return number_; }
    explicit operator bool() const { return number_ >= 0; }
    bool close() {
        const int number = number_;
        number_ = -1;
        return number < 0 || ::close(number) == 0;
    }

  private:
    int number_;
};

struct CloseDirectory {
    void operator()(DIR* directory) const { ::closedir(directory); }
};
using Directory = std::unique_ptr<DIR, CloseDirectory>;

int codeOf(Fault fault) {
    switch (fault) {
        case Fault::noSpace:
            return ENOSPC;
        case Fault::accessDenied:
            return EACCES;
        case Fault::crash:
            return ECANCELED;
        default:
            return EIO;
    }
}

/// Makes a call of the system, unless it is to fail; `make` answers whether it went well.
template <class Make>
bool attempt(Fault fault, Make make) {
    if (fault == Fault::none || fault == Fault::cutShort) [[likely]]
        return make();
    if (fault == Fault::replyLost) make();
    errno = codeOf(fault);
    return false;
}

std::string reasonOf(int code) {
    return std::generic_category().message(code);
}
bool isMissing(int code) {
    return code == ENOENT || code == ENOTDIR;
}

/// The path as it is written here: drive Z: is the root. Other drives and shares do not exist; for them it is
/// empty.
std::string plainPath(std::string_view path) {
    std::string plain(path);
    std::replace(plain.begin(), plain.end(), '\\', '/');
    const bool drive = plain.size() >= 2 && plain[1] == ':';
    if (drive && text::equalNoCase(plain.substr(0, 3), "Z:/")) return plain.substr(2);
    return drive || plain.starts_with("//") ? std::string() : plain;
}

bool isThere(const std::string& plain) {
    struct stat info {};
    return ::stat(plain.c_str(), &info) == 0;
}

/// The name as the directory spells it; empty when it has none that is equal.
std::string spelling(const std::string& directory, const std::string& name) {
    const Directory opened(::opendir(directory.empty() ? "." : directory.c_str()));
    while (const dirent* entry = opened ? ::readdir(opened.get()) : nullptr)
        if (text::equalNoCase(entry->d_name, name)) return entry->d_name;
    return {};
}

}  // namespace

/// Where the file is: as it is spelled, else component by component without case. What is not there keeps the
/// spelling that was given, below the part that is.
std::string systemPath(std::string_view path) {
    const std::string plain = plainPath(path);
    if (plain.empty() || isThere(plain)) return plain;
    std::string found;
    for (std::size_t start = 0; start <= plain.size();) {
        const std::size_t end = std::min(plain.find('/', start), plain.size());
        const std::string name = plain.substr(start, end - start);
        const bool known = name.empty() || isThere(found + name);
        const std::string spelled = known ? name : spelling(found, name);
        if (spelled.empty() && !known) return found + plain.substr(start);
        found += spelled;
        if (end < plain.size()) found += '/';
        start = end + 1;
    }
    return found;
}

namespace {

std::optional<struct stat> status(std::string_view path) {
    struct stat info {};
    if (::stat(systemPath(path).c_str(), &info) != 0) return std::nullopt;
    return info;
}

/// Calls `visit` with each name but "." and ".." and those with a backslash, which no path of ours can reach,
/// until it answers false.
template <class Visit>
bool visitDirectory(const std::string& plain, Visit visit) {
    Directory opened;
    if (!attempt(faultAt(Call::list), [&] {
            opened.reset(::opendir(plain.c_str()));
            return opened != nullptr;
        }))
        return false;
    while (const dirent* entry = ::readdir(opened.get())) {
        const std::string_view name = entry->d_name;
        const bool isOurs = name != "." && name != ".." && name.find('\\') == std::string_view::npos;
        if (isOurs && !visit(::dirfd(opened.get()), *entry)) break;
    }
    return true;
}

bool isFile(int directory, const dirent& entry) {
    if (entry.d_type == DT_REG || entry.d_type == DT_DIR) return entry.d_type == DT_REG;
    struct stat info {};
    return ::fstatat(directory, entry.d_name, &info, 0) == 0 && !S_ISDIR(info.st_mode);
}

/// How much is read at once: what was just made for it still lies in the cache when it is filled.
constexpr std::size_t piece = 262144;

/// Reads until the end of the file or `count` bytes are there, first into what is reserved. False on an
/// error.
bool readInto(int file, std::string& content, std::size_t count) {
    for (std::size_t done = 0; done < count;) {
        if (done == content.size()) {
            const std::size_t room = content.capacity() - done;
            content.resize(done + std::min({count - done, piece, room == 0 ? piece : room}));
        }
        ssize_t got = -1;
        attempt(faultAt(Call::read),
                [&] { return (got = ::read(file, content.data() + done, content.size() - done)) >= 0; });
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) {
            content.resize(done);
            return got == 0;
        }
        done += static_cast<std::size_t>(got);
    }
    return true;
}

int openToRead(std::string_view path) {
    int file = -1;
    attempt(faultAt(Call::open),
            [&] { return (file = ::open(systemPath(path).c_str(), O_RDONLY | O_CLOEXEC)) >= 0; });
    return file;
}

bool writeAll(int file, std::string_view content, const Continue& mayGoOn) {
    const std::size_t all = content.size();
    while (!content.empty()) {
        if (!mayGoOn(all - content.size())) return false;
        const Fault fault = faultAt(Call::write);
        std::size_t part = std::min<std::size_t>(content.size(), 1U << 22);
        if (fault == Fault::cutShort) part = (part + 1) / 2;
        ssize_t written = 0;
        if (!attempt(fault, [&] { return (written = ::write(file, content.data(), part)) >= 0; })) {
            if (errno == EINTR) continue;
            return false;
        }
        if (written == 0) {  // it would go on for ever
            errno = EIO;
            return false;
        }
        content.remove_prefix(static_cast<std::size_t>(written));
    }
    return attempt(faultAt(Call::flush), [&] { return ::fsync(file) == 0; });
}

bool closeWritten(Descriptor& file) {
    const bool closed = file.close();
    return attempt(faultAt(Call::close), [&] { return closed; });
}

bool deleteFile(const std::string& plain) {
    return attempt(faultAt(Call::remove), [&] { return ::unlink(plain.c_str()) == 0; });
}

std::string parentOf(const std::string& plain) {
    const std::size_t last = plain.rfind('/');
    if (last == std::string::npos) return ".";
    return last == 0 ? "/" : plain.substr(0, last);
}

/// The new name itself must reach the disk too. Some file systems cannot be asked for that.
bool flushDirectory(const std::string& plain) {
    const Descriptor directory(::open(plain.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    return !directory || attempt(faultAt(Call::flushDirectory), [&] {
        return ::fsync(directory.get()) == 0 || errno == EINVAL || errno == ENOTSUP;
    });
}

/// A new file in that directory, and its name. One that is taken belongs to somebody else.
int createTemporary(const std::string& directory, std::string& name) {
    static constexpr int mostTaken = 1000;
    for (int taken = 0;; ++taken) {
        name = directory + "/" + temporaryFileName(static_cast<std::uint32_t>(::getpid()));
        int file = -1;
        const bool created = attempt(faultAt(Call::create), [&] {
            return (file = ::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666)) >= 0;
        });
        if (created) return file;
        const int code = errno;
        Descriptor(file).close();
        errno = code;
        if (code != EEXIST || taken == mostTaken) return -1;
    }
}

/// The new file gets the old one's rights.
bool takeRights(int file, const std::string& old) {
    struct stat info {};
    return ::stat(old.c_str(), &info) != 0 || ::fchmod(file, info.st_mode & 07777) == 0;
}

bool isProtected(const std::string& plain) {
    struct stat info {};
    return ::stat(plain.c_str(), &info) == 0 && (info.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0;
}

bool moveOver(const std::string& source, const std::string& target) {
    return attempt(faultAt(Call::rename), [&] { return ::rename(source.c_str(), target.c_str()) == 0; });
}

/// Removes what dead processes left beside a file that was written just now, if that can be done.
void removeAbandoned(const std::string& directory, const std::string& written) {
    struct stat now {};
    if (!firstTimeIn(directory) || ::stat(written.c_str(), &now) != 0) return;
    visitDirectory(directory, [&](int parent, const dirent& entry) {
        struct stat info {};
        const bool isAbandoned = isTemporaryFileName(entry.d_name) &&
                                 ::fstatat(parent, entry.d_name, &info, AT_SYMLINK_NOFOLLOW) == 0 &&
                                 S_ISREG(info.st_mode) &&
                                 now.st_mtime - info.st_mtime > abandonedAfterSeconds;
        if (isAbandoned) deleteFile(directory + "/" + entry.d_name);
        return true;
    });
}

}  // namespace

bool exists(std::string_view path) {
    return status(path).has_value();
}

bool fileExists(std::string_view path) {
    const auto info = status(path);
    return info && !S_ISDIR(info->st_mode);
}

bool directoryExists(std::string_view path) {
    const auto info = status(path);
    return info && S_ISDIR(info->st_mode);
}

std::optional<Version> version(std::string_view path) {
    const auto info = status(path);
    if (!info || S_ISDIR(info->st_mode)) return std::nullopt;
    return Version{static_cast<std::uint64_t>(info->st_size),
                   info->st_mtim.tv_sec * std::int64_t{1'000'000'000} + info->st_mtim.tv_nsec};
}

std::vector<Entry> list(std::string_view directory, const Continue& goOn) {
    std::vector<Entry> entries;
    const bool listed = visitDirectory(systemPath(directory), [&](int parent, const dirent& entry) {
        struct stat info {};
        if (::fstatat(parent, entry.d_name, &info, 0) != 0) return true;  // a link to nowhere
        entries.push_back(
            {entry.d_name, S_ISDIR(info.st_mode), static_cast<std::uint64_t>(info.st_size), info.st_mtime});
        return !goOn || goOn(entries.size());
    });
    if (!listed) throw cannotList(directory, reasonOf(errno));
    return entries;
}

std::vector<std::string> foldedFileNames(std::string_view directory, const Continue& goOn) {
    std::vector<std::string> names;
    visitDirectory(systemPath(directory), [&](int parent, const dirent& entry) {
        if (isFile(parent, entry)) names.push_back(text::foldCase(entry.d_name));
        return !goOn || goOn(names.size());
    });
    std::sort(names.begin(), names.end());
    return names;
}

void createDirectories(std::string_view directory) {
    if (directory.empty() || directoryExists(directory)) return;
    const std::string parent = path::directory(directory);
    if (parent != directory) createDirectories(parent);
    const std::string plain = systemPath(directory);
    if (attempt(faultAt(Call::createDirectory), [&] { return ::mkdir(plain.c_str(), 0777) == 0; })) return;
    const int code = errno;
    if (!directoryExists(directory)) throw cannotCreate(directory, reasonOf(code));
}

std::string read(std::string_view path) {
    const Descriptor file(openToRead(path));
    if (!file) throw cannotRead(path, isMissing(errno), reasonOf(errno));
    struct stat info {};
    const bool sized = ::fstat(file.get(), &info) == 0 && S_ISREG(info.st_mode);
    std::string content;
    // One byte more than the size, so that the end shows itself without another piece.
    content.reserve(sized ? static_cast<std::size_t>(info.st_size) + 1 : piece);
    if (!readInto(file.get(), content, content.max_size())) throw cannotRead(path, false, reasonOf(errno));
    return content;
}

std::string readAt(std::string_view path, std::uint64_t offset, std::size_t count) {
    const Descriptor file(openToRead(path));
    std::string content;
    content.reserve(std::min(count, piece));
    if (file && ::lseek(file.get(), static_cast<off_t>(offset), SEEK_SET) >= 0)
        readInto(file.get(), content, count);
    return content;
}

bool replace(std::string_view path, std::string_view content, const Continue& goOn) {
    const std::string target = systemPath(path);
    const std::string parent = parentOf(target);
    if (isProtected(target)) throw cannotWrite(path, reasonOf(EACCES));
    std::string temporary;
    Descriptor file(createTemporary(parent, temporary));
    if (!file) throw cannotWrite(path, reasonOf(errno));
    bool stopped = false;
    const auto mayGoOn = [&](std::size_t bytes) { return !(stopped = goOn && !goOn(bytes)); };
    if (takeRights(file.get(), target) && writeAll(file.get(), content, mayGoOn) && closeWritten(file) &&
        mayGoOn(content.size()) && moveOver(temporary, target)) {
        if (!flushDirectory(parent)) throw cannotWrite(path, reasonOf(errno));
        removeAbandoned(parent, target);
        return true;
    }
    const int code = errno;
    file.close();
    deleteFile(temporary);
    if (stopped) return false;
    throw cannotWrite(path, reasonOf(code));
}

void remove(std::string_view path) {
    if (!deleteFile(systemPath(path)) && !isMissing(errno)) throw cannotRemove(path, reasonOf(errno));
}

std::string fullPath(std::string_view path) {
    const std::string given = path::normalise(path);
    if (given.size() >= 2 && (given[1] == ':' || given.starts_with("\\\\"))) return given;
    if (path::isAbsolute(given)) return "Z:" + given;
    const std::unique_ptr<char, decltype(&std::free)> current(::getcwd(nullptr, 0), &std::free);
    return path::normalise("Z:" + std::string(current ? current.get() : "/") + "/" + given);
}

std::string programDirectory() {
    std::array<char, 4096> name{};
    const ssize_t length = ::readlink("/proc/self/exe", name.data(), name.size());
    return path::directory(fullPath({name.data(), static_cast<std::size_t>(std::max<ssize_t>(length, 0))}));
}

}  // namespace platform::files
