#include <gmock/gmock.h>

#include "platform/application.h"
#include "tests/controls/picture_box_fixture.h"
#include "tests/support/hanging_disk.h"

namespace {

using namespace controls;
using platform::Rect;
using platform::Size;
using support::distinctColour;
using testing::ElementsAre;
using testing::HasSubstr;

using PictureBoxLoading = PictureBoxTest;

TEST_F(PictureBoxLoading, PutsThePictureIntoTheBufferWithAMargin) {
    box.LoadPic(bitmap("a.bmp", {30, 20}));
    EXPECT_EQ(picture(), (Size{30, 20}));
    EXPECT_EQ(box.buffer().size(), (Size{54, 44}));
    EXPECT_EQ(buffered(8, 8), distinctColour(0, 0));
    EXPECT_EQ(buffered(37, 27), distinctColour(29, 19));
    for (const auto& [x, y] : {std::pair{7, 8}, {8, 7}, {38, 27}, {37, 28}, {0, 0}, {53, 43}})
        EXPECT_EQ(buffered(x, y), background) << x << ", " << y;
    EXPECT_THAT(loaded, ElementsAre(ElementsAre(30, 20, 1, 24)));
    EXPECT_EQ(box.pictureDepth(), 24);
    EXPECT_FALSE(box.Failed());
}

TEST_F(PictureBoxLoading, LoadsTheSameNameOnce) {
    const std::string name = bitmap("a.bmp", {30, 20}, plain(0x102030));
    box.LoadPic(name);
    bitmap("a.bmp", {30, 20}, plain(0xFFFFFF));
    box.LoadPic(name);
    EXPECT_EQ(loaded.size(), 1u);
    EXPECT_EQ(buffered(8, 8), 0x102030u);
    box.LoadPic(folder.file("A.bmp"));  // case counts
    EXPECT_EQ(loaded.size(), 2u);
    EXPECT_EQ(buffered(8, 8), 0xFFFFFFu);
}

TEST_F(PictureBoxLoading, KeepsTheOldPictureWhenAFileTellsNoSize) {
    box.LoadPic(bitmap("a.bmp", {30, 20}, plain(0x102030)));
    const std::string wrongs[] = {
        folder.file("missing.bmp"),
        folder.write("empty.jpg", ""),
        folder.write("bitmap.jpg", support::trueColourBitmap({30, 20}, distinctColour)),
        folder.write("jpeg.bmp", support::smallJpeg()),
        folder.write("large.jpg", support::jpegHeader({30000, 30000})),
        folder.write("long.bmp",
                     support::trueColourBitmap({1, 1}, distinctColour).replace(22, 4, "\xFF\xFF\xFF\x7F")),
    };
    for (const std::string& name : wrongs) {
        failures.clear();
        box.LoadPic(name);
        EXPECT_EQ(box.FileName(), name);
        EXPECT_EQ(picture(), (Size{30, 20})) << name;
        EXPECT_EQ(buffered(8, 8), 0x102030u) << name;
        EXPECT_TRUE(box.Failed()) << name;
        EXPECT_THAT(failures, ElementsAre(HasSubstr("noch das vorige Bild"))) << name;
    }
    box.LoadPic(wrongs[5]);
    EXPECT_EQ(failures.size(), 2u) << "told again";
    EXPECT_EQ(loaded.size(), 1u);
    box.LoadPic(bitmap("b.bmp", {30, 20}));
    EXPECT_FALSE(box.Failed());
    EXPECT_EQ(loaded.size(), 2u);
}

TEST_F(PictureBoxLoading, ShowsAnEmptyPlaceForAFileThatCannotBeDecoded) {
    box.LoadPic(bitmap("a.bmp", {30, 20}, plain(0x102030)));
    box.ROI_Load(20, 10, 10, 10);
    std::string strange = support::trueColourBitmap({25, 15}, plain(0x405060));
    strange[28] = 7;  // bits per pixel
    box.LoadPic(folder.write("strange.bmp", strange));
    EXPECT_EQ(picture(), (Size{25, 15}));
    EXPECT_TRUE(box.Failed());
    EXPECT_THAT(failures,
                ElementsAre(testing::AllOf(HasSubstr("strange.bmp: "), testing::Not(HasSubstr("vorige")))));
    EXPECT_EQ(loaded.size(), 1u);
    EXPECT_EQ(box.pictureDepth(), 0);
    for (int x = 0; x < 49; ++x) EXPECT_EQ(buffered(x, 15), background);
    EXPECT_EQ(box.regionRect(1), (Rect{20, 10, 30, 20})) << "regions are not lost to a broken file";
}

TEST_F(PictureBoxLoading, AsksOnlySmallEndingsForASize) {
    const std::string jpeg = support::smallJpeg();  // 24 x 16
    box.LoadPic(bitmap("a.bmp", {30, 20}, plain(0x102030)));
    for (const char* name : {"A.JPG", "b.jpeg", "c.Bmp", "d"}) {
        box.LoadPic(folder.write(name, jpeg));
        EXPECT_EQ(picture(), (Size{30, 20})) << name;
        EXPECT_NE(buffered(8, 8), 0x102030u) << name;
        EXPECT_EQ(buffered(8 + 25, 8), background) << name << ": beside the smaller picture";
        EXPECT_EQ(box.pictureDepth(), 24) << name;
    }
    EXPECT_EQ(loaded.size(), 5u);
    box.LoadPic(folder.write("e.jpg", jpeg));
    EXPECT_EQ(picture(), support::smallJpegSize);
    EXPECT_EQ(loaded.back()[0], 24);
}

TEST_F(PictureBoxLoading, TellsTheDepthAsTheFormatCountsIt) {
    const std::vector<platform::Colour> palette{0x000000, 0xFFFFFF};
    const auto index = [](int x, int) { return x % 2; };
    box.LoadPic(folder.write("a.bmp", support::paletteBitmap({9, 3}, palette, index, 1)));
    EXPECT_EQ(box.pictureDepth(), 1);
    EXPECT_EQ(loaded.back()[3], 1);
    box.LoadPic(folder.write("b.jpg", support::smallJpeg()));
    EXPECT_EQ(box.pictureDepth(), 24);
}

TEST_F(PictureBoxLoading, BringsRegionsIntoTheNewPictureWhileTheyAreShown) {
    box.ROI_Load(150, 10, 60, 20);
    box.ShowROIs(false);
    box.LoadPic(bitmap("a.bmp", {200, 100}));
    EXPECT_EQ(box.regionRect(1), (Rect{150, 10, 210, 30}));
    box.ShowROIs(true);
    box.LoadPic(box.FileName());
    EXPECT_EQ(box.regionRect(1), (Rect{40, 10, 100, 30})) << "to the height, also when nothing is loaded";
}

TEST_F(PictureBoxLoading, LeavesALaterWishAlone) {
    const std::string first = bitmap("a.bmp", {30, 20}, plain(0x111111));
    const std::string second = bitmap("b.bmp", {40, 30}, plain(0x222222));
    platform::application::post(form, [&] { box.LoadPic(second); });
    box.LoadPic(first);
    user::pump();
    EXPECT_EQ(box.FileName(), second);
    EXPECT_EQ(buffered(8, 8), 0x222222u);
    EXPECT_THAT(loaded, ElementsAre(ElementsAre(40, 30, 1, 24)));
}

TEST_F(PictureBoxLoading, WhatWasGivenUpLeavesTheOldPictureAndComesWhenItIsAskedForAgain) {
    const std::string old = bitmap("a.bmp", {30, 20}, plain(0x111111));
    const std::string wanted = bitmap("b.bmp", {40, 30}, plain(0x222222));
    const std::string other = bitmap("c.bmp", {50, 30}, plain(0x333333));
    support::HangingDisk disk;
    box.waitFor = [&](platform::BackgroundTask& task) {
        while (!disk.isStuck() && !task.wait(1)) {
        }
        return !disk.isStuck();
    };
    box.LoadPic(old);
    disk.hang(true);
    box.LoadPic(wanted);
    EXPECT_THAT(failures,
                ElementsAre("b.bmp: Das Laden wurde abgebrochen. Zu sehen ist noch das vorige Bild."));
    EXPECT_TRUE(box.Failed());
    EXPECT_EQ(picture(), (Size{30, 20}));
    EXPECT_EQ(buffered(8, 8), 0x111111u);
    EXPECT_EQ(box.pictureDepth(), 24);

    box.waitFor = nullptr;  // nobody waits for what hangs
    disk.hang(false);
    box.LoadPic(wanted);
    EXPECT_FALSE(box.Failed());
    EXPECT_EQ(buffered(8, 8), 0x222222u);
    box.LoadPic(other);
    EXPECT_EQ(buffered(8, 8), 0x333333u);
    disk.letGo();  // the late answer is nobody's
    box.LoadPic(other);
    EXPECT_EQ(buffered(8, 8), 0x333333u);
    EXPECT_EQ(loaded.size(), 3u);
    EXPECT_EQ(failures.size(), 1u);
}

TEST_F(PictureBoxLoading, AWishDuringTheWaitComesNextWhetherOrNotTheFirstWasGivenUp) {
    const std::string first = bitmap("a.bmp", {30, 20}, plain(0x111111));
    const std::string second = bitmap("b.bmp", {40, 30}, plain(0x222222));
    for (const bool givenUp : {false, true}) {
        loaded.clear();
        int waits = 0;
        box.waitFor = [&](platform::BackgroundTask& task) {
            while (!task.wait(1000)) {
            }
            if (++waits > 1) return true;
            for (int i = 0; i < 2; ++i) box.LoadPic(second);
            return !givenUp;
        };
        box.LoadPic(first);
        EXPECT_EQ(box.FileName(), second);
        EXPECT_EQ(buffered(8, 8), 0x222222u);
        EXPECT_THAT(loaded, ElementsAre(ElementsAre(40, 30, 1, 24)));
        EXPECT_FALSE(box.Failed());
    }
    EXPECT_EQ(failures.size(), 0u);
}

}  // namespace
