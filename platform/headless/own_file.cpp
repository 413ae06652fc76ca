#include "platform/own_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <system_error>

#include "platform/file_calls.h"
#include "platform/file_errors.h"
#include "platform/headless/file_path.h"

namespace platform {

namespace {

std::string reasonOf(int code) {
    return std::generic_category().message(code);
}

}  // namespace

struct OwnFile::Native {
    std::string path, plain;
    int file;

    Native(std::string_view name, std::string plainName, int opened)
        : path(name), plain(std::move(plainName)), file(opened) {}
    ~Native() { ::close(file); }
    Native(const Native&) = delete;
    Native& operator=(const Native&) = delete;
};

OwnFile::OwnFile(std::unique_ptr<Native> native) : native_(std::move(native)) {}
OwnFile::~OwnFile() = default;

std::unique_ptr<OwnFile> OwnFile::opened(std::string_view path, bool mayMake) {
    const std::string plain = files::systemPath(path);
    if (files::faultAt(mayMake ? files::Call::create : files::Call::open) != files::Fault::none)
        throw files::cannotWrite(path, reasonOf(EIO));
    const int flags = O_RDWR | O_APPEND | O_CLOEXEC | (mayMake ? O_CREAT : 0);
    const int file = ::open(plain.c_str(), flags, 0600);
    if (file < 0) {
        if (!mayMake && (errno == ENOENT || errno == ENOTDIR)) return nullptr;
        throw files::cannotWrite(path, reasonOf(errno));
    }
    auto native = std::make_unique<Native>(path, plain, file);
    struct stat info {};
    const bool isMine = ::flock(file, LOCK_EX | LOCK_NB) == 0;
    // Who had it may have removed it meanwhile.
    if (!isMine || ::fstat(file, &info) != 0 || info.st_nlink == 0) return nullptr;
    return std::unique_ptr<OwnFile>(new OwnFile(std::move(native)));
}

std::string OwnFile::read() const {
    std::string content;
    std::array<char, 65536> piece{};
    for (off_t at = 0;;) {
        const ssize_t got = ::pread(native_->file, piece.data(), piece.size(), at);
        if (got < 0) throw files::cannotRead(native_->path, false, reasonOf(errno));
        if (got == 0) return content;
        content.append(piece.data(), static_cast<std::size_t>(got));
        at += got;
    }
}

void OwnFile::append(std::string_view text) {
    const files::Fault fault = files::faultAt(files::Call::write);
    const bool isCut = fault == files::Fault::cutShort;
    if (fault != files::Fault::none && !isCut) throw files::cannotWrite(native_->path, reasonOf(EIO));
    const std::size_t count = isCut ? text.size() / 2 : text.size();
    const ssize_t written = ::write(native_->file, text.data(), count);
    if (written < 0) throw files::cannotWrite(native_->path, reasonOf(errno));
    if (static_cast<std::size_t>(written) < text.size())
        throw files::cannotWrite(native_->path, reasonOf(ENOSPC));
}

void OwnFile::remove() {
    if (::unlink(native_->plain.c_str()) != 0) throw files::cannotRemove(native_->path, reasonOf(errno));
}

std::unique_ptr<OwnFile> OwnFile::open(std::string_view path) {
    return opened(path, true);
}
std::unique_ptr<OwnFile> OwnFile::openExisting(std::string_view path) {
    return opened(path, false);
}

}  // namespace platform
