// Saving, leaving and cutting out while the disk, the network or the power fails at any single call.
#include "tests/support/faults.h"

#include <gmock/gmock.h>

#include <algorithm>

#include "platform/dialogs.h"
#include "tests/editor/editor_fixture.h"
#include "tests/support/pictures.h"

namespace {

namespace files = platform::files;
namespace message = platform::message;
using support::Failure;
using support::failures;
using support::Faults;
using support::withEach;
using testing::HasSubstr;

class SaveFaults : public EditorTest {
  protected:
    // The user agrees to everything, and remembers what was told.
    SaveFaults()
        : handlerBefore_(platform::setMessageHandler([this](platform::Form*, const platform::Message& told) {
              const bool asks = (told.codes & 0x70) == message::question;
              if (!asks) told_.push_back(told.text);
              return asks && (told.codes & 0xF) != message::okCancel ? message::yes : message::ok;
          })) {
        environment.journalDirectory.clear();  // its writing would be counted, now and then
        makeSet("A", {.pictures = 2});
        makeSet("B", {.pictures = 4});
    }
    ~SaveFaults() override { platform::setMessageHandler(handlerBefore_); }

    std::string content() { return files::read(folder.file("TestSets\\A.kvs")); }
    void openAndLabel() {
        if (window().cboSets.text() != "A") openByChooser("A");
        window().GoToItem(1);
        pressClass((window().ItemClasses(1, 0) + 1) % 3);
        label_ = window().ItemClasses(1, 0);
        found_ = old_ = content();
        before_ = files::list(folder.file("TestSets")).size();
        told_.clear();
    }
    /// After the first try: nothing is lost and the user knows.
    void expectSavedOr(bool saved, const Failure& failure) {
        if (!saved) {
            ASSERT_FALSE(told_.empty());
            EXPECT_THAT(told_.front(), HasSubstr("nicht gespeichert werden.\r\nDie Datei"));
            EXPECT_FALSE(window().unchanged());
            EXPECT_EQ(window().ItemClasses(1, 0), label_);
        }
        found_ = content();
        if (!failure.leavesTemporary()) {
            EXPECT_EQ(files::list(folder.file("TestSets")).size(), before_);
        }
    }
    /// After the second one.
    void expectSaved() {
        const std::string fresh = content();
        EXPECT_NE(fresh, old_);
        EXPECT_TRUE(found_ == old_ || found_ == fresh) << found_;
        EXPECT_EQ(stored("A", "ROI0", "1"), std::to_string(label_ + 1));
    }

    std::vector<std::string> told_;

