// Changes that were not saved when the program broke down come back, once, and nothing else does.
#include "editor/journal_file.h"
#include "random_user.h"

namespace {

namespace files = platform::files;
namespace message = platform::message;

using editor::JournalFile;

// The format -------------------------------------------------------------------------------------------

class JournalFormat : public testing::Test {
  protected:
    JournalFormat() {
        set.addClass("gut");
        set.addClass("Riß");
        set.addRegion("Kopf");
        for (const char* name : {"a.bmp", "b.bmp"}) set.addSample("C:\\Bilder", name);
    }
    /// The only one that was left there; null when there is none.
    static std::unique_ptr<JournalFile> onlyOne(const std::string& place) {
        auto left = JournalFile::left(place);
        return left.empty() ? nullptr : std::move(left.front());
    }

    support::TempFolder folder;
    editor::OpenSet set;
    const std::vector<editor::RegionRect> rectangles{{1, 2, 3, 4}};
};

// What a program leaves that ends in the middle of writing, wherever that is.
TEST_F(JournalFormat, WhateverIsCutOffAllThatIsWholeComesBack) {
    auto journal = JournalFile::create(folder.path(), {"C:\\Sets\\Köpfe.kvs", files::Version{77, -5}});
    journal->writeCopy(set, rectangles);
    journal->writeChanges({{1, 0, 1}, {2, 1, 1}}, {{1, {5, 6, 7, 8}}});
    journal.reset();
    std::string log, copy;
    for (const auto& entry : files::list(folder.path()))
        (entry.name.ends_with(".log") ? log : copy) = files::read(folder.file(entry.name));
    const auto lineEnd = [&](const char* line) { return log.find(line) + std::string(line).size(); };
    const std::size_t ends[] = {lineEnd("copy 1\n"), lineEnd("label 1 0 1\n"), lineEnd("label 2 1 1\n"),
                                lineEnd("region 1 5 6 7 8\n")};
    ASSERT_EQ(ends[3], log.size()) << log;
    for (std::size_t length = 0; length <= log.size(); ++length) {
        for (const std::size_t zeros : {0, 3}) {  // as some disks leave it
            const support::TempFolder place;
            place.write("1.log", log.substr(0, length) + std::string(zeros, '\0'));
            place.write("1.1.kvs", copy);
            const auto left = onlyOne(place.path());
            ASSERT_EQ(left != nullptr, length >= ends[0]) << length;
            if (!left) {
                EXPECT_TRUE(files::list(place.path()).empty()) << "nothing remains of it";
                continue;
            }
            const editor::LoadedSet read = left->read();
            EXPECT_EQ(read.set.classOf(1, 0), length >= ends[1] ? 1 : 0) << length;
            EXPECT_EQ(read.set.classOf(2, 1), length >= ends[2] ? 1 : 0) << length;
            EXPECT_EQ(read.rectangles[0].dY, length >= ends[3] ? 8 : 4) << length;
            EXPECT_EQ(read.set.samplePath(2), "C:\\Bilder\\b.bmp");
            EXPECT_FALSE(read.set.unchanged());
            EXPECT_EQ(left->file().path, "C:\\Sets\\Köpfe.kvs");
            EXPECT_EQ(left->file().version, (files::Version{77, -5}));
        }
    }
}

TEST_F(JournalFormat, WhatIsDamagedIsNeverAppliedInPart) {
    const std::string head = "Stich journal 1\nset \n";
    const char* const logs[] = {"Stich journal 2\nset \ncopy 1\n",
                                "copy 1\n",
                                "copy 1\nlabel 1 0 1\nlabel 1 0\n",
                                "copy 1\nlabel 1 0 x\nlabel 1 0 1\n",
                                "copy 1\nlabel 1 0 1\nlabel 3 0 1\n",
                                "copy 1\nlabel 1 2 1\n",
                                "copy 1\nlabel 1 0 2\n",
                                "copy 1\nlabel 1 0 99999999999\n",
                                "copy 1\nregion 2 1 1 1 1\n",
                                "copy 2\n"};
    for (const char* log : logs) {
        SCOPED_TRACE(log);
        const support::TempFolder place;
        editor::writeSet(place.file("1.1.kvs"), {}, set, rectangles);
        const bool isHeadless = log == logs[0] || log == logs[1];
        place.write("1.log", isHeadless ? log : head + log);
        auto left = onlyOne(place.path());
        ASSERT_NE(left, nullptr);
        EXPECT_THROW(left->read(), platform::RuntimeError);
        const std::string aside = left->setAside();
        EXPECT_NE(files::read(aside).find(log), std::string::npos);
        left.reset();
        EXPECT_EQ(onlyOne(place.path()), nullptr) << "told once";
        EXPECT_TRUE(files::fileExists(place.file("1.1.kvs"))) << "a person may still find something in it";
    }
}

TEST_F(JournalFormat, NothingElseInItsFolderIsTouched) {
    const char* const others[] = {"Meine Stichprobe.kvs", "12.kvs", "a.1.kvs"};
    for (const char* name : others) folder.write(name);
    folder.write("12.1.kvs");
    JournalFile::left(folder.path());
    EXPECT_FALSE(files::fileExists(folder.file("12.1.kvs"))) << "its log is gone";
    for (const char* name : others) EXPECT_TRUE(files::fileExists(folder.file(name))) << name;
}

// The editor -------------------------------------------------------------------------------------------

class Kept : public EditorTest {
  protected:
    Kept() {
        makeSet("A", {.regions = {"Kopf"}});
        makeSet("B", {.pictures = 2});
        start();
        openByChooser("A");
    }
    /// Changes that were kept, and one that came too late.
    Content change() {
        auto& w = window();
        pressClass(2);
        keep();
        pressClass(1);
        user::selectTab(w.TabStrip1, 3);
        user::clickRow(w.lvROIs, 1);
        user::type(w.txtX, "2");
        user::commit(w.txtX);
        keep();
        const Content kept = contentOf(w);
        pressClass(2);
        return kept;
    }
    const std::string file = setFile("A");
    const std::string offer = "Nicht gespeicherte Änderungen in \"" + file + "\" vom ";
};

TEST_F(Kept, ComesBackWhenTheSetIsOpenedNextUntilItIsSavedOrRefused) {
    const Content kept = change();
    crash();
    start();
    messages.expectPart(offer, message::yes);
    openByChooser("A");
    EXPECT_EQ(messages.shown().back().codes, message::yesNo | message::question);
    EXPECT_EQ(contentOf(window()), kept);
    EXPECT_FALSE(window().unchanged());
    EXPECT_EQ(window().cboSets.text(), "A");

    crash();  // before it kept anything itself
    messages.expectPart(offer, message::yes);
    start(file);
    EXPECT_EQ(contentOf(window()), kept);
    pressClass(1);
    keep();
    EXPECT_EQ(journals(), 1) << "its own takes the place of the former one";
    user::type(window().cboSets, "A");
    messages.expectPart("überschreiben?");
    user::press(window().btnSave);
    EXPECT_EQ(journals(), 0);

    pressClass(2);
    keep();
    crash();
    messages.expectPart(offer, message::no);
    start(file);
    EXPECT_EQ(window().ItemClasses(1, 0), 1) << "as it was saved";
    EXPECT_EQ(journals(), 0);
}

TEST_F(Kept, GoesWithTheChanges) {
    const struct {
        const char* what;
        std::function<void(editor::frmStich&)> act;
        bool isClosed;
    } ways[] = {
        {"saved", [&](auto& w) { messages.expectPart("überschreiben?"), user::press(w.btnSave); }, false},
        {"refused", [&](auto&) { messages.expectPart("speichern?", message::no), openByChooser("B"); },
         false},
        {"read again", [](auto& w) { w.cboSets.onClick(); }, false},
        {"emptied", [&](auto& w) { user::press(w.btnRA), keep(); }, false},
        {"cancelled", [](auto& w) { user::press(w.btnAbbr); }, true},
        {"closed", [&](auto& w) { messages.expectPart("speichern?", message::no), user::press(w.btnOK); },
         true},
    };
    for (const auto& way : ways) {
        SCOPED_TRACE(way.what);
        restart();
        openByChooser("A");
        pressClass(2);
        keep();
        EXPECT_EQ(journals(), 1);
        way.act(window());
        EXPECT_EQ(journals(), 0);
        EXPECT_EQ(window().form.loaded(), !way.isClosed);
    }
}

TEST_F(Kept, StaysWhenTheSystemEndsTheProgramWithoutAnAnswer) {
    pressClass(2);
    keep();
    messages.expectPart("speichern?", message::cancel);
    EXPECT_FALSE(user::close(window().form));
    window().form.onUnload();
    crash();
    EXPECT_EQ(journals(), 1);
    start();
}

TEST_F(Kept, TellsWhenTheFileIsNoLongerTheOneThatWasChanged) {
    const Content kept = change();
    crash();
    makeSet("A", {.pictures = 7, .regions = {"Kopf"}});
    start();
    messages.expectPart("seitdem von anderer Seite geändert", message::yes);
    openByChooser("A");
    EXPECT_EQ(contentOf(window()), kept);
    messages.expectPart("von anderer Seite geändert, seit", message::cancel);
    user::press(window().btnSave);
    keep();
    crash();

    files::remove(file);
    messages.expectPart("Die Datei gibt es nicht mehr.", message::yes);
    start();  // no chooser lists it
    EXPECT_EQ(contentOf(window()), kept);
    EXPECT_EQ(window().cboSets.text(), "A");
    user::press(window().btnSave);
    EXPECT_TRUE(window().unchanged());
    EXPECT_EQ(journals(), 0);
}

TEST_F(Kept, ASetThatHasNoFileYetIsOfferedAtTheNextStartWithoutASet) {
    restart();
    support::DialogScript folders;
    folders.answer(folder.file("Picture\\A"));
    user::press(window().btnPath);
    user::press(window().btn_A);
    const Content made = contentOf(window());
    keep();
    crash();
    start(file);
    messages.expectPart("einer Stichprobe ohne Namen", message::yes);
    restart();
    EXPECT_EQ(contentOf(window()), made);
    EXPECT_EQ(window().txtPicCount.text(), "3 Elemente");
    EXPECT_EQ(window().cboSets.text(), "");
}

TEST_F(Kept, WaitsForAShareThatIsNotThereYet) {
    change();
    crash();
    for (const auto& entry : files::list(folder.file("Journal"))) {
        const std::string name = folder.file("Journal\\" + entry.name);
        std::string text = files::read(name);
        const auto place = text.find("TestSets\\A.kvs");
        if (place == std::string::npos) continue;
        files::replace(name, text.replace(place, 8, "Freigabe"));
    }
    start();
    EXPECT_EQ(journals(), 1) << "nobody was asked";
    folder.write("Freigabe\\B.kvs");  // now it is there, and the file is not
    messages.expectPart("gibt es nicht mehr", message::no);
    restart();
    EXPECT_EQ(journals(), 0);
}

TEST_F(Kept, BelongsToTheEditorThatRuns) {
    pressClass(2);
    keep();
    {
        editor::frmStich other(environment);
        shell::start(other, environment, file);
        EXPECT_EQ(other.ItemClasses(1, 0), 0) << "nobody was asked";
        other.kvButtonList1_Click(1);
        user::tick(other.Timer4);
        while (other.journal().isWriting()) {
        }
        EXPECT_EQ(journals(), 2);
        other.btnAbbr.onClick();
    }
    EXPECT_EQ(journals(), 1);
    crash();
    messages.expectPart(offer, message::yes);
    start(file);
    EXPECT_EQ(window().ItemClasses(1, 0), 2);
}

TEST_F(Kept, WhereItCannotBeWrittenTheWorkGoesOnAndALineTellsIt) {
    folder.write("Journal");  // a file where the folder should be
    pressClass(2);
    keep();
    user::tick(window().Timer4);
    const std::string line = window().lblHint.caption();
    EXPECT_TRUE(line.starts_with("Nicht gespeicherte Änderungen können zur Zeit nicht gesichert werden."))
        << line;
    pressClass(1);
    EXPECT_EQ(window().lblHint.caption(), line) << "the next picture does not hide it";
    files::remove(folder.file("Journal"));
    for (int tick = 0; tick < 20; ++tick) keep();
    EXPECT_FALSE(window().lblHint.visible());
    EXPECT_EQ(journals(), 1);
    const Content kept = contentOf(window());
    crash();
    messages.expectPart(offer, message::yes);
    start(file);
    EXPECT_EQ(contentOf(window()), kept);
}

TEST_F(Kept, WhatCannotBeUnderstoodIsToldAndTheFileIsOpened) {
    change();
    crash();
    for (const auto& entry : files::list(environment.journalDirectory)) {
        if (!entry.name.ends_with(".log")) folder.write("Journal\\" + entry.name, "[Common]\r\n");
    }
    start();
    messages.expectPart(offer, message::yes).expectPart("können nicht wiederhergestellt werden");
    openByChooser("A");
    EXPECT_EQ(window().ItemClasses(1, 0), 0);
    EXPECT_TRUE(window().unchanged());
}

// Anything, at any moment ------------------------------------------------------------------------------

struct Unlucky : Person {
    using Person::Person;

