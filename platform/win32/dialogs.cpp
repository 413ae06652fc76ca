#include "platform/dialogs.h"

#include <utility>

#include "platform/win32/failure.h"
#include "platform/win32/file_dialogs.h"
#include "platform/win32/form_window.h"
#include "platform/win32/wide.h"

namespace platform {

namespace {

HWND ownerWindow(Form* owner) {
    return owner ? owner->native().window : GetActiveWindow();
}

int systemMessage(Form* owner, const Message& message) {
    const int answer = MessageBoxW(ownerWindow(owner), wide(message.text).c_str(),
                                   wide(message.title).c_str(), static_cast<UINT>(message.codes));
    return win32::require(answer, "Meldung zeigen");
}

struct Handlers {
    MessageHandler message = systemMessage;
    OpenFileHandler openFile = [](Form* owner, const OpenFileRequest& request) {
        return win32::askForFile(ownerWindow(owner), request);
    };
    FolderHandler folder = [](Form* owner, const std::string& title, const std::string& start) {
        return win32::askForFolder(ownerWindow(owner), title, start);
    };
};

Handlers& handlers() {
    static Handlers all;
    return all;
}

/// An empty handler brings the system's back.
template <class Handler>
Handler replace(Handler Handlers::*place, Handler handler) {
    if (!handler) handler = Handlers{}.*place;
    return std::exchange(handlers().*place, std::move(handler));
}

}  // namespace

// A dialog that comes up takes the mouse from the window below.
int showMessage(Form* owner, const Message& message) {
    ReleaseCapture();
    const MessageHandler handler = handlers().message;
    return handler(owner, message);
}

MessageHandler setMessageHandler(MessageHandler handler) {
    return replace(&Handlers::message, std::move(handler));
}

std::string showOpenFile(Form* owner, const OpenFileRequest& request) {
    ReleaseCapture();
    const OpenFileHandler handler = handlers().openFile;
    return handler(owner, request);
}

OpenFileHandler setOpenFileHandler(OpenFileHandler handler) {
    return replace(&Handlers::openFile, std::move(handler));
}

std::string chooseFolder(Form* owner, const std::string& title, const std::string& start) {
    ReleaseCapture();
    const FolderHandler handler = handlers().folder;
    return handler(owner, title, start);
}

FolderHandler setFolderHandler(FolderHandler handler) {
    return replace(&Handlers::folder, std::move(handler));
}

}  // namespace platform
