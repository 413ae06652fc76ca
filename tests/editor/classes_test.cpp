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
    /// The list, the buttons and the chooser of the standard class show the same classes.
    void expectInStep(const std::vector<std::string>& names) {
        auto& w = window();
        const int count = static_cast<int>(names.size());
        ASSERT_EQ(w.lvCClasses.count(), count);
        ASSERT_EQ(w.cboStdClass.count(), count);
        ASSERT_EQ(w.kvButtonList1.count(), count);
        for (int i = 0; i < count; ++i) {
            const std::string& name = names[static_cast<std::size_t>(i)];
            EXPECT_EQ(user::shown(w.lvCClasses, i + 1, 0), name);
            EXPECT_EQ(w.cboStdClass.item(i), name);
            EXPECT_EQ(w.kvButtonList1.item(i).Caption, name);
        }
        EXPECT_EQ(w.btnCDel.enabled(), count >= 2);
        EXPECT_EQ(w.cboStdClass.listIndex(), w.set().standardClass());
    }
    const std::string clash =
        "Bezeichnung ist bereits vorhanden.\r\nBitte geben Sie eine eindeutige Bezeichnung ein!";
};

TEST_F(Classes, ANewClassGetsTheFirstFreeNumberAndItsNameIsEdited) {
    auto& w = window();
    user::press(w.btnCNew);
    expectInStep({"Klasse1", "Klasse3", "Klasse4"});
    ASSERT_TRUE(user::editing(w.lvCClasses));
    messages.expect(clash);
    user::finishEdit(w.lvCClasses, "KLASSE1");
    EXPECT_EQ(messages.shown().back().codes, message::critical);
    ASSERT_TRUE(user::editing(w.lvCClasses)) << "until a name of its own is given";
    user::finishEdit(w.lvCClasses, "R&D");
    expectInStep({"Klasse1", "Klasse3", "R&D"});
    EXPECT_FALSE(w.unchanged());
}

TEST_F(Classes, RenamingReachesEveryPlaceAndItsOwnNameMayChangeCase) {
    auto& w = window();
    user::clickRow(w.lvCClasses, 0);
    user::press(w.btnCRename);
    EXPECT_FALSE(user::editing(w.lvCClasses)) << "nothing is selected";
    user::clickRow(w.lvCClasses, 1);
    user::key(w.lvCClasses, platform::keyCode::f2);
    user::finishEdit(w.lvCClasses, "KLASSE1");
    EXPECT_EQ(classShown(1), "KLASSE1");
    user::doubleClickRow(w.lvCClasses, 2);
    user::abandonEdit(w.lvCClasses);
    expectInStep({"KLASSE1", "Klasse3"});
}

TEST_F(Classes, DeletingAsksAndRenumbersTheSamples) {
    auto& w = window();
    w.btnCNew.onClick();
    user::finishEdit(w.lvCClasses, "drei");
    pressClass(1);
    pressClass(2);
    pressClass(0);
    user::clickRow(w.lvCClasses, 2);
    messages.expect("Soll \"Klasse3\" wirklich gelöscht werden?", message::no)
        .expect("Soll \"Klasse3\" wirklich gelöscht werden?", message::yes);
    user::key(w.lvCClasses, platform::keyCode::del);
    expectInStep({"Klasse1", "Klasse3", "drei"});
    user::key(w.lvCClasses, platform::keyCode::del);
    expectInStep({"Klasse1", "drei"});
    EXPECT_EQ(classShown(1), "Klasse1") << "the deleted class gives way to the standard class";
    EXPECT_EQ(classShown(2), "drei");
    user::clickRow(w.lvCClasses, 2);
    user::press(w.btnCDel);
    expectInStep({"Klasse1"});
    EXPECT_EQ(classShown(2), "Klasse1");
    user::key(w.lvCClasses, platform::keyCode::del);
    expectInStep({"Klasse1"});
}

TEST_F(Classes, TheStandardClassIsGivenToAllOnlyWhenTheUserSaysSo) {
    auto& w = window();
    const std::string question =
        "Soll gleichzeitig allen Stichprobenelementen \"Klasse3\" zugewiesen werden?";
    user::clickRow(w.lvCClasses, 2);
    messages.expect(question, message::cancel).expect(question, message::no).expect(question, message::yes);
    user::press(w.btnCStd);
    EXPECT_EQ(messages.shown().back().codes, 291);
    EXPECT_EQ(w.set().standardClass(), 0);
    user::press(w.btnCStd);
    EXPECT_EQ(w.cboStdClass.text(), "Klasse3");
    EXPECT_EQ(user::shown(w.lvCClasses, 2, 2), "Standard");
    EXPECT_EQ(classShown(1), "Klasse1");
    user::choose(w.cboROI, 1);
    user::press(w.btnCStd);
    EXPECT_EQ(w.ItemClasses(4, 1), 1);
    EXPECT_EQ(w.ItemClasses(4, 0), 0) << "only in the region that is chosen";
    user::choose(w.cboStdClass, 0);
    EXPECT_EQ(w.set().standardClass(), 0);
    EXPECT_EQ(w.lvCClasses.firstSelected(), 1);
}

TEST_F(Classes, DescriptionsBelongToTheSelectedClass) {
    auto& w = window();
    user::clickRow(w.lvCClasses, 2);
    user::type(w.txtCDescription, "zweite");
    user::clickRow(w.lvCClasses, 1);
    EXPECT_EQ(w.txtCDescription.text(), "");
    EXPECT_EQ(w.set().classRow(2).description, "zweite");
    EXPECT_FALSE(w.unchanged());
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
    folders.answer(folder.file("Picture")).answer("");
    user::press(w.btnPath);
    user::press(w.btnPath);
    EXPECT_EQ(w.cboSets.text(), "mein Name");
    EXPECT_EQ(w.ListView1.count(), 0);
}

TEST_F(Creating, FilesGoIntoTheSetOnceUnlessDuplicatesAreAllowed) {
    auto& w = window();
    user::clickRow(w.ListView1, 1);
    user::clickRow(w.ListView1, 3, platform::shiftKey::control);
    user::press(w.btn);
    EXPECT_EQ(w.txtPicCount.text(), "2 Elemente");
    user::press(w.btn_A);
    EXPECT_EQ(w.set().sampleCount(), 3);
    user::check(w.chkDouble, true);
    user::press(w.btn_A);
    EXPECT_EQ(w.set().sampleCount(), 6);
    pressClass(0);
    user::check(w.chkDouble, false);
    EXPECT_EQ(w.set().sampleCount(), 3);
    EXPECT_EQ(w.lvCItems.count(), 3);
    user::press(w.btnRA);
    EXPECT_EQ(w.set().sampleCount(), 0);
    messages.expect("Sie haben keine Dateien ausgewählt!");
    user::press(w.btnSave);
}

}  // namespace
