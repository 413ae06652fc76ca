#pragma once

#include <deque>
#include <string>
#include <vector>

#include "platform/dialogs.h"

namespace support {

/// Answers the message boxes of a test by a script. A message that the script does not name fails the test
/// and is answered by "cancel"; one that never came fails it at the end.
class Messages {
  public:
    Messages();
    ~Messages();
    Messages(const Messages&) = delete;
    Messages& operator=(const Messages&) = delete;

    /// The next message is this one, letter by letter.
    Messages& expect(const std::string& text, int answer = platform::message::ok);
    /// The next message holds this text.
    Messages& expectPart(const std::string& part, int answer = platform::message::ok);

    /// Everything that was shown, with its codes and title.
    const std::vector<platform::Message>& shown() const { return shown_; }

  private:
    struct Expected {
        std::string text;
        bool whole = false;
        int answer = 0;  // none: no message is due
    };
    int answer(const platform::Message& message);

    platform::MessageHandler before_;
    std::deque<Expected> expected_;
    std::vector<platform::Message> shown_;
};

/// Answers the dialogs that ask for a file or a folder: each takes the next answer, and the empty one
/// cancels. A dialog without an answer fails the test, and so does an answer that is left.
class DialogScript {
  public:
    DialogScript();
    ~DialogScript();
    DialogScript(const DialogScript&) = delete;
    DialogScript& operator=(const DialogScript&) = delete;

    DialogScript& answer(const std::string& path);
    /// Every dialog that came; one for a folder has a title and its first directory only.
    const std::vector<platform::OpenFileRequest>& requests() const { return requests_; }

  private:
    std::string next(const platform::OpenFileRequest& request);

    platform::OpenFileHandler fileBefore_;
    platform::FolderHandler folderBefore_;
    std::deque<std::string> answers_;
    std::vector<platform::OpenFileRequest> requests_;
};

}  // namespace support
