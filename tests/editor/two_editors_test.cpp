// Two programs that write one set: neither replaces what the other one wrote without saying so.
#include <thread>
#include <utility>

#include "editor/set_file.h"
#include "editor_fixture.h"
#include "platform/file_calls.h"

namespace {

namespace files = platform::files;
namespace message = platform::message;

const char* const replaced =
    "wurde von anderer Seite geändert, seit sie hier gelesen oder gespeichert wurde.";
const char* const overwrite =
    "Stichprobendatei \"A.kvs\" ist bereits vorhanden.\r\nVorhandene Datei überschreiben?";

std::function<void()> meanwhile;  // the watchers are plain functions

/// The other one comes in between; then nobody can put the file in its place.
files::Fault deniedAtLast(files::Call call) {
    if (call != files::Call::rename) return files::Fault::none;
    files::faultWatcher = nullptr;
    if (const auto act = std::exchange(meanwhile, nullptr)) act();
    files::faultWatcher = deniedAtLast;
    return files::Fault::accessDenied;
}

class TwoEditors : public EditorTest {
  protected:
    TwoEditors() {
        makeSet("A", {});
        makeSet("B", {});
        start();
        openByChooser("A");
        pressClass(2);
    }
    ~TwoEditors() override { files::faultWatcher = nullptr; }

    /// What the other one does.
    void theOther(int pictures) { makeSet("A", {.pictures = pictures}); }
    int storedPictures() { return std::stoi(stored("A", "Common", "Items")); }
    bool save() {
        user::press(window().btnSave);
        return window().unchanged();
    }
};

TEST_F(TwoEditors, WhatTheOtherOneWroteIsReplacedOnlyAfterAQuestion) {
    theOther(7);
    messages.expectPart(replaced, message::cancel);
    EXPECT_FALSE(save());
    EXPECT_EQ(messages.shown().back().codes,
              message::okCancel | message::exclamation | message::defaultButton2);
    EXPECT_EQ(storedPictures(), 7);
    messages.expectPart(replaced).expect(overwrite);
    EXPECT_TRUE(save());
    EXPECT_EQ(storedPictures(), 3);

    theOther(8);  // and again, at the two other places where one saves
    pressClass(1);
    messages.expectPart("speichern?", message::yes).expectPart(replaced, message::cancel);
    openByChooser("B");
    EXPECT_EQ(window().cboSets.text(), "A");
    messages.expectPart("speichern?", message::yes).expectPart(replaced, message::cancel);
    EXPECT_FALSE(user::close(window().form));
    EXPECT_EQ(storedPictures(), 8);
}

TEST_F(TwoEditors, WhatIsWrittenWhileAQuestionStandsIsAskedAboutToo) {
    std::vector<std::string> asked;
    const auto before = platform::setMessageHandler([&](platform::Form*, const platform::Message& said) {
        asked.push_back(said.text);
        if (asked.size() == 1) theOther(7);
        return asked.size() == 1 ? message::ok : message::cancel;
    });
    EXPECT_FALSE(save());
    platform::setMessageHandler(before);
    ASSERT_EQ(asked.size(), 2u);
    EXPECT_EQ(asked[0], overwrite);
    EXPECT_NE(asked[1].find(replaced), std::string::npos);
    EXPECT_EQ(storedPictures(), 7);
}

TEST_F(TwoEditors, AfterASaveThatFailedTheFileIsTheOneThatWasReadUnlessTheOtherOneWrote) {
    for (const bool isReplaced : {false, true}) {
        if (isReplaced) meanwhile = [this] { theOther(7); };
        pressClass(1);
        messages.expect(overwrite).expectPart("konnte nicht gespeichert werden");
        files::faultWatcher = deniedAtLast;
        EXPECT_FALSE(save());
        files::faultWatcher = nullptr;
        isReplaced ? messages.expectPart(replaced, message::cancel) : messages.expect(overwrite);
        EXPECT_EQ(save(), !isReplaced);
    }
    EXPECT_EQ(storedPictures(), 7);
}

TEST_F(TwoEditors, NobodyIsAskedAboutWhatHeWroteHimselfOrWhatIsNotThere) {
    for (int time = 0; time < 2; ++time) {
        pressClass(time);
        messages.expect(overwrite);
        EXPECT_TRUE(save()) << time;
    }
    pressClass(2);
    files::remove(setFile("A"));
    EXPECT_TRUE(save()) << "there is nothing to replace";

    theOther(7);
    user::type(window().cboSets, "B");  // which this one never read: the usual question says it all
    messages.expectPart("\"B.kvs\" ist bereits vorhanden.");
    EXPECT_TRUE(save());
    openByChooser("A");
    EXPECT_EQ(window().set().sampleCount(), 7);
    pressClass(1);
    messages.expect(overwrite);
    EXPECT_TRUE(save()) << "what was read last counts";

    user::type(window().cboSets, "Neu");
    EXPECT_TRUE(save());
    makeSet("Neu", {.pictures = 9});
    pressClass(1);
    messages.expectPart("\"Neu.kvs\" wurde von anderer Seite", message::cancel);
    EXPECT_FALSE(save()) << "a set that was named here is known from then on";
}

// The other one saves in the very moment in which the file is read: as soon as it is open, or just before,
// where nobody can replace an open file.
#ifdef _WIN32
constexpr auto readingCall = files::Call::open;
#else
constexpr auto readingCall = files::Call::read;
#endif

TEST(RememberedFile, IsTheOneThatWasRead) {
    // On another thread a picture may still be read that an editor before expected.
    static const auto reader = std::this_thread::get_id();
    const support::TempFolder folder;
    const auto write = [path = folder.file("A.kvs")](int samples) {
        editor::OpenSet set;
        set.addClass("gut");
        for (int i = 0; i < samples; ++i) set.addSample("C:\\Bilder", "x.bmp");
        editor::writeSet(path, {}, set, {});
    };
    write(3);
    meanwhile = [write] { write(7); };
    files::faultWatcher = +[](files::Call call) {
        if (call == readingCall && reader == std::this_thread::get_id() && meanwhile)
            std::exchange(meanwhile, nullptr)();
        return files::Fault::none;
    };
    editor::SetFile file{folder.file("A.kvs"), {}};
    const int count = file.read({}).set.sampleCount();
    files::faultWatcher = nullptr;
    EXPECT_EQ(count, 7);
    EXPECT_FALSE(file.isReplaced());
    write(8);
    EXPECT_TRUE(file.isReplaced());
}

}  // namespace
