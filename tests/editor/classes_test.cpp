#include "editor_fixture.h"

namespace {

namespace message = platform::message;

class Classes : public EditorTest {
  protected:
    void SetUp() override {
        ASSERT_TRUE(
            start(makeSet("A", {.pictures = 4, .classes = {"Klasse1", "Klasse3"}, .regions = {"Kopf"}})));
        user::selectTab(window().TabStrip1, 2);
    }
};

TEST_F(Classes, ANewClassGetsTheFirstFreeNumberAndANameOfItsOwn) {
    auto& w = window();
    user::press(w.btnCNew);
    EXPECT_EQ(w.set().classRow(3).name, "Klasse4");
    messages.expect("Bezeichnung ist bereits vorhanden.\r\nBitte geben Sie eine eindeutige Bezeichnung ein!");
    user::finishEdit(w.lvCClasses, "KLASSE1");
    EXPECT_EQ(messages.shown().back().codes, message::critical);
    ASSERT_TRUE(user::editing(w.lvCClasses)) << "until a name of its own is given";
    user::finishEdit(w.lvCClasses, "klasse4");
    EXPECT_EQ(w.set().classRow(3).name, "klasse4") << "its own name in another spelling";
    user::clickRow(w.lvCClasses, 0);
    user::press(w.btnCRename);
    EXPECT_FALSE(user::editing(w.lvCClasses)) << "nothing is selected";
}

TEST_F(Classes, DeletingAsksAndTheStandardClassTakesItsPlace) {
    auto& w = window();
    pressClass(1);
    user::clickRow(w.lvCClasses, 2);
    const std::string question = "Soll \"Klasse3\" wirklich gelöscht werden?";
    messages.expect(question, message::no).expect(question, message::yes);
    for (const char* label : {"Klasse3", "Klasse1"}) {
        user::key(w.lvCClasses, platform::keyCode::del);
        EXPECT_EQ(classShown(1), label);
    }
    user::key(w.lvCClasses, platform::keyCode::del);
    EXPECT_EQ(w.set().classCount(), 1) << "the last one stays";
}

TEST_F(Classes, TheStandardClassIsGivenToAllOnlyWhenTheUserSaysSo) {
    auto& w = window();
    const std::string question =
        "Soll gleichzeitig allen Stichprobenelementen \"Klasse3\" zugewiesen werden?";
    user::clickRow(w.lvCClasses, 2);
    messages.expect(question, message::cancel).expect(question, message::no).expect(question, message::yes);
    user::choose(w.cboROI, 1);
    const struct { int standard, label; } after[] = {{0, 0}, {1, 0}, {1, 1}};
    for (const auto& [standard, label] : after) {
        user::press(w.btnCStd);
        EXPECT_EQ(w.set().standardClass(), standard);
        EXPECT_EQ(w.ItemClasses(4, 1), label);
    }
    EXPECT_EQ(messages.shown().back().codes, 291);
    EXPECT_EQ(w.ItemClasses(4, 0), 0) << "only in the region that is chosen";
}

class Creating : public EditorTest {
  protected:
    void SetUp() override {
        for (const std::string name : {"bild10.bmp", "Bild2.BMP", "bild1.JPG", "text.txt"})
            folder.write("Quelle ä\\" + name, std::string(name.size() * 1000, 'x'));
        ASSERT_TRUE(start());
        folders.answer(folder.file("Quelle ä"));
        user::press(window().btnPath);
    }
    support::DialogScript folders;
};

TEST_F(Creating, AFolderIsBrowsedAndProposesTheNameOfANewSet) {
    auto& w = window();
    EXPECT_EQ(folders.requests()[0].title, "Quellverzeichnis");
    EXPECT_EQ(w.txtPath.text(), folder.file("Quelle ä\\"));
    EXPECT_EQ(w.cboSets.text(), "Quelle ä");
    ASSERT_EQ(w.ListView1.count(), 3);
    EXPECT_EQ(user::shown(w.ListView1, 2, 0), "Bild2.BMP");
    w.kvBar2.setPosition(640);  // all columns in view
    w.form.onResize();
    user::clickColumn(w.ListView1, 1);
    EXPECT_EQ(user::shown(w.ListView1, 1, 0), "bild10.bmp") << "each click turns the direction";
    user::clickColumn(w.ListView1, 2);
    EXPECT_EQ(user::shown(w.ListView1, 3, 0), "bild10.bmp") << "by size, smallest first";
    EXPECT_EQ(user::shown(w.ListView1, 1, 1), "9 KB");
    user::type(w.cboSets, "mein Name");
    folders.answer(folder.file("Picture"));
    user::press(w.btnPath);
    EXPECT_EQ(w.cboSets.text(), "mein Name");
    EXPECT_EQ(w.ListView1.count(), 0);
}

TEST_F(Creating, FilesGoIntoTheSetOnceUnlessDuplicatesAreAllowed) {
    auto& w = window();
    user::clickRow(w.ListView1, 1);
    user::clickRow(w.ListView1, 3, platform::shiftKey::control);
    user::press(w.btn);
    EXPECT_EQ(w.set().sampleCount(), 2);
    for (const auto& [doubles, samples] : {std::pair{false, 3}, {true, 6}, {false, 3}}) {
        user::check(w.chkDouble, doubles);
        user::press(w.btn_A);
        EXPECT_EQ(w.set().sampleCount(), samples);
    }
}

}  // namespace
