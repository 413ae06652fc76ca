// From two folders of pictures to a labelled set, and back to it after its pictures were moved: the real
// program and the system's own dialogs.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/kvTamSampleSet.h"
#include "platform/files.h"
#include "platform/path.h"
#include "platform/registry.h"
#include "platform/win32/wide.h"
#include "program.h"
#include "tests/support/pictures.h"
#include "tests/support/temp_folder.h"

namespace {

using platform::wide;
using testing::ElementsAre;
using Texts = std::vector<std::string>;

constexpr int classesPage = 1;

/// What the user wants to find in the saved file.
struct Wanted {
    std::string file;
    int label;  // from 1
};

struct Class {
    const char* name;
    const char* description;
};
constexpr Class classes[] = {
    {"Riß", "über die ganze Fläche"}, {"gut & glatt", "ohne \"Befund\""}, {"Öl fleck", "  = 5; [x] "}};

class Making : public testing::Test {
  protected:
    Making() {
        ::CopyFileW(wide(platform::files::fullPath(STICH_EXE)).c_str(), wide(program_).c_str(), FALSE);
        for (const char* name : {"Bild 1.BMP", "Bild 2.JPG", "Bild 10.bmp", "Öl fleck.jpg"})
            draw(castings_, name);
        for (const char* name : {"Ähre 1.JPG", "Ähre 2.BMP", "zäh & lang.bmp", "Zaun.jpg"})
            draw(grain_, name);
        data_.write("Picture\\Guß teile Nr 2\\Notiz.txt", "Bild 1.BMP");
        data_.write("Picture\\Guß teile Nr 2\\Bild 4.bmp.bak", "BM");
    }
    ~Making() override { platform::Registry("Software\\Veltor2").removeAll(); }

    static void draw(const std::string& folder, const std::string& name) {
        platform::files::createDirectories(folder);
        const bool jpeg =
            platform::path::extension(name) == ".jpg" || platform::path::extension(name) == ".JPG";
        platform::files::replace(
            platform::path::join(folder, name),
            jpeg ? support::smallJpeg() : support::trueColourBitmap({40, 30}, support::distinctColour));
    }

    Texts files() const {
        Texts all;
        for (const Wanted& wanted : wanted_) all.push_back(wanted.file);
        return all;
    }

    void choosePictures(const Program& stich);
    void makeClasses(const Program& stich);
    void labelAll(const Program& stich);
    void moveAway(std::size_t sample);
    void findAgain(const Program& stich);
    void compareSaved() const;

