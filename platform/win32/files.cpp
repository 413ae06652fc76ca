#include "platform/files.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "platform/file_calls.h"
#include "platform/file_errors.h"
#include "platform/path.h"
#include "platform/temporary_files.h"
#include "platform/text.h"
#include "platform/win32/fault_code.h"
#include "platform/win32/file_path.h"
#include "platform/win32/wide.h"

namespace platform::files {

namespace {

class Handle {
  public:
    explicit Handle(HANDLE handle) : handle_(handle) {}
    ~Handle() { close(); }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    HANDLE get() const { return handle_; }
    explicit operator bool() const { return handle_ != INVALID_HANDLE_VALUE; }
    bool close() {
        const HANDLE handle = std::exchange(handle_, INVALID_HANDLE_VALUE);
        return handle == INVALID_HANDLE_VALUE || CloseHandle(handle) != 0;
    }

  private:
    HANDLE handle_;
};

constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// Makes a call of the system, unless it is to fail; `make` answers whether it went well.
template <class Make>
bool attempt(Fault fault, Make make) {
    if (fault == Fault::none || fault == Fault::cutShort) [[likely]]
        return make();
    if (fault == Fault::replyLost) make();
    SetLastError(win32::codeOf(fault));
    return false;
}

bool isMissing(DWORD code) {
    return code == ERROR_FILE_NOT_FOUND || code == ERROR_PATH_NOT_FOUND || code == ERROR_INVALID_NAME ||
           code == ERROR_BAD_NETPATH || code == ERROR_BAD_NET_NAME;
}

std::wstring absolute(const std::wstring& path) {
    std::wstring full(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length =
            GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
        const bool fits = length < full.size();
        full.resize(length);
        if (fits) return full;
    }
}

}  // namespace

/// What the system's functions take: long paths get the prefix that lifts the limit of 260 characters (248
/// for directories), which works only for absolute paths.
std::wstring systemPath(std::string_view path) {
    static constexpr std::size_t shortEnough = 240;
    std::wstring given = wide(path);
    if (given.size() < shortEnough && path::isAbsolute(path)) return given;
    std::wstring full = absolute(given);
    if (full.size() < shortEnough || full.starts_with(LR"(\\?\)")) return full;
    return full.starts_with(LR"(\\)") ? LR"(\\?\UNC\)" + full.substr(2) : LR"(\\?\)" + full;
}

namespace {

DWORD attributes(std::string_view path) {
    return GetFileAttributesW(systemPath(path).c_str());
}

/// Calls `visit` for each entry but "." and "..", until it answers false; returns why it ended.
template <class Visit>
DWORD visitDirectory(std::string_view directory, Visit visit) {
    if (const Fault fault = faultAt(Call::list); fault != Fault::none) return win32::codeOf(fault);
    const Handle handle(CreateFileW(systemPath(directory).c_str(), FILE_LIST_DIRECTORY, shareAll, nullptr,
                                    OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    if (!handle) return GetLastError();
    std::vector<std::uint64_t> buffer(65536 / sizeof(std::uint64_t));
    while (GetFileInformationByHandleEx(handle.get(), FileFullDirectoryInfo, buffer.data(),
                                        static_cast<DWORD>(buffer.size() * sizeof(std::uint64_t)))) {
        const char* at = reinterpret_cast<const char*>(buffer.data());
        for (;;) {
            const auto& info = *reinterpret_cast<const FILE_FULL_DIR_INFO*>(at);
            const std::wstring_view name(info.FileName, info.FileNameLength / sizeof(wchar_t));
            if (name != L"." && name != L".." && !visit(info, name)) return ERROR_NO_MORE_FILES;
            if (info.NextEntryOffset == 0) break;
            at += info.NextEntryOffset;
        }
    }
    return GetLastError();
}

/// text::foldCase of a name, in one pass for nearly all there are.
std::string foldedName(std::wstring_view name) {
    std::string folded(name.size(), '\0');
    wchar_t all = 0;
    std::transform(name.begin(), name.end(), folded.begin(), [&all](wchar_t c) {
        all = static_cast<wchar_t>(all | c);
        return static_cast<char>(c >= L'A' && c <= L'Z' ? c + 32 : c);
    });
    return all < 0x80 ? folded : text::foldCase(narrow(name));
}

bool isDirectory(const FILE_FULL_DIR_INFO& info) {
    return (info.FileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

/// Windows counts in 100 ns from the year 1601.
std::int64_t unixSeconds(const LARGE_INTEGER& time) {
    return (time.QuadPart - 116444736000000000) / 10000000;
}

std::size_t readInto(HANDLE file, char* target, std::size_t count) {
    std::size_t done = 0;
    while (done < count) {
        const auto part = static_cast<DWORD>(std::min<std::size_t>(count - done, 1U << 30));
        DWORD got = 0;
        if (!attempt(faultAt(Call::read),
                     [&] { return ReadFile(file, target + done, part, &got, nullptr) != 0; }))
            break;
        if (got == 0) {
            SetLastError(ERROR_HANDLE_EOF);
            break;
        }
        done += got;
    }
    return done;
}

HANDLE openToRead(std::string_view path) {
    HANDLE file = INVALID_HANDLE_VALUE;
    attempt(faultAt(Call::open), [&] {
        file =
            CreateFileW(systemPath(path).c_str(), GENERIC_READ, shareAll, nullptr, OPEN_EXISTING, 0, nullptr);
        return file != INVALID_HANDLE_VALUE;
    });
    return file;
}

/// A new file beside the target, and its name. One that is taken belongs to somebody else.
HANDLE createTemporary(std::string_view target, std::wstring& name) {
    static constexpr int mostTaken = 1000;
    const std::string directory = path::directory(target);
    for (int taken = 0;; ++taken) {
        name = systemPath(path::join(directory, temporaryFileName(GetCurrentProcessId())));
        HANDLE file = INVALID_HANDLE_VALUE;
        const bool created = attempt(faultAt(Call::create), [&] {
            file = CreateFileW(name.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL,
                               nullptr);
            return file != INVALID_HANDLE_VALUE;
        });
        if (created) return file;
        const DWORD code = GetLastError();
        Handle(file).close();
        SetLastError(code);
        if (code != ERROR_FILE_EXISTS || taken == mostTaken) return INVALID_HANDLE_VALUE;
    }
}

bool writeAll(HANDLE file, std::string_view content, const Continue& mayGoOn) {
    const std::size_t all = content.size();
    while (!content.empty()) {
        if (!mayGoOn(all - content.size())) return false;
        const Fault fault = faultAt(Call::write);
        auto part = static_cast<DWORD>(std::min<std::size_t>(content.size(), 1U << 22));
        if (fault == Fault::cutShort) part = (part + 1) / 2;
        DWORD written = 0;
        if (!attempt(fault, [&] { return WriteFile(file, content.data(), part, &written, nullptr) != 0; }))
            return false;
        if (written == 0) {  // it would go on for ever
            SetLastError(ERROR_WRITE_FAULT);
            return false;
        }
        content.remove_prefix(written);
    }
    return attempt(faultAt(Call::flush), [&] { return FlushFileBuffers(file) != 0; });
}

bool closeWritten(Handle& file) {
    const bool closed = file.close();
    return attempt(faultAt(Call::close), [&] { return closed; });
}

/// A virus scanner or an indexer may hold a fresh file for a moment.
bool moveOver(const std::wstring& source, const std::wstring& target) {
    for (int tries = 1;; ++tries) {
        const bool moved = attempt(faultAt(Call::rename), [&] {
            return MoveFileExW(source.c_str(), target.c_str(),
                               MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
        });
        if (moved) return true;
        const DWORD code = GetLastError();
        if (tries == 5 || (code != ERROR_ACCESS_DENIED && code != ERROR_SHARING_VIOLATION)) return false;
        Sleep(20);
    }
}

bool deleteFile(const std::wstring& path) {
    return attempt(faultAt(Call::remove), [&] { return DeleteFileW(path.c_str()) != 0; });
}

std::int64_t seconds(FILETIME time) {
    return unixSeconds({.u = {time.dwLowDateTime, static_cast<LONG>(time.dwHighDateTime)}});
}

/// Removes what dead processes left beside a file that was written just now, if that can be done.
void removeAbandoned(std::string_view written) {
    const std::string directory = path::directory(written);
    WIN32_FILE_ATTRIBUTE_DATA now{};
    if (!firstTimeIn(directory) ||
        !GetFileAttributesExW(systemPath(written).c_str(), GetFileExInfoStandard, &now))
        return;
    WIN32_FIND_DATAW entry{};
    const HANDLE search = FindFirstFileW(systemPath(path::join(directory, "~kv*.tmp")).c_str(), &entry);
    if (search == INVALID_HANDLE_VALUE) return;
    constexpr DWORD noPlainFile = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT;
    do {
        const std::string name = narrow(entry.cFileName);
        const bool isAbandoned =
            isTemporaryFileName(name) && (entry.dwFileAttributes & noPlainFile) == 0 &&
            seconds(now.ftLastWriteTime) - seconds(entry.ftLastWriteTime) > abandonedAfterSeconds;
        if (isAbandoned) deleteFile(systemPath(path::join(directory, name)));
    } while (FindNextFileW(search, &entry));
    FindClose(search);
}

}  // namespace

bool exists(std::string_view path) {
    return attributes(path) != INVALID_FILE_ATTRIBUTES;
}

bool fileExists(std::string_view path) {
    const DWORD found = attributes(path);
    return found != INVALID_FILE_ATTRIBUTES && (found & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

bool directoryExists(std::string_view path) {
    const DWORD found = attributes(path);
    return found != INVALID_FILE_ATTRIBUTES && (found & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

std::optional<Version> version(std::string_view path) {
    WIN32_FILE_ATTRIBUTE_DATA found{};
    if (!GetFileAttributesExW(systemPath(path).c_str(), GetFileExInfoStandard, &found) ||
        (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
        return std::nullopt;
    const auto whole = [](DWORD high, DWORD low) { return std::uint64_t{high} << 32 | low; };
    const FILETIME changed = found.ftLastWriteTime;
    return Version{whole(found.nFileSizeHigh, found.nFileSizeLow),
                   static_cast<std::int64_t>(whole(changed.dwHighDateTime, changed.dwLowDateTime))};
}

std::vector<Entry> list(std::string_view directory, const Continue& goOn) {
    std::vector<Entry> entries;
    const DWORD end = visitDirectory(directory, [&](const FILE_FULL_DIR_INFO& info, std::wstring_view name) {
        entries.push_back({narrow(name), isDirectory(info),
                           static_cast<std::uint64_t>(info.EndOfFile.QuadPart),
                           unixSeconds(info.LastWriteTime)});
        return !goOn || goOn(entries.size());
    });
    if (end != ERROR_NO_MORE_FILES) throw cannotList(directory, lastErrorText(end));
    return entries;
}

std::vector<std::string> foldedFileNames(std::string_view directory, const Continue& goOn) {
    std::vector<std::string> names;
    visitDirectory(directory, [&](const FILE_FULL_DIR_INFO& info, std::wstring_view name) {
        if (!isDirectory(info)) names.push_back(foldedName(name));
        return !goOn || goOn(names.size());
    });
    if (!std::is_sorted(names.begin(), names.end())) std::sort(names.begin(), names.end());
    return names;
}

void createDirectories(std::string_view directory) {
    if (directory.empty() || directoryExists(directory)) return;
    const std::string parent = path::directory(directory);
    if (parent != directory) createDirectories(parent);
    const std::wstring plain = systemPath(directory);
    if (attempt(faultAt(Call::createDirectory),
                [&] { return CreateDirectoryW(plain.c_str(), nullptr) != 0; }))
        return;
    const DWORD code = GetLastError();
    if (!directoryExists(directory)) throw cannotCreate(directory, lastErrorText(code));
}

std::string read(std::string_view path) {
    const Handle file(openToRead(path));
    DWORD code = GetLastError();
    LARGE_INTEGER size{};
    if (!file || !GetFileSizeEx(file.get(), &size)) {
        if (file) code = GetLastError();
        throw cannotRead(path, isMissing(code), lastErrorText(code));
    }
    std::string content(static_cast<std::size_t>(size.QuadPart), '\0');
    if (readInto(file.get(), content.data(), content.size()) < content.size())
        throw cannotRead(path, false, lastErrorText(GetLastError()));
    return content;
}

std::string readAt(std::string_view path, std::uint64_t offset, std::size_t count) {
    const Handle file(openToRead(path));
    LARGE_INTEGER start{};
    start.QuadPart = static_cast<LONGLONG>(offset);
    if (!file || !SetFilePointerEx(file.get(), start, nullptr, FILE_BEGIN)) return {};
    std::string content(count, '\0');
    content.resize(readInto(file.get(), content.data(), count));
    return content;
}

bool replace(std::string_view path, std::string_view content, const Continue& goOn) {
    const std::wstring target = systemPath(path);
    const DWORD old = GetFileAttributesW(target.c_str());
    if (old != INVALID_FILE_ATTRIBUTES && (old & FILE_ATTRIBUTE_READONLY) != 0)
        throw cannotWrite(path, lastErrorText(ERROR_ACCESS_DENIED));
    std::wstring temporary;
    Handle file(createTemporary(path, temporary));
    if (!file) throw cannotWrite(path, lastErrorText(GetLastError()));
    bool stopped = false;
    const auto mayGoOn = [&](std::size_t bytes) { return !(stopped = goOn && !goOn(bytes)); };
    if (writeAll(file.get(), content, mayGoOn) && closeWritten(file) && mayGoOn(content.size()) &&
        moveOver(temporary, target)) {
        removeAbandoned(path);
        return true;
    }
    const DWORD code = GetLastError();
    file.close();
    deleteFile(temporary);
    if (stopped) return false;
    throw cannotWrite(path, lastErrorText(code));
}

void remove(std::string_view path) {
    if (deleteFile(systemPath(path))) return;
    const DWORD code = GetLastError();
    if (!isMissing(code)) throw cannotRemove(path, lastErrorText(code));
}

std::string fullPath(std::string_view path) {
    return path::normalise(narrow(absolute(wide(path::normalise(path)))));
}

std::string programDirectory() {
    std::wstring name(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(nullptr, name.data(), static_cast<DWORD>(name.size()));
        if (length < name.size()) return path::directory(narrow({name.data(), length}));
        name.resize(name.size() * 2);
    }
}

}  // namespace platform::files
