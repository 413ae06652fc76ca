// Three regions drawn on ten pictures, with a class for each picture in each of them: the real program.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

#include "model/kvTamSampleSet.h"
#include "platform/text.h"
#include "program.h"

namespace {

using testing::ElementsAre;
using Texts = std::vector<std::string>;
using Numbers = std::array<int, 4>;  // X, Y, width, height

constexpr int regionsPage = 2;
constexpr int pictures = 10;

class RegionsDay : public testing::Test {
  protected:
    static Numbers boxes(const Program& stich) {
        Numbers numbers{};
        for (std::size_t i = 0; i < 4; ++i) {
            const auto read = platform::text::parseInt32(Program::text(stich.control(boxNames[i])));
            numbers[i] = read.value_or(-1);
        }
        return numbers;
    }
    /// A point of the picture, in the control.
    POINT seen(int x, int y) const { return {x - scrolled_.x, y - scrolled_.y}; }

    void scroll(const Program& stich);
    Numbers makeRegion(const Program& stich, int region) const;
    void drawRegions(const Program& stich);
    void chooseRegion(const Program& stich, std::size_t region) const;
    void labelAll(const Program& stich) const;
    void compareSaved() const;
    void compareShown(const Program& stich) const;

    static constexpr const char* boxNames[] = {"txtX", "txtY", "txtDX", "txtDY"};
    // Row by row: the place of each picture's class in the whole picture and in the regions.
    static constexpr const char* slots_[] = {"0123012301", "3102213012", "1110002223", "2033110032"};

