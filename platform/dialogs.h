#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace platform {

class Form;

/// Codes of buttons and icons add up; the answers are what the user pressed.
namespace message {
inline constexpr int okOnly = 0;
inline constexpr int okCancel = 1;
inline constexpr int yesNoCancel = 3;
inline constexpr int yesNo = 4;
inline constexpr int critical = 16;
inline constexpr int question = 32;
inline constexpr int exclamation = 48;
inline constexpr int information = 64;
inline constexpr int defaultButton2 = 256;

inline constexpr int ok = 1;
inline constexpr int cancel = 2;
inline constexpr int yes = 6;
inline constexpr int no = 7;
}  // namespace message

struct Message {
    std::string text;   ///< lines end in CR LF
    int codes = 0;
    std::string title;
};

/// Shows a message over the form (or over the active window when it is null) and returns the answer.
int showMessage(Form* owner, const Message& message);

/// What shows the messages; the system's message box unless another is put in. Returns the one before.
using MessageHandler = std::function<int(Form* owner, const Message&)>;
MessageHandler setMessageHandler(MessageHandler handler);

struct OpenFileRequest {
    std::string title;
    std::string fileName;           ///< offered; a name without a directory
    std::string filter;             ///< "Text (*.x)|*.x|..."
    int filterIndex = 1;            ///< counts from 1
    std::string initialDirectory;
    std::uint32_t flags = 0;        ///< as the common file dialog numbers them
};
/// The full path of the chosen file, or the name that was offered when the user cancelled.
std::string showOpenFile(Form* owner, const OpenFileRequest& request);
using OpenFileHandler = std::function<std::string(Form* owner, const OpenFileRequest&)>;
OpenFileHandler setOpenFileHandler(OpenFileHandler handler);

/// The chosen directory, or an empty text when the user cancelled.
std::string chooseFolder(Form* owner, const std::string& title, const std::string& start);
using FolderHandler = std::function<std::string(Form* owner, const std::string& title, const std::string& start)>;
FolderHandler setFolderHandler(FolderHandler handler);

}  // namespace platform