  private:
    int label_ = 0;
    std::size_t before_ = 0;  // files in the sets directory
    std::string old_, found_;
    platform::MessageHandler handlerBefore_;
};

TEST_F(SaveFaults, SavingLosesNothingAndCanBeTriedAgain) {
    start();
    const std::function<void()> ways[] = {[&] { user::press(window().btnSave); },
                                          [&] { openByChooser("B"); }};
    for (const auto& save : ways) {
        const bool leaves = &save != &ways[0];
        withEach(failures, 5, [&](const Failure& failure, int n, bool& met) {
            openAndLabel();
            {
                const Faults faults(failure, n);
                save();
                met = faults.met();
            }
            const bool saved = leaves ? window().set().sampleCount() == 4 : window().unchanged();
            EXPECT_EQ(window().cboSets.text(), leaves && saved ? "B" : "A");
            ASSERT_NO_FATAL_FAILURE(expectSavedOr(saved, failure));
            save();
            EXPECT_TRUE(window().unchanged());
            EXPECT_EQ(window().set().sampleCount(), leaves ? 4 : 2);
            expectSaved();
        });
    }
}

TEST_F(SaveFaults, ASetsDirectoryThatCannotBeListedIsToldAndTheChooserSaysWhatIsOpen) {
    start();
    openByChooser("A");
    openAndLabel();
    {
        Faults faults(failures[4]);
        faults.inReading();
        openByChooser("B");
    }
    ASSERT_EQ(told_.size(), 1U);
    EXPECT_THAT(told_[0], HasSubstr("kann nicht gelesen werden: "));
    EXPECT_EQ(window().cboSets.text(), "A");
    EXPECT_FALSE(window().unchanged());
    user::press(window().btnSave);
    EXPECT_TRUE(window().unchanged());
    expectSaved();
}

TEST_F(SaveFaults, TheWindowStaysUntilTheSetIsSaved) {
    withEach(std::array{failures[0], failures[6]}, 5, [&](const Failure& failure, int n, bool& stayed) {
        if (n == 1) start();
        openAndLabel();
        {
            const Faults faults(failure, n);
            user::press(window().btnOK);
            stayed = window().form.loaded();
        }
        ASSERT_NO_FATAL_FAILURE(expectSavedOr(!stayed, failure));
        if (stayed) user::press(window().btnSave);
        expectSaved();
    });
}

TEST_F(SaveFaults, ASettingThatCannotBeStoredIsToldOnceAndKeepsNeitherTheOthersNorTheWindow) {
    start();
    const std::vector<const char*> keys{"Interval", "PathROI", "Bar2", "Bar3", "ListView1", "lvCItems"};
    for (const char* key : keys) registry.write("Stich", key, "alt");
    const Faults faults(failures[2], 3);
    EXPECT_TRUE(user::close(window().form));
    EXPECT_TRUE(faults.met());
    ASSERT_EQ(told_.size(), 1U);
    EXPECT_THAT(told_[0], HasSubstr("Die Einstellungen können nicht geschrieben werden: "));
    EXPECT_LE(std::count_if(keys.begin(), keys.end(),
                            [&](const char* key) { return registry.read("Stich", key) == "alt"; }),
              1);
}

TEST_F(SaveFaults, TheProgramStartsWhereNoSettingCanBeWritten) {
    registry.write("", "DataPath", "1");
    registry.write("", "DataPathCustom", folder.file("gone"));
    {
        const Faults faults(failures[3]);
        EXPECT_TRUE(start());
        EXPECT_TRUE(faults.met());
    }
    EXPECT_EQ(window().cboSets.count(), 2);
    EXPECT_TRUE(told_.empty());
}

// Pictures of 32 x 24 pixels with a region each.
class CutOutFaults : public SaveFaults {
  protected:
    CutOutFaults() {
        makeSet("Probe", {.regions = {"Kopf", "Fuß"}});
        folder.write("Scripts\\Extract.kvr",
                     files::read(std::string("Z:") + STICH_SOURCE_DIR + "\\res\\Scripts\\Extract.kvr"));
        registry.write("Stich", "PathROI", target);
        start();
        openByChooser("Probe");
        user::choose(window().cboROI, 1);
    }
    void save() { user::press(window().Toolbar1, "btnSave"); }

    const std::string target = folder.file("Aus");
};

TEST_F(CutOutFaults, ACutOutIsTheOldFileOrTheNewOne) {
    const std::string file = target + "\\bild1_Kopf.bmp";
    save();
    const std::string fresh = files::read(file), old(300, 'o');
    withEach(failures, 10, [&](const Failure& failure, int n, bool& met) {  // the probe and the bitmap
        files::replace(file, old);
        const std::size_t before = files::list(target).size();
        {
            const Faults faults(failure, n);
            save();
            met = faults.met();
        }
        const bool saved = hint() == "Bereich gespeichert: " + file;
        EXPECT_TRUE(saved || (met && hint().find("konnte nicht gespeichert werden. ") != hint().npos))
            << hint();
        const std::string found = files::read(file);
        EXPECT_TRUE(found == fresh || (!saved && found == old));
        save();
        EXPECT_EQ(hint(), "Bereich gespeichert: " + file);
        EXPECT_EQ(files::read(file), fresh);
        if (!failure.leavesTemporary()) {
            EXPECT_EQ(files::list(target).size(), before) << "nothing is left but what was there";
        }
    });
    EXPECT_TRUE(told_.empty());
}

TEST_F(CutOutFaults, ADiskThatIsFullInTheMiddleOfARunEndsItAndIsTold) {
    user::chooseMenu(window().Toolbar1, "btnSave", "btnSaveAllROI2");
    const user::ModalUser looksOn([](platform::Form&) {});
    {
        const Faults faults({"", support::Fault::noSpace, support::Fault::noSpace, support::Fault::noSpace},
                            25);
        save();
    }
    EXPECT_THAT(hint(), HasSubstr("Ein Bereich konnte nicht gespeichert werden. "));
    std::vector<std::string> whole;
    for (const auto& entry : files::list(target))
        if (entry.name.front() != '~') whole.push_back(entry.name);
    EXPECT_GE(whole.size(), 1U);
    EXPECT_LE(whole.size(), 4U);
    save();
    EXPECT_EQ(hint(), "");
}

}  // namespace
