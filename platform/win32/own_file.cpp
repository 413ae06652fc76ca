#include "platform/own_file.h"

#include "platform/file_calls.h"
#include "platform/file_errors.h"
#include "platform/win32/fault_code.h"
#include "platform/win32/file_path.h"
#include "platform/win32/wide.h"

namespace platform {

struct OwnFile::Native {
    std::string path;
    HANDLE handle;

    Native(std::string_view name, HANDLE file) : path(name), handle(file) {}
    ~Native() { CloseHandle(handle); }
    Native(const Native&) = delete;
    Native& operator=(const Native&) = delete;
};

OwnFile::OwnFile(std::unique_ptr<Native> native) : native_(std::move(native)) {}
OwnFile::~OwnFile() = default;

// Who shares nothing is the only one; the system closes the handle with the process.
std::unique_ptr<OwnFile> OwnFile::opened(std::string_view path, bool mayMake) {
    const files::Fault fault = files::faultAt(mayMake ? files::Call::create : files::Call::open);
    if (fault != files::Fault::none) throw files::cannotWrite(path, lastErrorText(win32::codeOf(fault)));
    const HANDLE file =
        CreateFileW(files::systemPath(path).c_str(), GENERIC_READ | FILE_APPEND_DATA | SYNCHRONIZE | DELETE,
                    0, nullptr, mayMake ? OPEN_ALWAYS : OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file != INVALID_HANDLE_VALUE)
        return std::unique_ptr<OwnFile>(new OwnFile(std::make_unique<Native>(path, file)));
    const DWORD code = GetLastError();
    // One that is about to be removed is somebody's as well.
    const bool isTaken = code == ERROR_SHARING_VIOLATION || code == ERROR_DELETE_PENDING ||
                         (code == ERROR_ACCESS_DENIED && !mayMake);
    if (isTaken || (!mayMake && (code == ERROR_FILE_NOT_FOUND || code == ERROR_PATH_NOT_FOUND)))
        return nullptr;
    throw files::cannotWrite(path, lastErrorText(code));
}

std::string OwnFile::read() const {
    LARGE_INTEGER size{};
    const LARGE_INTEGER start{};
    std::string content;
    if (!GetFileSizeEx(native_->handle, &size) ||
        !SetFilePointerEx(native_->handle, start, nullptr, FILE_BEGIN))
        throw files::cannotRead(native_->path, false, lastErrorText(GetLastError()));
    content.resize(static_cast<std::size_t>(size.QuadPart));
    DWORD got = 0;
    if (!ReadFile(native_->handle, content.data(), static_cast<DWORD>(content.size()), &got, nullptr))
        throw files::cannotRead(native_->path, false, lastErrorText(GetLastError()));
    content.resize(got);
    return content;
}

void OwnFile::append(std::string_view text) {
    const files::Fault fault = files::faultAt(files::Call::write);
    const bool isCut = fault == files::Fault::cutShort;
    if (fault != files::Fault::none && !isCut)
        throw files::cannotWrite(native_->path, lastErrorText(win32::codeOf(fault)));
    const auto count = static_cast<DWORD>(isCut ? text.size() / 2 : text.size());
    DWORD written = 0;
    if (!WriteFile(native_->handle, text.data(), count, &written, nullptr))
        throw files::cannotWrite(native_->path, lastErrorText(GetLastError()));
    if (written < text.size()) throw files::cannotWrite(native_->path, lastErrorText(ERROR_DISK_FULL));
}

void OwnFile::remove() {
    FILE_DISPOSITION_INFO info{TRUE};  // the member's name is a macro of the system's headers
    if (!SetFileInformationByHandle(native_->handle, FileDispositionInfo, &info, sizeof info))
        throw files::cannotRemove(native_->path, lastErrorText(GetLastError()));
}

std::unique_ptr<OwnFile> OwnFile::open(std::string_view path) {
    return opened(path, true);
}
std::unique_ptr<OwnFile> OwnFile::openExisting(std::string_view path) {
    return opened(path, false);
}

}  // namespace platform
