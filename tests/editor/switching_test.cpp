#include "editor_fixture.h"

namespace {

namespace message = platform::message;

class Switching : public EditorTest {
  protected:
    void SetUp() override {
        makeSet("A", {.pictures = 2});
        makeSet("B", {.pictures = 4, .classes = {"eins", "zwei"}, .regions = {"Kopf"}});
        ASSERT_TRUE(start());
    }
    const std::string saveA = "Änderungen in  \"A.kvs\" speichern?";
    const std::string overwriteA =
        "Stichprobendatei \"A.kvs\" ist bereits vorhanden.\r\nVorhandene Datei überschreiben?";
};

TEST_F(Switching, ChangesAreSavedOrDroppedAsTheUserSays) {
    const struct {
        int save, overwrite;
        const char *stored, *open;
    } cases[] = {{message::no, 0, "1", "B"},
                 {message::yes, message::cancel, "1", "A"},
                 {message::yes, message::ok, "3", "B"}};
    for (const auto& c : cases) {
        restart();
        openByChooser("A");
        pressClass(2);
        messages.expect(saveA, c.save);
        if (c.save == message::yes) messages.expect(overwriteA, c.overwrite);
        openByChooser("B");
        EXPECT_EQ(stored("A", "ROI0", "1"), c.stored);
        EXPECT_EQ(window().cboSets.text(), c.open);
        const bool stays = c.open == std::string("A");
        EXPECT_EQ(window().lvCItems.count(), stays ? 2 : 4);
        EXPECT_EQ(window().ItemClasses(1, 0), stays ? 2 : 0) << "the label is still there";
        EXPECT_EQ(window().unchanged(), !stays);
    }
    EXPECT_EQ(messages.shown()[1].codes, 36);
    EXPECT_EQ(messages.shown()[1].title, "Stichprobe");
    EXPECT_EQ(messages.shown()[2].codes, 33);
}

TEST_F(Switching, ABadSetAfterOneWithoutANameKeepsThatOne) {
    writeSetFile("kaputt", "[Common]\r\n");
    for (const char* name : {"", "Neu"}) {
        restart(setFile("B"));
        pressClass(1);
        user::type(window().cboSets, name);
        const bool saved = name != std::string();
        messages
            .expect("Änderungen in  \"" + std::string(name) + ".kvs\" speichern?",
                    saved ? message::yes : message::no)
            .expectPart("Classes");
        openByChooser("kaputt");
        EXPECT_EQ(window().set().sampleCount(), 4);
        EXPECT_EQ(window().ItemClasses(1, 0), 1);
        EXPECT_EQ(window().cboSets.text(), name);
        EXPECT_EQ(window().unchanged(), saved);
    }
}

TEST_F(Switching, AStrayClassNumberIsPutRightAndTold) {
    const std::string file = setFile("A");
    std::string text = platform::files::read(file);
    text.replace(text.find("\r\n1=1") + 4, 1, "9");
    platform::files::replace(file, text);
    messages.expectPart("einmal");
    openByChooser("A");
    EXPECT_EQ(window().ItemClasses(1, 0), window().set().standardClass());
    EXPECT_FALSE(window().unchanged());
}

TEST_F(Switching, SavingAsksForANameForFilesAndForAStorableName) {
    auto& w = window();
    const std::string noName = "Sie haben keinen Namen für die Stichprobe vergeben!";
    messages.expect(noName);
    user::press(w.btnSave);
    user::type(w.cboSets, "Neu");
    messages.expect("Sie haben keine Dateien ausgewählt!");
    user::press(w.btnSave);
    EXPECT_EQ(messages.shown().back().codes, 48);
    openByChooser("A");
    for (const char* bad : {"a/b", "..\\weg", "nul", "Ende.", "Ende ", "x:y", "was?", "a\tb"}) {
        user::type(w.cboSets, bad);
        messages.expectPart("kann nicht verwendet werden");
        user::press(w.btnSave);
        EXPECT_FALSE(w.unchanged()) << bad;
    }
}

TEST_F(Switching, ANewNameIsListedAndBecomesTheCurrentOne) {
    auto& w = window();
    openByChooser("A");
    pressClass(1);
    user::type(w.cboSets, "Ärger");
    user::press(w.btnSave);
    EXPECT_EQ(w.cboSets.listIndex(), 1) << "in the order of the names";
    EXPECT_EQ(w.cboSets.count(), 3);
    EXPECT_EQ(stored("Ärger", "ROI0", "1"), "2");
    EXPECT_EQ(stored("Ärger", "Items", "1"), "Picture\\A\\bild1.bmp");
    openByChooser("A");
    EXPECT_EQ(w.lvCItems.count(), 2) << "nothing to ask: it was saved";

    user::type(w.cboSets, "b");  // differs in its case only
    messages.expect("Stichprobendatei \"b.kvs\" ist bereits vorhanden.\r\nVorhandene Datei überschreiben?",
                    message::cancel);
    user::press(w.btnSave);
    EXPECT_FALSE(w.unchanged());
    EXPECT_EQ(stored("B", "Common", "Items"), "4");
}

TEST_F(Switching, ClosingAsksOnlyForUnsavedLabels) {
    auto& w = window();
    openByChooser("A");
    pressClass(1);
    const std::string question = "Änderungen speichern?";
    messages.expect(question, message::cancel);
    EXPECT_FALSE(user::close(w.form));
    messages.expect(question, message::yes).expect(overwriteA, message::cancel);
    user::press(w.btnOK);
    EXPECT_TRUE(w.form.loaded()) << "a save that was not made keeps the window";
    EXPECT_EQ(messages.shown().front().codes, 35);
    messages.expect(question, message::yes).expect(overwriteA, message::ok);
    user::press(w.btnOK);
    EXPECT_FALSE(w.form.loaded());
    EXPECT_EQ(stored("A", "ROI0", "1"), "2");
}

TEST_F(Switching, AbbrechenDropsEverythingWithoutAQuestion) {
    openByChooser("A");
    pressClass(1);
    user::press(window().btnAbbr);
    EXPECT_FALSE(window().form.loaded());
    EXPECT_EQ(stored("A", "ROI0", "1"), "1");
    EXPECT_EQ(registry.read("Stich", "Interval"), "1000") << "the settings are kept all the same";
}

TEST_F(Switching, TypingTheNameOfAnotherSetDoesNotHideTheChangesOfTheOpenOne) {
    openByChooser("A");
    pressClass(1);
    window().cboSets.onClick();
    EXPECT_EQ(window().ItemClasses(1, 0), 0) << "chosen again it is read again, without a question";
    pressClass(1);
    user::type(window().cboSets, "B");
    messages.expect(saveA, message::yes).expect(overwriteA, message::ok);
    openByChooser("B");
    EXPECT_EQ(stored("A", "ROI0", "1"), "2");
    EXPECT_EQ(window().set().sampleCount(), 4);
}

// Missing pictures ---------------------------------------------------------------------------------------

class Missing : public EditorTest {
  protected:
    void SetUp() override {
        makeSet("A", {.pictures = 4, .regions = {"Kopf"}});
        makeSet("B", {.pictures = 1});
        makeSet("C", {.pictures = 2, .regions = {"Auge"}});
        platform::files::createDirectories(folder.file("Umzug"));
        for (const int n : {2, 3}) {
            platform::files::replace(folder.file("Umzug\\bild" + std::to_string(n) + ".bmp"),
                                     platform::files::read(picture("A", n)));
            platform::files::remove(picture("A", n));
        }
        ASSERT_TRUE(start());
        openByChooser("B");
    }
    static auto presses(const char* button) {
        return [button](platform::Form& form) { user::press(user::find<platform::Button>(form, button)); };
    }
};

TEST_F(Missing, GivingUpKeepsTheSetThatWasOpenWithItsLabelsAndRegions) {
    user::ModalUser dialog([](platform::Form& form) {
        auto& list = user::find<platform::ListView>(form, "ListView1");
        EXPECT_EQ(list.count(), 2);
        EXPECT_EQ(user::shown(list, 1, 0), "2");
        EXPECT_NE(user::shown(list, 1, 1).find("Picture\\A\\bild2.bmp"), std::string::npos);
        presses("btnAbbr")(form);
    });
    openByChooser("A");
    EXPECT_EQ(window().cboSets.text(), "B");
    EXPECT_EQ(window().lvCItems.count(), 1);
    EXPECT_TRUE(window().unchanged());

    restart(setFile("C"));  // a set without a name in the chooser
    auto& w = window();
    pressClass(2);
    user::choose(w.cboROI, 1);
    messages.expect("Änderungen in  \".kvs\" speichern?", message::no);
    openByChooser("A");
    EXPECT_EQ(w.ItemClasses(1, 0), 2);
    EXPECT_EQ(w.cboROI.listIndex(), 1);
    EXPECT_EQ(w.kvPictureBox1.regionRect(1), platform::Rect::at(1, 2, 3, 2));
    EXPECT_EQ(current(), 2);
    user::type(w.cboSets, "D");
    user::press(w.btnSave);
    EXPECT_EQ(stored("D", "ROI1", "dX"), "3");
}

TEST_F(Missing, ClosingTheProgramBehindTheDialogIsNoFault) {
    user::ModalUser dialog([this](platform::Form&) { window().form.unload(); });
    openByChooser("A");
    EXPECT_FALSE(window().form.loaded());
}

TEST_F(Missing, OneFoundFileBringsItsNeighbours) {
    support::DialogScript files;
    files.answer("").answer(folder.file("Umzug\\bild2.bmp"));
    messages.expect("Alle Elemente konnten erfolgreich zugewiesen werden.");
    int calls = 0;
    user::ModalUser dialog(
        [&](platform::Form& form) { presses(++calls <= 2 ? "btnSearch" : "btnAbbr")(form); });
    openByChooser("A");
    ASSERT_EQ(files.requests().size(), 2u) << "the first was given up";
    EXPECT_EQ(files.requests()[0].fileName, "bild2.bmp");
    ASSERT_EQ(window().set().sampleCount(), 4);
    EXPECT_EQ(window().ItemPath(3), folder.file("Umzug\\bild3.bmp"));
    EXPECT_FALSE(window().unchanged()) << "the new places are not saved yet";
}

TEST_F(Missing, WhatIsNotFoundCanBeSearchedAgainOrRemoved) {
    platform::files::remove(folder.file("Umzug\\bild3.bmp"));
    support::DialogScript files;
    files.answer(folder.file("Umzug\\bild2.bmp"));
    messages.expectPart("Nicht alle Elemente konnten zugewiesen werden.", message::cancel)
        .expectPart("Sind Sie sicher, daß Sie", message::no)
        .expectPart("Sind Sie sicher, daß Sie", message::yes);
    int calls = 0;
    user::ModalUser dialog([&](platform::Form& form) {
        if (++calls == 1) user::find<platform::ListView>(form, "ListView1").select(2);
        presses(calls == 1 ? "btnSearch" : "btnDel")(form);
    });
    openByChooser("A");
    EXPECT_EQ(files.requests()[0].fileName, "bild3.bmp") << "the one that is selected";
    EXPECT_EQ(files.requests()[0].flags, 0x201800u);
    EXPECT_EQ(messages.shown()[0].codes, 33);
    EXPECT_EQ(messages.shown()[1].codes, 36);
    ASSERT_EQ(window().set().sampleCount(), 3);
    EXPECT_EQ(window().ItemPath(2), folder.file("Umzug\\bild2.bmp"));
    EXPECT_EQ(user::shown(window().lvCItems, 3, 0), "bild4.bmp");
    EXPECT_FALSE(window().unchanged());
}

TEST_F(Missing, ASetThatLosesAllItsPicturesLosesItsRegions) {
    for (const int n : {1, 4}) platform::files::remove(picture("A", n));
    messages.expectPart("Sind Sie sicher", message::yes);
    user::ModalUser dialog(presses("btnDel"));
    openByChooser("A");
    EXPECT_EQ(window().set().sampleCount(), 0);
    EXPECT_EQ(window().set().regionCount(), 0);
}

TEST_F(Missing, ClosingTheDialogTakesTheSetAsItIs) {
    user::ModalUser dialog([](platform::Form& form) { user::close(form); });
    openByChooser("A");
    EXPECT_EQ(window().cboSets.text(), "A");
    EXPECT_EQ(window().set().sampleCount(), 4);
}

}  // namespace
