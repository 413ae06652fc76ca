#include "tests/support/messages.h"

#include <gtest/gtest.h>

#include <utility>

namespace support {

Messages::Messages()
    : before_(platform::setMessageHandler(
          [this](platform::Form*, const platform::Message& message) { return answer(message); })) {}

Messages::~Messages() {
    platform::setMessageHandler(std::move(before_));
    for (const Expected& missing : expected_) ADD_FAILURE() << "this message did not come: " << missing.text;
}

Messages& Messages::expect(const std::string& text, int answer) {
    expected_.push_back({text, true, answer});
    return *this;
}

Messages& Messages::expectPart(const std::string& part, int answer) {
    expected_.push_back({part, false, answer});
    return *this;
}

int Messages::answer(const platform::Message& message) {
    shown_.push_back(message);
    const Expected due = expected_.empty() ? Expected{} : expected_.front();
    if (!expected_.empty()) expected_.pop_front();
    const bool isIt = due.whole ? message.text == due.text : message.text.find(due.text) != std::string::npos;
    if (isIt && due.answer != 0) return due.answer;
    ADD_FAILURE() << "unexpected message: " << message.text << "\ninstead of: " << due.text;
    return platform::message::cancel;
}

DialogScript::DialogScript()
    : fileBefore_(platform::setOpenFileHandler([this](platform::Form*, const auto& request) {
          const std::string answer = next(request);
          return answer.empty() ? request.fileName : answer;
      })),
      folderBefore_(platform::setFolderHandler([this](platform::Form*, const auto& title, const auto& start) {
          return next({.title = title, .fileName = {}, .filter = {}, .initialDirectory = start});
      })) {}

DialogScript::~DialogScript() {
    platform::setOpenFileHandler(std::move(fileBefore_));
    platform::setFolderHandler(std::move(folderBefore_));
    for (const std::string& left : answers_) ADD_FAILURE() << "no dialog came for the answer " << left;
}

DialogScript& DialogScript::answer(const std::string& path) {
    answers_.push_back(path);
    return *this;
}

std::string DialogScript::next(const platform::OpenFileRequest& request) {
    requests_.push_back(request);
    EXPECT_FALSE(answers_.empty()) << "unexpected dialog: " << request.title;
    const std::string answer = answers_.empty() ? std::string() : answers_.front();
    if (!answers_.empty()) answers_.pop_front();
    return answer;
}

}  // namespace support