    int answer(const platform::Message& said) override {
        const bool isOffer = said.text.starts_with("Das Programm wurde nicht");
        if (!isOffer && isComingBack && (said.codes & 7) == message::yesNo) return message::no;
        if (!isOffer) return Person::answer(said);
        ++offers;
        return message::yes;
    }
    void atDialog(platform::Form& dialog) override {
        isComingBack ? static_cast<void>(user::close(dialog)) : Person::atDialog(dialog);
    }
    void keepAll() {
        keep();
        kept = contentOf(window());
        isKept = true;
    }
    void actOn(int steps) {
        isKept = false;
        while (steps-- > 0) {
            act(1);
            window().Timer4.setInterval(never);
        }
    }
    Content left() const {
        const auto read = JournalFile::left(environment.journalDirectory).at(0)->read();
        return contentOf(read.set, read.rectangles);
    }
    /// Crashes and comes back; what is kept then comes back, too.
    void crashAndReturn() {
        const bool mustBeThere = isKept && !window().unchanged() && window().set().sampleCount() > 0;
        crash();
        const bool isThere = journals() == 1;
        if (mustBeThere && !isThere) fail("what was kept is gone");
        if (isThere && left() != kept) fail("something else was kept");
        isComingBack = true;
        offers = 0;
        start();
        for (int i = 0; i < window().cboSets.count() && offers == 0; ++i) user::choose(window().cboSets, i);
        isComingBack = false;
        if (offers != (isThere ? 1 : 0)) fail("it was offered " + std::to_string(offers) + " times");
        // The picture that is shown may have no room for all regions.
        const Content back = contentOf(window());
        if (isThere && (back.samples != kept.samples || back.classes != kept.classes))
            fail("something else came back");
        if (isThere && window().unchanged()) fail("what came back is not saved");
        saved.reset();
        expected = contentOf(window()).samples;
        check();
    }

    static constexpr int never = 1'000'000'000;  // by itself: what is kept is kept by keepAll
    Content kept;
    bool isKept = false;  // since the last step
    bool isComingBack = false;
    int offers = 0;
};

TEST(RandomUser, LosesNothingThatWasKeptWhenTheProgramCrashes) {
#ifdef _WIN32
    constexpr int crashes = 4;
#else
    constexpr int crashes = 100;
#endif
    Unlucky person(1);
    for (int crash = 1; crash <= crashes && person.fault.empty(); ++crash) {
        for (int acts = 1 + person.below(8); acts > 0; --acts) {
            person.actOn(1 + person.below(6));
            person.keepAll();
        }
        if (person.below(2) == 0) person.actOn(1 + person.below(3));
        person.crashAndReturn();
        EXPECT_EQ(person.fault, "") << crash;
    }
}

}  // namespace