    const Texts classes_{"gut", "Riß", "Pore", "Öl fleck"};
    const Texts names_{"(gesamtes Bild)", "Kopf", "Fuß & Rand", "Öse"};
    ProgramFolder folder_{pictures, {800, 600}, classes_};
    POINT scrolled_{0, 0};
    std::array<Numbers, 4> rectangles_{Numbers{-1, -1, -1, -1}};
};

void RegionsDay::scroll(const Program& stich) {
    stich.drag("kvPictureBox1", {200, 200}, {140, 160});
    scrolled_ = {60, 40};
    EXPECT_EQ(::SendMessageW(stich.control("HScroll1"), SBM_GETPOS, 0, 0), scrolled_.x);
    EXPECT_EQ(::SendMessageW(stich.control("VScroll1"), SBM_GETPOS, 0, 0), scrolled_.y);
}

Numbers RegionsDay::makeRegion(const Program& stich, int region) const {
    stich.press("btnROINew");
    EXPECT_TRUE(stich.nameRow("lvROIs", names_[static_cast<std::size_t>(region)]));
    EXPECT_EQ(stich.rows("lvROIs"), region);
    return boxes(stich);
}

void RegionsDay::drawRegions(const Program& stich) {
    stich.selectTab(regionsPage);
    ASSERT_TRUE(waitFor([&] { return ::IsWindowVisible(stich.control("lvROIs")) != FALSE; }));
    const auto [x, y, width, height] = makeRegion(stich, 1);
    const POINT inside = seen(x + width / 2, y + height / 2);
    stich.drag("kvPictureBox1", inside, {inside.x + 25, inside.y - 15});
    rectangles_[1] = {x + 25, y - 15, width, height};
    EXPECT_EQ(boxes(stich), rectangles_[1]) << "dragged by its inside";

    rectangles_[2] = makeRegion(stich, 2);
    auto& [left, top, dX, dY] = rectangles_[2];
    const POINT corner = seen(left + dX + 4, top + dY + 4);
    stich.drag("kvPictureBox1", corner, {corner.x - 30, corner.y - 20});
    dX -= 30;
    dY -= 20;
    EXPECT_EQ(boxes(stich), rectangles_[2]) << "dragged by its lower right corner";

    makeRegion(stich, 3);
    rectangles_[3] = {5, 410, 333, 44};
    for (std::size_t i = 0; i < 4; ++i) stich.typeInto(boxNames[i], std::to_string(rectangles_[3][i]));
    stich.commit("txtDY");
    EXPECT_TRUE(waitFor([&] { return boxes(stich) == rectangles_[3]; }))
        << testing::PrintToString(boxes(stich));
}

void RegionsDay::chooseRegion(const Program& stich, std::size_t region) const {
    stich.choose("cboROI", static_cast<int>(region));
    const std::string line = "Bereich: " + names_[region] + "   Datei: Bild 1.bmp";
    ASSERT_TRUE(waitFor([&] { return Program::text(stich.control("txtInfo")) == line; })) << line;
}

void RegionsDay::labelAll(const Program& stich) const {
    for (std::size_t region = 0; region < names_.size(); ++region) {
        ASSERT_NO_FATAL_FAILURE(chooseRegion(stich, region));
        for (int i = 1; i <= pictures; ++i) {
            stich.press((std::string("Command1(") + slots_[region][i - 1] + ")").c_str());
            ASSERT_TRUE(stich.shows(ProgramFolder::picture(i % pictures + 1)));
        }
    }
}

void RegionsDay::compareSaved() const {
    model::kvTamSampleSet saved;
    saved.AppPath(folder_.path());
    ASSERT_TRUE(saved.Load(folder_.setFile()));
    ASSERT_EQ(saved.kvtamROIs().Count(), 4);
    for (int i = 1; i <= 4; ++i) {
        const auto& region = saved.kvtamROIs().Item(i);
        EXPECT_EQ(region.Name, names_[static_cast<std::size_t>(i) - 1]);
        EXPECT_EQ((Numbers{region.X, region.Y, region.dX, region.dY}),
                  rectangles_[static_cast<std::size_t>(i) - 1]);
    }
    ASSERT_EQ(saved.kvtamSamples().Count(), pictures);
    for (int i = 1; i <= pictures; ++i) {
        const auto label = [i](int region) { return slots_[region][i - 1] - '0' + 1; };
        EXPECT_THAT(saved.kvtamSamples().Item(i).ItemClasses,
                    ElementsAre(label(0), label(1), label(2), label(3)))
            << i;
    }
}

void RegionsDay::compareShown(const Program& stich) const {
    ASSERT_TRUE(stich.shows("Bild 1.bmp"));
    EXPECT_EQ(stich.column("lvROIs", 0), Texts(names_.begin() + 1, names_.end()));
    for (std::size_t region = 0; region < names_.size(); ++region) {
        ASSERT_NO_FATAL_FAILURE(chooseRegion(stich, region));
        EXPECT_EQ(boxes(stich), rectangles_[region]) << names_[region];
        Texts labels;
        for (const char slot : std::string(slots_[region]))
            labels.push_back(classes_[static_cast<std::size_t>(slot - '0')]);
        EXPECT_EQ(stich.column("lvCItems", 1), labels) << names_[region];
    }
}

TEST_F(RegionsDay, RegionsAndTheirFortyClassesAreInTheFileAndComeBack) {
    {
        Program stich(folder_.program());
        ASSERT_TRUE(stich.opens());
        stich.choose("cboSets", 0);
        ASSERT_TRUE(stich.shows("Bild 1.bmp"));
        ASSERT_NO_FATAL_FAILURE(scroll(stich));
        ASSERT_NO_FATAL_FAILURE(drawRegions(stich));
        ASSERT_NO_FATAL_FAILURE(labelAll(stich));
        stich.press("btnSave");
        ASSERT_TRUE(stich.answer("Vorhandene Datei überschreiben?", IDOK));
        stich.close();
        ASSERT_EQ(stich.exitCode(), 0) << "saved: nothing to ask";
    }
    ASSERT_NO_FATAL_FAILURE(compareSaved());
    Program again(folder_.program(), {folder_.setFile()});
    ASSERT_TRUE(again.opens());
    compareShown(again);
}

}  // namespace