    support::TempFolder data_, elsewhere_;
    const std::string program_ = data_.file("Stich.exe");
    const std::string castings_ = data_.file("Picture\\Guß teile Nr 2");
    const std::string grain_ = elsewhere_.file("Korn für Mehl");
    const std::string newPlace_ = elsewhere_.file("Ümzug\\neuer Ort");
    const std::string setFile_ = data_.file("TestSets\\Guß teile Nr 2.kvs");
    std::vector<Wanted> wanted_;
};

void Making::choosePictures(const Program& stich) {
    stich.press("btnPath");
    ASSERT_TRUE(stich.choosePath(castings_));
    ASSERT_TRUE(waitFor([&] { return stich.rows("ListView1") == 4; }));
    EXPECT_EQ(Program::text(stich.control("txtPath")), castings_ + "\\");
    EXPECT_THAT(stich.column("ListView1", 0),
                ElementsAre("Bild 1.BMP", "Bild 2.JPG", "Bild 10.bmp", "Öl fleck.jpg"));
    EXPECT_THAT(stich.column("ListView1", 1), ElementsAre("4 KB", "1 KB", "4 KB", "1 KB"));

    const auto seen = [&](const char* size) {
        return waitFor([&] { return Program::text(stich.control("txtSize")).starts_with(size); });
    };
    stich.addToSelection("ListView1", 2);
    ASSERT_TRUE(seen("24 x 16 Pixel"));
    stich.addToSelection("ListView1", 3);
    ASSERT_TRUE(seen("40 x 30 Pixel"));
    stich.press("btn");
    ASSERT_TRUE(waitFor([&] { return stich.rows("ListView2") == 2; }));
    stich.press("btn_A");
    ASSERT_TRUE(waitFor([&] { return stich.rows("ListView2") == 4; }));
    stich.press("btnPath");
    ASSERT_TRUE(stich.choosePath(grain_));
    const Texts second{"Ähre 1.JPG", "Ähre 2.BMP", "zäh & lang.bmp", "Zaun.jpg"};
    ASSERT_TRUE(waitFor([&] { return stich.column("ListView1", 0) == second; }));
    stich.press("btn_A");
    ASSERT_TRUE(waitFor([&] { return stich.rows("lvCItems") == 8; }));

    for (const char* name : {"Bild 2.JPG", "Bild 10.bmp", "Bild 1.BMP", "Öl fleck.jpg"})
        wanted_.push_back({castings_ + "\\" + name, 0});
    for (const std::string& name : second) wanted_.push_back({grain_ + "\\" + name, 0});
    Texts shown = stich.column("ListView2", 1);
    const Texts names = stich.column("lvCItems", 0);
    for (std::size_t i = 0; i < shown.size(); ++i) shown[i] += "\\" + names[i];
    EXPECT_EQ(shown, files());
}

void Making::makeClasses(const Program& stich) {
    stich.selectTab(classesPage);
    ASSERT_TRUE(waitFor([&] { return ::IsWindowVisible(stich.control("lvCClasses")) != FALSE; }));
    for (const Class& made : classes) {
        stich.press(&made == classes ? "btnCRename" : "btnCNew");  // the program begins with one
        ASSERT_TRUE(stich.nameRow("lvCClasses", made.name));
        stich.typeInto("txtCDescription", made.description);
    }
    stich.addToSelection("lvCClasses", 2);
    stich.press("btnCStd");
    ASSERT_TRUE(stich.answer(
        "Soll gleichzeitig allen Stichprobenelementen \"gut & glatt\" zugewiesen werden?", IDYES));
    ASSERT_TRUE(waitFor([&] { return stich.column("lvCItems", 1) == Texts(8, "gut & glatt"); }));
    EXPECT_THAT(stich.column("lvCClasses", 0), ElementsAre("Riß", "gut & glatt", "Öl fleck"));
    EXPECT_THAT(stich.column("lvCClasses", 2), ElementsAre("", "Standard", ""));
    EXPECT_EQ(Program::text(stich.control("cboStdClass")), "gut & glatt");
}

void Making::labelAll(const Program& stich) {
    ASSERT_TRUE(stich.shows("Bild 2.JPG")) << "the first one waits for its class";
    for (std::size_t i = 0; i < wanted_.size(); ++i) {
        constexpr int slots[] = {2, 0, 1, 2, 0, 1, 0, 2};
        wanted_[i].label = slots[i] + 1;
        stich.press(("Command1(" + std::to_string(slots[i]) + ")").c_str());
        ASSERT_TRUE(stich.shows(platform::path::fileName(wanted_[(i + 1) % wanted_.size()].file)));
    }
}

void Making::moveAway(std::size_t sample) {
    std::string& file = wanted_[sample].file;
    const std::string target = platform::path::join(newPlace_, platform::path::fileName(file));
    platform::files::createDirectories(newPlace_);
    EXPECT_TRUE(::MoveFileW(wide(file).c_str(), wide(target).c_str()));
    file = target;
}

void Making::findAgain(const Program& stich) {
    const Texts before = files();
    for (const std::size_t sample : {0U, 2U, 5U, 7U}) moveAway(sample);
    platform::files::remove(before[4]);

    stich.choose("cboSets", 0);
    const HWND dialog = stich.waitForWindow(L"frmError");
    ASSERT_NE(dialog, nullptr);
    EXPECT_THAT(stich.column("ListView1", 0, dialog), ElementsAre("1", "3", "5", "6", "8"));
    EXPECT_THAT(stich.column("ListView1", 1, dialog),
                ElementsAre(before[0], before[2], before[4], before[5], before[7]));
    stich.press("btnSearch", dialog);
    ASSERT_TRUE(stich.choosePath(wanted_[5].file));
    ASSERT_TRUE(stich.answer("Nicht alle Elemente konnten zugewiesen werden.", IDCANCEL));
    EXPECT_THAT(stich.column("ListView1", 1, dialog), ElementsAre(before[4]));
    stich.press("btnDel", dialog);
    ASSERT_TRUE(stich.answer("Sind Sie sicher, daß Sie die restlichen Dateien", IDYES));
    wanted_.erase(wanted_.begin() + 4);
    ASSERT_TRUE(waitFor([&] { return stich.rows("lvCItems") == 7; }));
    ASSERT_TRUE(stich.shows(platform::path::fileName(wanted_[0].file)));
}

void Making::compareSaved() const {
    model::kvTamSampleSet saved;
    saved.AppPath(data_.path());
    ASSERT_TRUE(saved.Load(setFile_));
    ASSERT_EQ(saved.kvtamSamples().Count(), static_cast<int>(wanted_.size()));
    for (int i = 1; i <= saved.kvtamSamples().Count(); ++i) {
        const Wanted& wanted = wanted_[static_cast<std::size_t>(i) - 1];
        EXPECT_EQ(saved.kvtamSamples().Item(i).FileName(), wanted.file);
        EXPECT_THAT(saved.kvtamSamples().Item(i).ItemClasses, ElementsAre(wanted.label)) << wanted.file;
    }
    ASSERT_EQ(saved.kvtamClasses().Count(), static_cast<int>(std::size(classes)));
    for (int i = 1; i <= saved.kvtamClasses().Count(); ++i) {
        EXPECT_EQ(saved.kvtamClasses().Item(i).Name, classes[i - 1].name);
        EXPECT_EQ(saved.kvtamClasses().Item(i).Description, classes[i - 1].description);
    }
    EXPECT_EQ(saved.StdClass(), 2);
    EXPECT_EQ(saved.kvtamROIs().Count(), 1);
}

TEST_F(Making, ASetMadeFromFoldersIsFoundAgainAfterItsPicturesWereMoved) {
    {
        Program stich(program_);
        ASSERT_TRUE(stich.opens());
        ASSERT_NO_FATAL_FAILURE(choosePictures(stich));
        ASSERT_NO_FATAL_FAILURE(makeClasses(stich));
        ASSERT_NO_FATAL_FAILURE(labelAll(stich));
        EXPECT_EQ(Program::text(stich.control("cboSets")), "Guß teile Nr 2") << "after the first folder";
        stich.press("btnSave");
        stich.close();
        ASSERT_EQ(stich.exitCode(), 0) << "saved: nothing to ask";
    }
    {
        Program again(program_);
        ASSERT_TRUE(again.opens());
        ASSERT_NO_FATAL_FAILURE(findAgain(again));
        again.press("btnSave");
        ASSERT_TRUE(again.answer("Vorhandene Datei überschreiben?", IDOK));
        again.close();
        ASSERT_EQ(again.exitCode(), 0) << "saved: nothing to ask";
    }
    compareSaved();
    const Program kvset(platform::files::fullPath(KVSET_EXE), {"check", setFile_});
    EXPECT_EQ(kvset.exitCode(), 0) << "what it found stands above";
}

}  // namespace
