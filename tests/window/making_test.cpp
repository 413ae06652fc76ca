// From two folders of pictures to a labelled set, and back to it after its pictures were moved: the real
// program and the system's own dialogs.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/kvTamSampleSet.h"
#include "platform/files.h"
#include "platform/path.h"
#include "platform/registry.h"
#include "platform/text.h"
#include "platform/win32/wide.h"
#include "program.h"
#include "tests/support/pictures.h"
#include "tests/support/temp_folder.h"

namespace {

using platform::wide;
using testing::ElementsAre;
using Texts = std::vector<std::string>;

constexpr int classesPage = 1;

class Making : public testing::Test {
  protected:
    Making() {
        ::CopyFileW(wide(platform::files::fullPath(STICH_EXE)).c_str(), wide(program_).c_str(), FALSE);
        for (const auto& [folder, names] : folders_)
            for (const std::string& name : names) draw(folder, name);
        data_.write("Picture\\Guß teile Nr 2\\Notiz.txt", "Bild 1.BMP");
        data_.write("Picture\\Guß teile Nr 2\\Bild 4.bmp.bak", "BM");
    }
    ~Making() override { platform::Registry("Software\\Veltor2").removeAll(); }

    static void draw(const std::string& folder, const std::string& name) {
        platform::files::createDirectories(folder);
        const bool jpeg = platform::text::equalNoCase(platform::path::extension(name), ".jpg");
        platform::files::replace(
            platform::path::join(folder, name),
            jpeg ? support::smallJpeg() : support::trueColourBitmap({40, 30}, support::distinctColour));
    }

    void choosePictures(const Program& stich);
    void label(const Program& stich) const;
    void moveAway(std::size_t sample);
    void findAgain(const Program& stich);
    void compareSaved() const;

    support::TempFolder data_, elsewhere_;
    const std::string program_ = data_.file("Stich.exe");
    const std::pair<std::string, Texts> folders_[2]{
        {data_.file("Picture\\Guß teile Nr 2"), {"Bild 1.BMP", "Bild 2.JPG", "Bild 10.bmp", "Öl fleck.jpg"}},
        {elsewhere_.file("Korn für Mehl"), {"Ähre 1.JPG", "Ähre 2.BMP", "zäh & lang.bmp", "Zaun.jpg"}}};
    const std::string newPlace_ = elsewhere_.file("Ümzug\\neuer Ort");
    const std::string setFile_ = data_.file("TestSets\\Guß teile Nr 2.kvs");
    Texts wanted_;  // the files of the set
    std::vector<int> labels_{2, 1, 1, 2, 1, 2, 2, 1};
};

void Making::choosePictures(const Program& stich) {
    for (const auto& [folder, names] : folders_) {
        stich.press("btnPath");
        ASSERT_TRUE(stich.choosePath(folder));
        ASSERT_TRUE(waitFor([&, &wanted = names] { return stich.column("ListView1", 0) == wanted; }));
        EXPECT_EQ(Program::text(stich.control("txtPath")), folder + "\\");
        stich.press("btn_A");
        for (const std::string& name : names) wanted_.push_back(platform::path::join(folder, name));
        ASSERT_TRUE(waitFor([&] { return stich.rows("lvCItems") == static_cast<int>(wanted_.size()); }));
    }
}

void Making::label(const Program& stich) const {
    stich.selectTab(classesPage);
    ASSERT_TRUE(waitFor([&] { return ::IsWindowVisible(stich.control("lvCClasses")) != FALSE; }));
    stich.press("btnCNew");
    ASSERT_TRUE(stich.nameRow("lvCClasses", "gut & glatt"));
    ASSERT_TRUE(stich.shows("Bild 1.BMP")) << "the first one waits for its class";
    for (std::size_t i = 0; i < wanted_.size(); ++i) {
        stich.press(("Command1(" + std::to_string(labels_[i] - 1) + ")").c_str());
        ASSERT_TRUE(stich.shows(platform::path::fileName(wanted_[(i + 1) % wanted_.size()])));
    }
}

void Making::moveAway(std::size_t sample) {
    std::string& file = wanted_[sample];
    const std::string target = platform::path::join(newPlace_, platform::path::fileName(file));
    platform::files::createDirectories(newPlace_);
    EXPECT_TRUE(::MoveFileW(wide(file).c_str(), wide(target).c_str()));
    file = target;
}

void Making::findAgain(const Program& stich) {
    const Texts before = wanted_;
    for (const std::size_t sample : {0U, 2U, 5U, 7U}) moveAway(sample);
    platform::files::remove(before[4]);

    stich.choose("cboSets", 0);
    const HWND dialog = stich.waitForWindow(L"frmError");
    ASSERT_NE(dialog, nullptr);
    EXPECT_THAT(stich.column("ListView1", 0, dialog), ElementsAre("1", "3", "5", "6", "8"));
    EXPECT_THAT(stich.column("ListView1", 1, dialog),
                ElementsAre(before[0], before[2], before[4], before[5], before[7]));
    stich.press("btnSearch", dialog);
    ASSERT_TRUE(stich.choosePath(wanted_[5]));
    ASSERT_TRUE(stich.answer("Nicht alle Elemente konnten zugewiesen werden.", IDCANCEL));
    EXPECT_THAT(stich.column("ListView1", 1, dialog), ElementsAre(before[4]));
    stich.press("btnDel", dialog);
    ASSERT_TRUE(stich.answer("Sind Sie sicher, daß Sie die restlichen Dateien", IDYES));
    wanted_.erase(wanted_.begin() + 4);
    labels_.erase(labels_.begin() + 4);
    ASSERT_TRUE(waitFor([&] { return stich.rows("lvCItems") == 7; }));
    ASSERT_TRUE(stich.shows(platform::path::fileName(wanted_[0])));
}

void Making::compareSaved() const {
    model::kvTamSampleSet saved;
    saved.AppPath(data_.path());
    ASSERT_TRUE(saved.Load(setFile_));
    ASSERT_EQ(saved.kvtamSamples().Count(), static_cast<int>(wanted_.size()));
    for (int i = 1; i <= saved.kvtamSamples().Count(); ++i) {
        const auto place = static_cast<std::size_t>(i) - 1;
        EXPECT_EQ(saved.kvtamSamples().Item(i).FileName(), wanted_[place]);
        EXPECT_THAT(saved.kvtamSamples().Item(i).ItemClasses, ElementsAre(labels_[place])) << wanted_[place];
    }
    EXPECT_EQ(saved.kvtamClasses().Item(2).Name, "gut & glatt");
}

TEST_F(Making, ASetMadeFromFoldersIsFoundAgainAfterItsPicturesWereMoved) {
    {
        Program stich(program_);
        ASSERT_TRUE(stich.opens());
        ASSERT_NO_FATAL_FAILURE(choosePictures(stich));
        ASSERT_NO_FATAL_FAILURE(label(stich));
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
