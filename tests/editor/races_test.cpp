// Files that are changed, moved or removed by somebody else while the editor works with them.
#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>

#include "editor_fixture.h"
#include "platform/application.h"
#include "tests/support/pictures.h"

namespace {

namespace files = platform::files;
namespace message = platform::message;
using testing::HasSubstr;

std::filesystem::path systemPath(const std::string& path) {
#ifdef _WIN32
    return std::filesystem::u8path(path);
#else
    std::string plain = path.substr(2);  // without the drive
    std::replace(plain.begin(), plain.end(), '\\', '/');
    return plain;
#endif
}

class Races : public EditorTest {
  protected:
    void SetUp() override {
        makeSet("Probe", {.pictures = 4, .regions = {"Kopf"}});
        makeSet("Andere", {.pictures = 1});
        ASSERT_TRUE(start());
        openByChooser("Probe");
    }
    static void move(const std::string& from, const std::string& to) {
        std::filesystem::rename(systemPath(from), systemPath(to));
    }
    static void removeAll(const std::string& directory) {
        std::filesystem::remove_all(systemPath(directory));
    }
    void save(bool asks) {
        if (asks) messages.expectPart("bereits vorhanden", message::ok);
        user::press(window().btnSave);
    }
};

TEST_F(Races, APictureThatIsShownCanBeRenamedReplacedAndDeletedByOthers) {
    auto& w = window();
    const std::string jpeg = folder.write("Picture\\Probe\\foto.jpg", support::smallJpeg());
    const std::string shown[] = {picture("Probe", 1), jpeg};
    for (const std::string& file : shown) {
        if (file == jpeg)
            w.kvPictureBox1.LoadPic(file);
        else
            w.GoToItem(1);
        ASSERT_FALSE(w.kvPictureBox1.Failed());
        move(file, file + ".neu");
        move(file + ".neu", file);
        files::replace(file, files::read(file));
        files::remove(file);
        EXPECT_FALSE(w.kvPictureBox1.Failed()) << "what is on the screen stays";
        EXPECT_EQ(hint(), "");
    }
}

TEST_F(Races, APictureOrADriveThatIsGoneIsToldWhenItIsDueCostsNoLabelAndComesBack) {
    auto& w = window();
    pressClass(2);
    files::remove(picture("Probe", 1));
    w.GoToItem(1);
    EXPECT_THAT(hint(), HasSubstr("bild1.bmp: Die Datei wurde nicht gefunden."));
    w.GoToItem(2);
    EXPECT_EQ(hint(), "");
    move(folder.file("Picture"), folder.file("fort"));
    pressClass(1);  // the one that is seen
    for (const int row : {3, 4, 1, 2}) {
        w.GoToItem(row);
        EXPECT_THAT(hint(), HasSubstr("nicht gefunden")) << row;
    }
    save(true);
    EXPECT_TRUE(w.unchanged());
    EXPECT_EQ(stored("Probe", "Common", "Items"), "4") << "a set keeps pictures that are not there";
    EXPECT_EQ(stored("Probe", "ROI0", "1"), "3");
    EXPECT_EQ(stored("Probe", "ROI0", "2"), "2");
    move(folder.file("fort"), folder.file("Picture"));
    w.GoToItem(3);
    EXPECT_EQ(hint(), "");
    EXPECT_FALSE(w.kvPictureBox1.Failed());
}

TEST_F(Races, AFolderThatIsGoneWhileItsFilesAreListedIsTold) {
    auto& w = window();
    user::selectTab(w.TabStrip1, 1);
    folder.write("Quelle\\neu.bmp", files::read(picture("Probe", 1)));
    support::DialogScript dialogs;
    dialogs.answer(folder.file("Quelle")).answer(folder.file("Quelle"));
    user::press(w.btnPath);
    ASSERT_EQ(w.ListView1.count(), 1);
    removeAll(folder.file("Quelle"));
    user::clickRow(w.ListView1, 1);
    EXPECT_THAT(hint(), HasSubstr("neu.bmp: Die Datei wurde nicht gefunden."));
    messages.expectPart("Quelle");
    user::press(w.btnPath);
    EXPECT_EQ(w.ListView1.count(), 1) << "what was listed";
    user::press(w.btn_A);
    EXPECT_EQ(w.set().sampleCount(), 5);
    messages.expectPart("Änderungen in", message::no);
    openByChooser("Andere");
    EXPECT_EQ(w.set().sampleCount(), 1);
}

TEST_F(Races, AFolderThatGoesInTheMiddleOfItsListingIsNoFault) {
    for (int i = 0; i < 50; ++i) folder.write("Quelle\\bild" + std::to_string(i) + ".bmp");
    const auto removeIt = [&](std::size_t entries) {
        if (entries == 3) removeAll(folder.file("Quelle"));
        return true;
    };
    EXPECT_GE(files::list(folder.file("Quelle"), removeIt).size(), 3U);
    EXPECT_THROW(files::list(folder.file("Quelle"), removeIt), platform::RuntimeError);
}

TEST_F(Races, ASetFileThatIsGoneIsSavedAnewWithItsDirectory) {
    pressClass(1);
    removeAll(folder.file("TestSets"));
    save(false);
    EXPECT_TRUE(window().unchanged());
    EXPECT_EQ(stored("Probe", "ROI0", "1"), "2");
}

TEST_F(Races, ASetThatCannotBeReadAgainStaysOpenAsItIs) {
    auto& w = window();
    for (const bool gone : {false, true}) {
        SCOPED_TRACE(gone);
        pressClass(1);
        writeSetFile("Probe", "[Common]\r\nClasses=kaputt\r\n");
        writeSetFile("Andere", "");
        if (gone) files::remove(setFile("Probe"));
        messages.expectPart("Änderungen in", message::no).expectPart("nicht geöffnet");
        if (!gone) messages.expectPart("nicht geöffnet");  // the one before, too
        openByChooser("Andere");
        EXPECT_EQ(w.cboSets.text(), "Probe");
        ASSERT_EQ(w.set().sampleCount(), 4);
        EXPECT_EQ(w.ItemClasses(1, 0), 1);
        EXPECT_EQ(w.set().regionCount(), 1);
        EXPECT_FALSE(w.unchanged()) << "it is nowhere but here";
        w.GoToItem(1);
    }
}

// The row is chosen still, but it is another item's.
TEST_F(Races, AnItemThatTakesTheChosenRowMeanwhileIsTheOneThatIsSeen) {
    auto& w = window();
    const auto onTheWay = [&w](const std::function<void()>& act) {
        platform::application::post(
            w.form, [&w, act] { platform::application::post(w.form, act); });  // in the second pump
    };
    onTheWay([&] {
        w.ListView2.selectOnly(2);
        w.btnR_Click();
        w.lvCItems.selectOnly(3);
        w.lvCItems_ItemClick(3);
    });
    w.GoToItem(3);
    user::pump();
    EXPECT_EQ(w.kvPictureBox1.FileName(), picture("Probe", 4));

    w.GoToItem(3);
    messages.expectPart("Änderungen in", message::no);
    onTheWay([&] { openByChooser("Andere"); });
    w.GoToItem(1);
    user::pump();
    EXPECT_EQ(w.set().sampleCount(), 1);
    EXPECT_EQ(w.kvPictureBox1.FileName(), picture("Andere", 1));
}

}  // namespace
