// The mouse and the keys on the picture, as a person uses them.
#include <gmock/gmock.h>

#include "tests/controls/picture_box_fixture.h"

namespace {

using platform::MouseButton;
using platform::Point;
using platform::Pointer;
using platform::Rect;
using testing::ElementsAre;
using testing::IsEmpty;

namespace keyCode = platform::keyCode;
namespace shiftKey = platform::shiftKey;

/// A picture of 500 x 300 behind the view of 200 x 100, and the events as text.
class PictureBoxMouse : public PictureBoxTest {
  protected:
    PictureBoxMouse() {
        box.LoadPic(bitmap("a.bmp", {500, 300}));
        box.ROIselect = logged("select");
        box.ROImove = logged("move");
    }
    controls::kvPictureBox::RegionEvent logged(const std::string& name) {
        return [this, name](int& index, int& X, int& Y, int& dX, int& dY) {
            events.push_back(name + ' ' + std::to_string(index) + ": " + std::to_string(X) + ' ' +
                             std::to_string(Y) + ' ' + std::to_string(dX) + ' ' + std::to_string(dY));
            index = X = dX = -99;  // the control does not look at them
        };
    }
    /// What was raised since the last question.
    std::vector<std::string> raised() { return std::exchange(events, {}); }

    void load(std::initializer_list<Rect> regions) {  // left, top, width, height
        for (const auto& [X, Y, dX, dY] : regions) box.ROI_Load(X, Y, dX, dY);
    }
    void select(int index) {
        box.ROI_Select(index);
        events.clear();
    }
    void press(Point at, MouseButton button = MouseButton::left) {
        user::mouseDown(box, held = button, 0, at);
    }
    /// And nothing of where it was is left on the screen.
    void drag(Point to) {
        user::mouseMove(box, held, 0, to);
        EXPECT_TRUE(user::screen(box) == user::printed(box)) << "at " << to.x << ", " << to.y;
    }
    void hover(Point at) { user::mouseMove(box, MouseButton::none, 0, at); }
    void release(Point at = {}) { user::mouseUp(box, held, 0, at); }
    void pressAndDrag(Point from, Point to, MouseButton button = MouseButton::left) {
        press(from, button);
        events.clear();
        drag(to);
    }

