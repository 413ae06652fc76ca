#include "platform/dialogs.h"

#include <gtest/gtest.h>

#include "tests/contract/test_window.h"
#include "tests/support/messages.h"

namespace {

using namespace platform;
using contract::TestWindow;

TEST(Messages, GoToTheHandlerThatIsPutIn) {
    TestWindow window;
    const Message asked{"Änderungen speichern?", message::yesNoCancel | message::question, "Vertrag"};
    Form* told = nullptr;
    const MessageHandler before = setMessageHandler([&](Form* owner, const Message& message) {
        told = owner;
        EXPECT_EQ(message.text, asked.text);
        EXPECT_EQ(message.codes, asked.codes);
        EXPECT_EQ(message.title, asked.title);
        return message::no;
    });
    EXPECT_EQ(showMessage(&window.form, asked), message::no);
    EXPECT_EQ(told, &window.form);

    const MessageHandler first = setMessageHandler([](Form*, const Message&) { return message::yes; });
    EXPECT_EQ(showMessage(&window.form, asked), message::yes);
    EXPECT_EQ(first(&window.form, asked), message::no) << "the one before was handed back";
    setMessageHandler(before);
}

TEST(OpenFile, AnswersTheOfferedNameWhenItIsCancelled) {
    TestWindow window;
    support::OpenFileScript script;
    script.answer("").answer("C:\\Bilder\\a.bmp");
    OpenFileRequest request;
    request.title = "Datei öffnen";
    request.fileName = "a.bmp";
    request.filter = "Bild (*.bmp)|*.bmp";
    EXPECT_EQ(showOpenFile(&window.form, request), "a.bmp");
    EXPECT_EQ(showOpenFile(&window.form, request), "C:\\Bilder\\a.bmp");
    ASSERT_EQ(script.requests().size(), 2u);
    EXPECT_EQ(script.requests()[0].filter, "Bild (*.bmp)|*.bmp");
}

TEST(ChooseFolder, AnswersTheFolderOrNothing) {
    TestWindow window;
    support::FolderScript script;
    script.answer("C:\\Bilder").answer("");
    EXPECT_EQ(chooseFolder(&window.form, "Verzeichnis", "C:\\"), "C:\\Bilder");
    EXPECT_EQ(chooseFolder(&window.form, "Verzeichnis", "C:\\"), "");
    ASSERT_EQ(script.requests().size(), 2u);
    EXPECT_EQ(script.requests()[1].start, "C:\\");
}

}  // namespace
