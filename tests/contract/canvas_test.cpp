#include "platform/canvas.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "platform/errors.h"

namespace {

using namespace platform;

constexpr Colour ground = 0x000000, red = 0xFF0000, green = 0x00FF00, blue = 0x0000FF;

/// The surface as lines of letters.
std::string drawn(const Surface& surface) {
    std::string text;
    for (int y = 0; y < surface.size().height; ++y) {
        for (int x = 0; x < surface.size().width; ++x) {
            const Colour colour = surface.row(y)[x] & 0xFFFFFF;
            text += colour == ground  ? '.'
                    : colour == red   ? 'r'
                    : colour == green ? 'g'
                    : colour == blue  ? 'b'
                                      : '?';
        }
        text += '\n';
    }
    return text;
}

/// 3 x 2 pixels, each of another colour but one.
Surface source() {
    Surface surface({3, 2});
    const Colour colours[] = {red, green, blue, blue, red, ground};
    for (int i = 0; i < 6; ++i) surface.row(i / 3)[i % 3] = colours[i];
    return surface;
}

struct Case {
    const char* what;
    std::function<void(Canvas&, const Surface&)> draw;
    const char* result;
};

TEST(Canvas, DrawsPixelByPixel) {
    const Case cases[] = {
        {"fill",
         [](Canvas& c, const Surface&) {
             c.fill({1, 1, 3, 2}, red);
         },
         ".....\n.rr..\n.....\n.....\n"},
        {"fill, cut off",
         [](Canvas& c, const Surface&) {
             c.fill({-4, 2, 1, 90}, red);
         },
         ".....\n.....\nr....\nr....\n"},
        {"fill of nothing",
         [](Canvas& c, const Surface&) {
             c.fill({3, 3, 3, 1}, red);
         },
         ".....\n.....\n.....\n.....\n"},
        {"frame",
         [](Canvas& c, const Surface&) {
             c.frame({0, 0, 4, 4}, red);
         },
         "rrrr.\nr..r.\nr..r.\nrrrr.\n"},
        {"frame, cut off",
         [](Canvas& c, const Surface&) {
             c.frame({-1, 1, 3, 9}, red);
         },
         ".....\nrrr..\n..r..\n..r..\n"},
        {"rectangle",
         [](Canvas& c, const Surface&) {
             c.rectangle({1, 0, 5, 3}, red, blue);
         },
         ".rrrr\n.rbbr\n.rrrr\n.....\n"},
        {"the last one covers",
         [](Canvas& c, const Surface&) {
             c.fill({0, 0, 5, 2}, red);
             c.fill({2, 1, 3, 4}, green);
         },
         "rrrrr\nrrgrr\n..g..\n..g..\n"},
        {"copy",
         [](Canvas& c, const Surface& s) {
             c.copy({1, 1, 4, 3}, s, {0, 0});
         },
         ".....\n.rgb.\n.br..\n.....\n"},
        {"copy of a part",
         [](Canvas& c, const Surface& s) {
             c.copy({0, 3, 2, 4}, s, {1, 0});
         },
         ".....\n.....\n.....\ngb...\n"},
        {"copy, cut off at the left and top",
         [](Canvas& c, const Surface& s) {
             c.copy({-1, -1, 2, 1}, s, {0, 0});
         },
         "r....\n.....\n.....\n.....\n"},
        {"copy, cut off at the right and bottom",
         [](Canvas& c, const Surface& s) {
             c.copy({4, 3, 7, 5}, s, {0, 0});
         },
         ".....\n.....\n.....\n....r\n"},
        {"copy beyond the source",
         [](Canvas& c, const Surface& s) {
             c.fill({0, 0, 5, 4}, green);
             c.copy({0, 0, 5, 4}, s, {1, 0});
         },
         "gbggg\nr.ggg\nggggg\nggggg\n"},
        {"stretch",
         [](Canvas& c, const Surface& s) {
             c.stretch({0, 0, 4, 4}, s, {0, 0, 2, 2});
         },
         "rrgg.\nrrgg.\nbbrr.\nbbrr.\n"},
        {"stretch, cut off",
         [](Canvas& c, const Surface& s) {
             c.stretch({-2, 2, 2, 6}, s, {0, 0, 2, 2});
         },
         ".....\n.....\ngg...\ngg...\n"},
        {"stretch 1:1",
         [](Canvas& c, const Surface& s) {
             c.stretch({2, 0, 5, 2}, s, {0, 0, 3, 2});
         },
         "..rgb\n..br.\n.....\n.....\n"},
    };
    const Surface pixels = source();
    for (const Case& test : cases) {
        Surface surface({5, 4});
        surface.fill(ground);
        {
            Canvas canvas(surface);
            test.draw(canvas, pixels);
        }
        EXPECT_EQ(drawn(surface), test.result) << test.what;
    }
}

TEST(Canvas, DropsPixelsInsteadOfMixingThem) {
    Surface checks({8, 8});
    for (int y = 0; y < 8; ++y)
        for (int x = 0; x < 8; ++x) checks.row(y)[x] = (x + y) % 2 ? red : blue;
    Surface small({3, 3});
    small.fill(green);
    {
        Canvas canvas(small);
        canvas.stretch({0, 0, 3, 3}, checks, {0, 0, 8, 8});
    }
    EXPECT_EQ(drawn(small).find_first_not_of("rb\n"), std::string::npos) << drawn(small);
}

TEST(Canvas, CopiesOntoItselfAsFromAPicture) {
    Surface surface({2, 4});
    const Colour rows[] = {red, green, blue, red};
    const auto shifted = [&](Rect area, Point from) {
        for (int y = 0; y < 4; ++y) std::fill_n(surface.row(y), 2, rows[y]);
        surface.row(0)[1] = ground;
        {
            Canvas canvas(surface);
            canvas.copy(area, surface, from);
        }
        return drawn(surface);
    };
    EXPECT_EQ(shifted({0, 1, 2, 4}, {0, 0}), "r.\nr.\ngg\nbb\n") << "down";
    EXPECT_EQ(shifted({0, 0, 2, 3}, {0, 1}), "gg\nbb\nrr\nrr\n") << "up";
    EXPECT_EQ(shifted({1, 0, 2, 4}, {0, 0}), "rr\ngg\nbb\nrr\n") << "to the right";
}

TEST(Canvas, DrawsASunkenEdgeOnTheEdgeOnly) {
    Surface surface({12, 12});
    surface.fill(green);
    {
        Canvas canvas(surface);
        canvas.sunkenEdge({1, 1, 11, 11});
    }
    for (int y = 0; y < 12; ++y)
        for (int x = 0; x < 12; ++x) {
            const bool outside = x < 1 || y < 1 || x >= 11 || y >= 11;
            const bool inside = x >= 3 && y >= 3 && x < 9 && y < 9;
            EXPECT_EQ(surface.row(y)[x] == green, outside || inside) << x << ", " << y;
        }
}

TEST(Canvas, DrawsASizeGripIntoItsArea) {
    Surface surface({20, 20});
    surface.fill(green);
    {
        Canvas canvas(surface);
        canvas.sizeGrip({2, 2, 19, 19});
    }
    int drawnInside = 0;
    for (int y = 0; y < 20; ++y)
        for (int x = 0; x < 20; ++x) {
            if (x < 2 || y < 2 || x >= 19 || y >= 19)
                EXPECT_EQ(surface.row(y)[x], green) << x << ", " << y;
            else
                drawnInside += surface.row(y)[x] != green;
        }
    EXPECT_GT(drawnInside, 5);
}

TEST(Surface, IsASizeAndItsRows) {
    Surface surface({3, 2});
    EXPECT_EQ(surface.size(), (Size{3, 2}));
    surface.fill(0x123456);
    EXPECT_EQ(surface.row(1)[2], 0x123456u);
    surface.row(1)[2] = red;
    Surface moved = std::move(surface);
    EXPECT_EQ(moved.row(1)[2], red);
    EXPECT_EQ(moved.row(0)[0], 0x123456u);
    moved = Surface({1, 1});
    EXPECT_EQ(moved.size(), (Size{1, 1}));
    EXPECT_EQ(Surface().size(), Size{});
    EXPECT_EQ(Surface(Size{0, 5}).size().width, 0);
}

TEST(Surface, ThatIsTooLargeIsRefused) {
    try {
        Surface surface({60000, 60000});
        FAIL();
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.number(), error::badPicture);
    }
}

}  // namespace
