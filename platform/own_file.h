#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace platform {

/// A file that belongs to one owner, who writes to its end. While it is open nobody else can have it, in this
/// process or in another one; when the owner's process ends, in whatever way, the system sets it free.
class OwnFile {
  public:
    /// Opens the file, or makes it. Null when somebody else has it. RuntimeError fileError.
    static std::unique_ptr<OwnFile> open(std::string_view path);
    /// The same for a file that must be there: null when it is not.
    static std::unique_ptr<OwnFile> openExisting(std::string_view path);
    ~OwnFile();
    OwnFile(const OwnFile&) = delete;
    OwnFile& operator=(const OwnFile&) = delete;

    std::string read() const;            ///< all of it. RuntimeError fileError
    /// To the end. RuntimeError fileError; a part may have been written then. It has left the program when
    /// this returns, though the disk may not have it yet.
    void append(std::string_view text);
    /// The file goes, without a moment in which another one could have it; only the destructor may follow.
    void remove();

  private:
    struct Native;
    explicit OwnFile(std::unique_ptr<Native> native);
    static std::unique_ptr<OwnFile> opened(std::string_view path, bool mayMake);
    std::unique_ptr<Native> native_;
};

}  // namespace platform
