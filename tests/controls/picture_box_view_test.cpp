#include <gmock/gmock.h>

#include "tests/controls/picture_box_fixture.h"

namespace {

using namespace controls;
using platform::Point;
using platform::Rect;
using platform::Size;
using support::distinctColour;
using testing::ElementsAre;

using PictureBoxView = PictureBoxTest;

TEST_F(PictureBoxView, CentresASmallPicture) {
    box.LoadPic(bitmap("a.bmp", {100, 51}));
    EXPECT_EQ(offset(), (Point{50, 24}));
    EXPECT_FALSE(hScroll.enabled() || vScroll.enabled());
    const user::Picture screen = user::screen(box);
    EXPECT_EQ(screen.at({50, 24}), distinctColour(0, 0));
    EXPECT_EQ(screen.at({149, 74}), distinctColour(99, 50));
    for (const Point p : {Point{49, 24}, {150, 74}}) EXPECT_EQ(screen.at(p), background);
}

TEST_F(PictureBoxView, ScrollsALargeOne) {
    box.LoadPic(bitmap("a.bmp", {500, 300}));
    EXPECT_EQ(hScroll.maximum(), 300);
    EXPECT_EQ(vScroll.maximum(), 200);
    EXPECT_EQ(offset(), (Point{0, 0}));
    user::scroll(hScroll, 120);
    user::scroll(vScroll, 40);
    EXPECT_EQ(offset(), (Point{-120, -40}));
    EXPECT_EQ(user::screen(box).at({3, 2}), distinctColour(123, 42));

    box.LoadPic(bitmap("b.bmp", {250, 90}));
    EXPECT_EQ(offset(), (Point{-50, 5})) << "as far as there is to scroll, and centred";
    EXPECT_EQ(hScroll.value(), 50);
    resizeView({260, 80});
    EXPECT_EQ(offset(), (Point{5, 0}));
    EXPECT_FALSE(hScroll.enabled());
    EXPECT_TRUE(vScroll.enabled());
    EXPECT_EQ(user::screen(box), user::printed(box));
}

TEST_F(PictureBoxView, TurnsWithTheWheel) {
    box.LoadPic(bitmap("a.bmp", {500, 300}));
    user::wheel(box, -240, 0, {10, 10});
    EXPECT_EQ(offset(), (Point{0, -6 * vScroll.smallChange()}));
    user::wheel(box, -120, platform::shiftKey::shift, {10, 10});
    EXPECT_EQ(box.OffsetX(), -3 * hScroll.smallChange());
    user::wheel(box, 12000, 0, {10, 10});
    EXPECT_EQ(box.OffsetY(), 0);
}

TEST_F(PictureBoxView, ShowsAtItsEdgeThatTheKeyboardHasLedToIt) {
    box.LoadPic(bitmap("a.bmp", {300, 200}, plain(0x808080)));
    const auto mark = platform::systemColour(platform::SystemColour::highlight);
    const auto isMarked = [&] {
        const auto pixels = user::screen(box);
        EXPECT_EQ(pixels, user::printed(box));
        EXPECT_EQ(pixels.at({100, 50}), 0x808080u);
        return pixels.at({0, 0}) == mark && pixels.at({199, 99}) == mark;
    };
    EXPECT_FALSE(isMarked());
    box.focus();
    EXPECT_TRUE(isMarked());
    neighbour.focus();
    EXPECT_FALSE(isMarked());
    user::mouseDown(box, platform::MouseButton::left, 0, {100, 50});
    user::mouseUp(box, platform::MouseButton::left, 0, {100, 50});
    EXPECT_TRUE(box.focused());
    EXPECT_FALSE(isMarked()) << "who clicks knows where";
}

TEST_F(PictureBoxView, KeepsItsPropertiesInABag) {
    std::vector<std::string> changed;
    box.onPropertyChanged = [&](std::string_view key) { changed.emplace_back(key); };
    box.FileName("x.bmp");
    box.Picture(std::make_shared<platform::Surface>(Size{4, 4}));
    box.AllowROImove(false);
    box.ShowROIs(false);
    box.SizeGrip(true);
    box.Stretch(true);
    EXPECT_THAT(changed,
                ElementsAre("FileName", "Picture", "AllowROImove", "ShowROIs", "SizeGrip", "Stretch"));

    PropertyBag bag;
    box.WriteProperties(bag);
    const auto values = [](const kvPictureBox& b) {
        return std::tuple(b.FileName(), b.AllowROImove(), b.ShowROIs(), b.SizeGrip(), b.Stretch());
    };
    box.ReadProperties(PropertyBag());
    EXPECT_EQ(values(box), std::tuple("", true, true, false, false));
    EXPECT_FALSE(hScroll.visible()) << "only setting the property shows the bars again";
    box.ReadProperties(bag);
    EXPECT_EQ(values(box), std::tuple("x.bmp", false, false, true, true));
}

}  // namespace
