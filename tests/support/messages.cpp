#include "tests/support/messages.h"

#include <gtest/gtest.h>

#include <utility>

namespace support {

namespace {

/// The answer that is due; a dialog that no test asked for fails it.
std::string next(std::deque<std::string>& answers, const std::string& dialog) {
    if (answers.empty()) {
        ADD_FAILURE() << "unexpected dialog: " << dialog;
        return {};
    }
    std::string answer = std::move(answers.front());
    answers.pop_front();
    return answer;
}

void expectNoneLeft(const std::deque<std::string>& answers) {
    EXPECT_TRUE(answers.empty()) << "a dialog that should be answered by \"" << answers.front()
                                 << "\" did not come";
}

}  // namespace

Messages::Messages()
    : before_(platform::setMessageHandler(
          [this](platform::Form*, const platform::Message& message) { return answer(message); })) {}

Messages::~Messages() {
    platform::setMessageHandler(std::move(before_));
    for (const Expected& missing : expected_) ADD_FAILURE() << "this message did not come: " << missing.text;
}

Messages& Messages::expect(const std::string& text, int answer) {
    return expect(Expected{text, true, answer});
}

Messages& Messages::expectPart(const std::string& part, int answer) {
    return expect(Expected{part, false, answer});
}

Messages& Messages::expect(Expected expected) {
    expected_.push_back(std::move(expected));
    return *this;
}

int Messages::answer(const platform::Message& message) {
    shown_.push_back(message);
    if (!expected_.empty()) {
        const Expected expected = expected_.front();
        const bool isIt = expected.whole ? message.text == expected.text
                                         : message.text.find(expected.text) != std::string::npos;
        if (isIt) {
            expected_.pop_front();
            return expected.answer;
        }
    }
    ADD_FAILURE() << "unexpected message: " << message.text
                  << (expected_.empty() ? "" : "\ninstead of: " + expected_.front().text);
    return platform::message::cancel;
}

OpenFileScript::OpenFileScript()
    : before_(platform::setOpenFileHandler([this](platform::Form*, const platform::OpenFileRequest& request) {
          requests_.push_back(request);
          const std::string answer = next(answers_, request.title);
          return answer.empty() ? request.fileName : answer;
      })) {}

OpenFileScript::~OpenFileScript() {
    platform::setOpenFileHandler(std::move(before_));
    expectNoneLeft(answers_);
}

OpenFileScript& OpenFileScript::answer(const std::string& fileName) {
    answers_.push_back(fileName);
    return *this;
}

FolderScript::FolderScript()
    : before_(platform::setFolderHandler(
          [this](platform::Form*, const std::string& title, const std::string& start) {
              requests_.push_back({title, start});
              return next(answers_, title);
          })) {}

FolderScript::~FolderScript() {
    platform::setFolderHandler(std::move(before_));
    expectNoneLeft(answers_);
}

FolderScript& FolderScript::answer(const std::string& folder) {
    answers_.push_back(folder);
    return *this;
}

}  // namespace support
