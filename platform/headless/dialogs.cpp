#include "platform/dialogs.h"

#include <utility>

#include "platform/headless/desk.h"

namespace platform {

namespace {

// Nobody sits here: without a handler every dialog is cancelled.
struct Handlers {
    MessageHandler message;
    OpenFileHandler openFile;
    FolderHandler folder;
};

Handlers& handlers() {
    static Handlers all;
    return all;
}

/// A dialog that comes up takes the mouse from the window below.
void comeUp() {
    headless::Desk::instance().setCapture(nullptr);
}

}  // namespace

int showMessage(Form* owner, const Message& message) {
    comeUp();
    const MessageHandler handler = handlers().message;
    return handler ? handler(owner, message) : message::cancel;
}

MessageHandler setMessageHandler(MessageHandler handler) {
    return std::exchange(handlers().message, std::move(handler));
}

std::string showOpenFile(Form* owner, const OpenFileRequest& request) {
    comeUp();
    const OpenFileHandler handler = handlers().openFile;
    return handler ? handler(owner, request) : request.fileName;
}

OpenFileHandler setOpenFileHandler(OpenFileHandler handler) {
    return std::exchange(handlers().openFile, std::move(handler));
}

std::string chooseFolder(Form* owner, const std::string& title, const std::string& start) {
    comeUp();
    const FolderHandler handler = handlers().folder;
    return handler ? handler(owner, title, start) : std::string();
}

FolderHandler setFolderHandler(FolderHandler handler) {
    return std::exchange(handlers().folder, std::move(handler));
}

}  // namespace platform
