// A user's day with the real program: what is started here is the file that is shipped.
#include <gtest/gtest.h>

#include "model/kvTamSampleSet.h"
#include "platform/document.h"
#include "platform/files.h"
#include "platform/registry.h"
#include "platform/win32/wide.h"
#include "program.h"
#include "tests/support/pictures.h"
#include "tests/support/temp_folder.h"

namespace {

using platform::wide;

class Day : public testing::Test {
  protected:
    Day() {
        ::CopyFileW(wide(platform::files::fullPath(STICH_EXE)).c_str(), wide(program()).c_str(), FALSE);
        set_.AppPath(folder_.path());
        for (const char* name : {"gut", "Riß", "Pore"}) set_.kvtamClasses().Add(name, "");
        for (int i = 1; i <= 4; ++i) {
            const bool bitmap = i % 2 == 1;
            const std::string name = "Picture\\Maß " + std::to_string(i) + (bitmap ? ".bmp" : ".JPG");
            const std::string file =
                folder_.write(name, bitmap ? support::trueColourBitmap({40, 30}, support::distinctColour)
                                           : support::smallJpeg());
            set_.kvtamSamples().Add(file, "", "").ItemClasses.push_back(1);
        }
        platform::files::createDirectories(folder_.file("TestSets"));
        EXPECT_TRUE(set_.Save(folder_.file("TestSets\\Köpfe.kvs")));
    }
    ~Day() override { platform::Registry("Software\\Veltor2").removeAll(); }

    std::string program() const { return folder_.file("Stich.exe"); }
    std::string label(const char* set, int item) const {
        const auto document =
            platform::ProfileDocument::load(folder_.file(std::string("TestSets\\") + set + ".kvs"));
        return std::string(document.findSection("ROI0")->find(std::to_string(item)).value_or("(absent)"));
    }

    support::TempFolder folder_;
    model::kvTamSampleSet set_;
};

TEST_F(Day, LabelsGivenByClicksAreInTheSavedFileAndTheEditorComesBackAsItWas) {
    {
        Program stich(program(), {folder_.file("TestSets\\Köpfe.kvs")});
        ASSERT_TRUE(stich.opens());
        ASSERT_TRUE(stich.shows("Maß 1.bmp"));
        ASSERT_EQ(stich.rows("lvCItems"), 4);
        EXPECT_EQ(Program::text(stich.control("txtSize")), "40 x 30 Pixel, 24 Bit Farbtiefe");
        const std::pair<const char*, const char*> clicks[] = {
            {"Command1(1)", "Maß 2.JPG"}, {"Command1(2)", "Maß 3.bmp"}, {"Command1(1)", "Maß 4.JPG"}};
        for (const auto& [button, next] : clicks) {
            stich.press(button);
            ASSERT_TRUE(stich.shows(next));
        }
        EXPECT_EQ(stich.selectedRow("lvCItems"), 4);
        // A camera's spelling of the ending does not keep a picture from its own size.
        EXPECT_EQ(Program::text(stich.control("txtSize")), "24 x 16 Pixel, 24 Bit Farbtiefe");
        stich.press("btnSave");
        ASSERT_TRUE(stich.answer("Sie haben keinen Namen für die Stichprobe vergeben!", IDOK));
        stich.typeInto("cboSets", "Köpfe");
        stich.press("btnSave");
        ASSERT_TRUE(stich.answer("Vorhandene Datei überschreiben?", IDOK));
        ASSERT_TRUE(waitFor([&] { return label("Köpfe", 1) == "2"; }));
        EXPECT_EQ(label("Köpfe", 2), "3");
        EXPECT_EQ(label("Köpfe", 3), "2");
        EXPECT_EQ(label("Köpfe", 4), "1");
        stich.close();
        EXPECT_EQ(stich.exitCode(), 0) << "saved: nothing to ask";
    }
    Program again(program());
    ASSERT_TRUE(again.opens());
    EXPECT_EQ(Program::text(again.control("cboSets")), "");
    again.choose("cboSets", 0);
    ASSERT_TRUE(again.shows("Maß 1.bmp"));
    again.press("Command1(2)");
    ASSERT_TRUE(again.shows("Maß 2.JPG"));
    again.close();
    ASSERT_TRUE(again.answer("Änderungen speichern?", IDCANCEL));
    again.press("btnOK");
    ASSERT_TRUE(again.answer("Änderungen speichern?", IDNO));
    EXPECT_EQ(again.exitCode(), 0);
    EXPECT_EQ(label("Köpfe", 1), "2");
}

TEST_F(Day, ASetThatCannotBeOpenedEndsTheProgram) {
    const std::string bad = folder_.write("kaputt.kvs", "[Common]\r\nClasses=1\r\nROIs=-1\r\nItems=1\r\n");
    Program stich(program(), {bad});
    ASSERT_TRUE(stich.answer("Die Stichprobe kann nicht geöffnet werden.", IDOK));
    EXPECT_EQ(stich.exitCode(), 0);
}

/// The window of a program that is started; what `act` does with it happens before it is closed again.
RECT started(const ProgramFolder& folder, const std::function<void(HWND)>& act = {}) {
    Program stich(folder.program());
    EXPECT_TRUE(stich.opens());
    RECT bounds{};
    ::GetWindowRect(stich.window(), &bounds);
    if (act) act(stich.window());
    stich.close();
    EXPECT_EQ(stich.exitCode(), 0);
    return bounds;
}

TEST(Placement, TheWindowComesBackWhereItWasOnAScreenThatIsThere) {
    const ProgramFolder folder(1, {40, 30}, {"gut"});
    constexpr RECT wanted{60, 40, 860, 640};
    started(folder, [&](HWND window) {
        ::SetWindowPos(window, nullptr, wanted.left, wanted.top, wanted.right - wanted.left,
                       wanted.bottom - wanted.top, SWP_NOZORDER);
        ::ShowWindow(window, SW_MAXIMIZE);
    });
    started(folder, [&](HWND window) {
        EXPECT_TRUE(::IsZoomed(window));
        ::ShowWindow(window, SW_RESTORE);
        ::ShowWindow(window, SW_MINIMIZE);
    });
    const RECT again =
        started(folder, [](HWND window) { EXPECT_FALSE(::IsZoomed(window) || ::IsIconic(window)); });
    EXPECT_TRUE(::EqualRect(&again, &wanted));
}

}  // namespace