    MouseButton held = MouseButton::none;
    std::vector<std::string> events;
};

TEST_F(PictureBoxMouse, MovesTheSelectedRegionAsFarAsThePictureGoes) {
    load({{100, 100, 5, 5}, {10, 10, 20, 20}});
    select(2);
    press({20, 20});
    EXPECT_THAT(raised(), ElementsAre("select 2: 10 10 20 20"));
    EXPECT_TRUE(box.focused());
    EXPECT_EQ(box.pointer(), Pointer::move);
    drag({20, 20});
    EXPECT_THAT(raised(), IsEmpty()) << "a click moves nothing";
    drag({25, 13});
    drag({-30, 20});
    EXPECT_THAT(raised(), ElementsAre("move 1: 15 3 20 20", "move 1: 0 10 20 20"));
    drag({201, 50});
    drag({50, 101});
    EXPECT_THAT(raised(), IsEmpty()) << "over the scroll bars";
    release();
    EXPECT_THAT(raised(), IsEmpty());
    EXPECT_EQ(box.pointer(), Pointer::arrow);
    hover({20, 25});
    EXPECT_EQ(box.regionRect(2), (Rect{0, 10, 20, 30})) << "it was let go";
    user::scroll(hScroll, 100);
    user::scroll(vScroll, 90);
    pressAndDrag({3, 13}, {23, 18});
    EXPECT_THAT(raised(), ElementsAre("move 0: 120 105 5 5")) << "where it is seen";
}

TEST_F(PictureBoxMouse, SizesByAHandleAndAcrossTheOppositeEdge) {
    load({{60, 40, 40, 30}});
    select(1);
    pressAndDrag({104, 55}, {0, 0});
    EXPECT_EQ(box.pointer(), Pointer::move);
    EXPECT_THAT(raised(), ElementsAre("move 0: 0 40 60 30")) << "the right edge is left of the left one";
    drag({114, 20});
    release();
    EXPECT_THAT(raised(), ElementsAre("move 0: 60 40 50 30")) << "and goes on from there";
    pressAndDrag({56, 36}, {116, 81});
    release();
    EXPECT_EQ(box.regionRect(1), (Rect{110, 70, 120, 85}));
}

TEST_F(PictureBoxMouse, PicksAnotherRegionAndMovesItAtOnce) {
    load({{10, 10, 40, 40}, {20, 20, 40, 40}, {60, 10, 40, 40}, {150, 50, 20, 20}});
    select(4);
    press({15, 15});
    EXPECT_THAT(raised(), ElementsAre("select 1: 10 10 40 40"));
    EXPECT_EQ(box.pointer(), Pointer::arrow);
    EXPECT_EQ(box.ROI(), 1);
    drag({16, 17});
    EXPECT_THAT(raised(), ElementsAre("move 0: 11 12 40 40"));
    release();

    select(4);
    press({30, 30});
    EXPECT_THAT(raised(), ElementsAre("select 2: 20 20 40 40")) << "the last of those at that point";
    release();
    EXPECT_EQ(box.GetSelectedROI(), 0) << "the first one stays selected, too";
    press({30, 30});
    EXPECT_EQ(box.ROI(), 2) << "and is hit only after the last";
    release();
    press({90, 40});
    EXPECT_EQ(box.GetSelectedROI(), 2) << "until the next press picks another one";
    release();
    press({160, 60});
    EXPECT_EQ(box.GetSelectedROI(), 3);
}

TEST_F(PictureBoxMouse, PullsThePictureBesideAllRegions) {
    load({{10, 10, 20, 20}});
    select(1);
    user::scroll(hScroll, 50);
    press({100, 50});
    EXPECT_THAT(raised(), ElementsAre("select 0: 0 0 0 0"));
    EXPECT_EQ(box.ROI(), 0);
    EXPECT_EQ(box.GetSelectedROI(), 0) << "its handles stay";
    EXPECT_EQ(box.pointer(), Pointer::move);
    drag({80, 30});
    EXPECT_EQ(offset(), (Point{-70, -20}));
    drag({199, 99});
    EXPECT_EQ(offset(), (Point{0, 0})) << "to the edge";
    drag({90, 50});
    EXPECT_EQ(offset(), (Point{-60, 0})) << "counted from the press";
    user::key(box, keyCode::escape);
    EXPECT_EQ(offset(), (Point{-50, 0}));
    EXPECT_THAT(raised(), IsEmpty());

    box.LoadPic(bitmap("small.bmp", {250, 40}));
    pressAndDrag({100, 50}, {80, 30});
    EXPECT_EQ(offset(), (Point{-50, 30})) << "nothing to scroll upwards";
}

TEST_F(PictureBoxMouse, TakesHandlesWithTheRightButtonButNotTheInside) {
    load({{10, 10, 40, 40}, {30, 30, 40, 40}});
    select(2);
    press({20, 20}, MouseButton::right);
    EXPECT_EQ(box.ROI(), 1);
    release();
    select(2);
    press({40, 40}, MouseButton::right);
    EXPECT_EQ(box.ROI(), 1) << "it yields to any other region there";
    release();
    select(2);
    press({60, 60}, MouseButton::right);
    EXPECT_EQ(box.ROI(), 2);
    EXPECT_EQ(box.pointer(), Pointer::arrow) << "unlike the left one";
    release();
    pressAndDrag({74, 50}, {84, 50}, MouseButton::right);
    EXPECT_THAT(raised(), ElementsAre("move 1: 30 30 50 40"));
}

TEST_F(PictureBoxMouse, KeepsRegionsWhereTheyMayNotBeMoved) {
    load({{10, 10, 40, 40}, {60, 10, 40, 40}});
    select(1);
    box.AllowROImove(false);
    press({20, 20});
    EXPECT_EQ(box.pointer(), Pointer::arrow) << "no move is promised";
    release();
    raised();
    for (const Point p : {Point{20, 20}, {6, 6}, {70, 20}}) {
        press(p);
        drag({p.x + 5, p.y});
        release();
    }
    user::key(box, keyCode::right);
    EXPECT_THAT(raised(),
                ElementsAre("select 1: 10 10 40 40", "select 1: 10 10 40 40", "select 2: 60 10 40 40"));
    EXPECT_EQ(offset(), (Point{0, 0}));
    box.AllowROImove(true);
    box.ShowROIs(false);
    pressAndDrag({70, 20}, {50, 20});
    EXPECT_EQ(box.ROI(), 0) << "what is not seen cannot be picked";
}

TEST_F(PictureBoxMouse, ShowsWhatAPressWouldDo) {
    load({{50, 50, 10, 10}, {60, 40, 40, 30}, {120, 40, 20, 20}});
    select(2);
    press({80, 50});  // from now on it comes before the first one, which its left handle stands in
    release();
    raised();
    const struct {
        Point at;
        Pointer pointer;
    } cases[] = {
        {{56, 36}, Pointer::sizeNWSE}, {{80, 36}, Pointer::sizeNS}, {{104, 36}, Pointer::sizeNESW},
        {{104, 55}, Pointer::sizeWE},  {{80, 55}, Pointer::arrow},  {{104, 74}, Pointer::sizeNWSE},
        {{80, 74}, Pointer::sizeNS},   {{10, 10}, Pointer::arrow},  {{56, 74}, Pointer::sizeNESW},
        {{124, 36}, Pointer::arrow},   {{56, 55}, Pointer::sizeWE},
    };
    for (const auto& c : cases) {
        hover(c.at);
        EXPECT_EQ(box.pointer(), c.pointer) << c.at.x << ", " << c.at.y;
    }
    box.ShowROIs(false);
    hover({56, 56});
    EXPECT_EQ(box.pointer(), Pointer::arrow);
    EXPECT_THAT(raised(), IsEmpty());
}

TEST_F(PictureBoxMouse, IgnoresWhatIsNotOnThePicture) {
    load({{150, 70, 200, 100}});
    select(1);
    press({201, 101});  // the corner between the scroll bars
    box.Stretch(true);
    press({100, 50});
    drag({90, 40});
    user::key(box, keyCode::right);
    EXPECT_THAT(raised(), IsEmpty());
    EXPECT_EQ(box.pointer(), Pointer::arrow);
}

TEST_F(PictureBoxMouse, TakesADragBackWithEscape) {
    load({{60, 40, 40, 30}});
    select(1);
    pressAndDrag({56, 55}, {150, 55});
    user::key(box, keyCode::escape);
    EXPECT_THAT(raised(), ElementsAre("move 0: 100 40 54 30", "move 0: 60 40 40 30"));
    EXPECT_EQ(box.pointer(), Pointer::arrow);
    drag({70, 50});
    release();
    pressAndDrag({80, 50}, {80, 50});
    user::key(box, keyCode::escape);
    EXPECT_THAT(raised(), IsEmpty()) << "nothing had changed";
    EXPECT_EQ(user::screen(box), user::printed(box));
}

TEST_F(PictureBoxMouse, EndsADragWhenMouseOrRegionAreGone) {
    const std::function<void()> causes[] = {
        [&] { user::takeCapture(box); },  [&] { hover({85, 50}); },  // the release went elsewhere
        [&] { box.ROI_Add(1, 1, 5, 5); }, [&] { box.ROI_Remove(0); }, [&] { box.ROI_Clear(); },
    };
    for (const auto& cause : causes) {
        box.ROI_Clear();
        load({{60, 40, 40, 30}});
        select(1);
        pressAndDrag({80, 50}, {83, 50});
        cause();
        EXPECT_EQ(box.pointer(), Pointer::arrow);
        events.clear();
        drag({90, 60});
        release();
        EXPECT_THAT(raised(), IsEmpty());
    }
}

TEST_F(PictureBoxMouse, MovesAndSizesWithTheArrowKeys) {
    load({{60, 40, 40, 30}, {1, 1, 5, 5}});
    user::key(box, keyCode::right);
    EXPECT_THAT(raised(), IsEmpty()) << "none is selected";
    box.ROI_Add(60, 40, 40, 30);
    raised();
    user::key(box, keyCode::right);
    user::key(box, keyCode::down, shiftKey::shift | shiftKey::control);
    EXPECT_THAT(raised(), ElementsAre("move 2: 70 40 40 30", "move 2: 70 40 40 31"));
    EXPECT_EQ(user::screen(box), user::printed(box));

    int X = 490, Y = 100, dX = 10, dY = 10;
    box.ROI_Move(3, X, Y, dX, dY);
    raised();
    user::key(box, keyCode::right);
    EXPECT_THAT(raised(), IsEmpty()) << "at the picture's edge";
    EXPECT_LT(box.OffsetX(), -200);
    for (int i = 0; i < 30; ++i) user::key(box, keyCode::left);
    EXPECT_EQ(box.OffsetX(), -190) << "the view goes along";
}

// Only the bands around a dragged region are drawn: marks that are put on the screen elsewhere stay.
TEST_F(PictureBoxMouse, TouchesOnlyTheBandsDuringADrag) {
    constexpr platform::Colour mark = 0xFF00FF;
    for (int i = 0; i < 10; ++i) load({{15 * i, 8 * i, 60, 40}});
    select(5);
    press({70, 45});
    user::pump();
    box.draw([&](platform::Canvas& canvas) { canvas.fill({0, 0, 200, 100}, mark); });
    const Rect before = box.regionRect(5);
    user::mouseMove(box, held, 0, {90, 50});
    const Rect after = box.regionRect(5);
    const user::Picture screen = user::screen(box), whole = user::printed(box);
    const auto inBands = [](const Rect& r, Point p) {
        const Rect outer{r.left - 8, r.top - 8, r.right + 8, r.bottom + 8};
        const Rect inner{r.left + 1, r.top + 1, r.right - 1, r.bottom - 1};
        return outer.contains(p) && !inner.contains(p);
    };
    for (int y = 0; y < 100; ++y)
        for (int x = 0; x < 200; ++x) {
            const Point p{x, y};
            const bool drawn = inBands(before, p) || inBands(after, p);
            ASSERT_EQ(screen.at(p), drawn ? whole.at(p) : mark) << x << ", " << y;
        }
}

}  // namespace
