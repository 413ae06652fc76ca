#include "editor_fixture.h"

namespace {

namespace message = platform::message;

class Dropping : public EditorTest {
  protected:
    Dropping() {
        makeSet("Neu", {.pictures = 2});
        makeSet("Alt", {});
        for (const std::string name : {"bild10.bmp", "Bild2.BMP", "bild1.JPG", "text.txt"})
            folder.write("Quelle\\" + name, std::string(100, 'x'));
        start();
    }
    void drop(std::vector<std::string> names) {
        for (std::string& name : names) name = folder.file(name);
        user::drop(window().form, names);
    }
    std::vector<std::string> samples() {
        std::vector<std::string> names;
        for (int row = 1; row <= window().set().sampleCount(); ++row)
            names.push_back(window().set().sampleName(row));
        return names;
    }
    using Names = std::vector<std::string>;
};

TEST_F(Dropping, PicturesAreAddedAsByTheButton) {
    drop({"Quelle\\bild10.bmp", "Quelle\\Bild2.BMP"});
    EXPECT_EQ(samples(), (Names{"Bild2.BMP", "bild10.bmp"}));
    EXPECT_EQ(window().set().sampleDirectory(1), folder.file("Quelle"));
    EXPECT_EQ(current(), 1);
    EXPECT_EQ(window().txtPicCount.text(), "2 Elemente");
    messages.expect(
        "Nur Bilder (*.bmp, *.jpg), Verzeichnisse und Stichproben (*.kvs) können hier abgelegt werden.\r\n"
        "Nicht verwendet:\r\ntext.txt\r\nweg.txt");
    drop({"Quelle\\weg.txt", "Quelle\\bild1.JPG", "Quelle\\BILD2.bmp", "Quelle\\text.txt"});
    EXPECT_EQ(samples(), (Names{"Bild2.BMP", "bild10.bmp", "bild1.JPG"}));
}

TEST_F(Dropping, AFolderIsBrowsed) {
    user::selectTab(window().TabStrip1, 2);
    messages.expectPart("\"Picture\" gezeigt.\r\nNicht verwendet:\r\nQuelle");
    drop({"Quelle", "Picture"});
    EXPECT_EQ(window().txtPath.text(), folder.file("Picture\\"));
    EXPECT_EQ(window().cboSets.text(), "Picture");
    EXPECT_TRUE(window().fraFiles.visible());
    drop({"Quelle", "Quelle\\bild1.JPG"});
    EXPECT_EQ(window().ListView1.count(), 3);
    EXPECT_EQ(samples(), Names{"bild1.JPG"});
}

TEST_F(Dropping, ASetIsOpenedAsIfItWereChosen) {
    openByChooser("Alt");
    pressClass(1);
    messages.expectPart("Änderungen in  \"Alt.kvs\" speichern?", message::no);
    drop({"TestSets\\Neu.kvs"});
    EXPECT_EQ(window().cboSets.text(), "Neu");
    EXPECT_EQ(window().set().sampleCount(), 2);

    folder.write("Fremd.KVS", platform::files::read(folder.file("TestSets\\Alt.kvs")));
    pressClass(1);
    messages
        .expect("Geöffnet wird nur die Stichprobe \"Fremd.KVS\".\r\nNicht verwendet:\r\nNeu.kvs\r\ntext.txt")
        .expectPart("\"Neu.kvs\" speichern?", message::yes)
        .expectPart("überschreiben?");
    drop({"TestSets\\Neu.kvs", "Fremd.KVS", "Quelle\\text.txt"});
    EXPECT_EQ(stored("Neu", "ROI0", "1"), "2");
    EXPECT_EQ(window().cboSets.text(), "") << "it is none of the sets directory";
    EXPECT_EQ(window().set().sampleCount(), 3);
}

}  // namespace
