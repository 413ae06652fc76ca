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
        bool whole;
        int answer;
    };
    Messages& expect(Expected expected);
    int answer(const platform::Message& message);

    platform::MessageHandler before_;
    std::deque<Expected> expected_;
    std::vector<platform::Message> shown_;
};

/// Answers the open-file dialogs: each takes the next answer; the empty one cancels.
class OpenFileScript {
  public:
    OpenFileScript();
    ~OpenFileScript();
    OpenFileScript(const OpenFileScript&) = delete;
    OpenFileScript& operator=(const OpenFileScript&) = delete;

    OpenFileScript& answer(const std::string& fileName);
    const std::vector<platform::OpenFileRequest>& requests() const { return requests_; }

  private:
    platform::OpenFileHandler before_;
    std::deque<std::string> answers_;
    std::vector<platform::OpenFileRequest> requests_;
};

/// The same for the dialogs that ask for a folder.
class FolderScript {
  public:
    struct Request {
        std::string title;
        std::string start;
    };
    FolderScript();
    ~FolderScript();
    FolderScript(const FolderScript&) = delete;
    FolderScript& operator=(const FolderScript&) = delete;

    FolderScript& answer(const std::string& folder);
    const std::vector<Request>& requests() const { return requests_; }

  private:
    platform::FolderHandler before_;
    std::deque<std::string> answers_;
    std::vector<Request> requests_;
};

}  // namespace support
