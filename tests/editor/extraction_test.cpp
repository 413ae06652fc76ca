#include <algorithm>

#include "platform/path.h"
#include "tests/editor/counting_source.h"
#include "tests/editor/editor_fixture.h"
#include "tests/support/pictures.h"

namespace {

namespace files = platform::files;

TEST(CutOutNames, NoPictureOrRegionTakesTheFileOfAnother) {
    shell::CutOutNames names([](const std::string& path) { return path == "D:\\aus\\A_Probe.bmp"; });
    const struct {
        const char* picture;
        int region;
        const char* name;
        const char* expected;
    } cases[] = {
        {"C:\\p\\A.jpg", 1, "Kopf", "D:\\aus\\A_Kopf.bmp"},
        {"C:\\q\\a.jpg", 1, "Kopf", "D:\\aus\\a_Kopf (2).bmp"},
        {"C:\\p\\A.bmp", 1, "KOPF", "D:\\aus\\A_KOPF (3).bmp"},
        {"c:\\P\\a.JPG", 1, "Kopf", "D:\\aus\\a_Kopf.bmp"},
        {"C:\\p\\A.jpg", 2, "a:b?", "D:\\aus\\A_a_b_.bmp"},
        {"C:\\p\\A.jpg", 3, "a*b<", "D:\\aus\\A_a_b_ (2).bmp"},
        {"C:\\p\\A.jpg", 5, "Probe", "D:\\aus\\A_Probe (2).bmp"},
        {"C:\\p\\Bild.alt.bmp", 1, "Ä", "D:\\aus\\Bild.alt_Ä.bmp"},
    };
    for (const auto& c : cases) EXPECT_EQ(names.pathOf("D:\\aus", c.picture, c.region, c.name), c.expected);
}

// Pictures of 32 x 24 pixels, each with colours of its own.
class Extraction : public EditorTest {
  protected:
    Extraction() {
        makeSet("Probe", {.regions = {"Kopf", "Fuß"}});
        for (const int n : {1, 2, 3}) {
            folder.write("Picture\\Probe\\bild" + std::to_string(n) + ".bmp",
                         support::trueColourBitmap({32, 24}, [n](int x, int y) { return colour(n, x, y); }));
        }
        folder.write("Scripts\\Extract.kvr",
                     files::read(std::string("Z:") + STICH_SOURCE_DIR + "\\res\\Scripts\\Extract.kvr"));
        registry.write("Stich", "PathROI", target());
        start();
        openByChooser("Probe");
    }
    static platform::Colour colour(int picture, int x, int y) {
        return static_cast<platform::Colour>(picture << 16 | y << 8 | x);
    }
    std::string target() { return folder.file("Aus"); }
    std::vector<std::string> written() {
        std::vector<std::string> names;
        if (files::directoryExists(target()))
            for (const auto& entry : files::list(target())) names.push_back(entry.name);
        std::sort(names.begin(), names.end());
        return names;
    }
    /// The file that holds that part of a picture, byte by byte.
    static std::string part(int picture, platform::Rect r) {
        return support::trueColourBitmap(
            {r.width(), r.height()}, [&](int x, int y) { return colour(picture, r.left + x, r.top + y); });
    }
    void choose(const std::string& entry) { user::chooseMenu(window().Toolbar1, "btnSave", entry); }
    void save() { user::press(window().Toolbar1, "btnSave"); }
    void place(int region, std::int32_t X, std::int32_t Y, std::int32_t dX, std::int32_t dY) {
        window().kvPictureBox1.ROI_Move(static_cast<std::int16_t>(region), X, Y, dX, dY);
    }
};

TEST_F(Extraction, TheCurrentRegionIsCutOutAtOnce) {
    auto& w = window();
    save();
    EXPECT_TRUE(written().empty() && w.lblHint.caption().empty()) << "no region is chosen";
    place(1, 3, 5, 7, 4);
    user::choose(w.cboROI, 1);
    save();
    EXPECT_EQ(written(), std::vector<std::string>{"bild1_Kopf.bmp"});
    EXPECT_EQ(files::read(target() + "\\bild1_Kopf.bmp"), part(1, platform::Rect::at(3, 5, 7, 4)));
}

TEST_F(Extraction, AllRegionsOfAllPicturesAreCutOutWithTheirOwnPixels) {
    auto& w = window();
    place(1, 0, 0, 10, 10);
    place(2, 20, 4, 12, 20);
    w.GoToItem(2);
    const user::ModalUser looksOn([](platform::Form&) {});
    choose("btnSaveAllROI");
    EXPECT_TRUE(written().empty()) << "the entry is only remembered";
    save();
    EXPECT_EQ(written(), (std::vector<std::string>{"bild2_Fuß.bmp", "bild2_Kopf.bmp"}));
    choose("btnSaveAllROI2");
    save();
    EXPECT_EQ(written().size(), 6U);
    EXPECT_EQ(current(), 1);
    for (const int n : {1, 2, 3}) {
        const std::string stem = target() + "\\bild" + std::to_string(n);
        EXPECT_EQ(files::read(stem + "_Kopf.bmp"), part(n, platform::Rect::at(0, 0, 10, 10)));
        EXPECT_EQ(files::read(stem + "_Fuß.bmp"), part(n, platform::Rect::at(20, 4, 12, 20)));
    }
}

TEST_F(Extraction, TheDialogCountsTheRegionsAndStopsAfterTheOneInHand) {
    for (const auto& [stopAt, value, steps] : {std::tuple(0, 12, "Fnnnn"), {5, 5, "Fn"}}) {
        CountingSource source;
        source.picture = picture("Probe", 1);
        shell::frmSave dialog(window().form, source, environment, target());
        source.act = [&, last = stopAt] {
            if (source.selected == last) user::press(dialog.btnCancel);
        };
        const user::ModalUser looksOn([](platform::Form&) {});
        dialog.SaveROI(shell::frmSave::allRegionsOfAllPictures);
        EXPECT_EQ(dialog.kvProgressBar1.maximum(), 12);
        EXPECT_EQ(dialog.kvProgressBar1.value(), value);
        EXPECT_EQ(dialog.lblROIName.caption(), "Bereich" + std::to_string(source.region));
        EXPECT_EQ(source.steps, steps);
        EXPECT_FALSE(dialog.form.visible());
    }
}

TEST_F(Extraction, ARunThatIsClosedEndsAfterTheRegionInHandAndKeepsWhatIsWritten) {
    auto& w = window();
    const auto shows = w.kvPictureBox1.ROIselect;
    w.kvPictureBox1.ROIselect = [&](auto& index, auto&... rest) {
        shows(index, rest...);
        if (index == 1 && current() == 2) {
            EXPECT_FALSE(w.form.unload());
        }
    };
    const user::ModalUser looksOn([](platform::Form&) {});
    choose("btnSaveAllROI2");
    save();
    EXPECT_EQ(written(), (std::vector<std::string>{"bild1_Fuß.bmp", "bild1_Kopf.bmp", "bild2_Kopf.bmp"}));
    EXPECT_EQ(current(), 2);
    EXPECT_TRUE(w.form.loaded());
}

TEST_F(Extraction, ATargetThatCannotBeWrittenIsToldOnceAndEndsTheRun) {
    auto& w = window();
    folder.write("Aus", "a file where the directory should be");
    const user::ModalUser looksOn([](platform::Form&) {});
    choose("btnSaveAllROI2");
    w.GoToItem(3);
    save();
    EXPECT_EQ(current(), 3) << "no picture was stepped to";
    EXPECT_NE(w.lblHint.caption().find("konnte nicht gespeichert werden"), std::string::npos)
        << w.lblHint.caption();
}

TEST_F(Extraction, APictureThatCannotBeReadDoesNotStopTheOthers) {
    auto& w = window();
    folder.write("Picture\\Probe\\bild2.bmp", "no picture");
    const user::ModalUser looksOn([](platform::Form&) {});
    choose("btnSaveAllROI2");
    save();
    EXPECT_EQ(written().size(), 4U);
    EXPECT_NE(w.lblHint.caption().find("2 Bereiche konnten nicht gespeichert werden."), std::string::npos)
        << w.lblHint.caption();
}

}  // namespace
