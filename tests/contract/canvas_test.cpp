#include "platform/canvas.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <string>

#include "platform/errors.h"
#include "tests/support/error_of.h"

namespace {

using namespace platform;

constexpr Colour ground = 0x000000, red = 0xFF0000, green = 0x00FF00, blue = 0x0000FF;

/// The surface as lines of letters.
std::string lettersOf(const Surface& surface) {
    static const std::map<Colour, char> letters{{ground, '.'}, {red, 'r'}, {green, 'g'}, {blue, 'b'}};
    std::string text;
    for (int y = 0; y < surface.size().height; ++y) {
        for (int x = 0; x < surface.size().width; ++x) text += letters.at(surface.row(y)[x] & 0xFFFFFF);
        text += '\n';
    }
    return text;
}

/// Checks what is drawn on 5 x 4 pixels, from a source of 3 x 2.
void expectDrawn(const std::function<void(Canvas&, const Surface&)>& draw, const char* result) {
    Surface source({3, 2});
    const Colour colours[] = {red, green, blue, blue, red, ground};
    for (int i = 0; i < 6; ++i) source.row(i / 3)[i % 3] = colours[i];
    Surface surface({5, 4});
    surface.fill(ground);
    {
        Canvas canvas(surface);
        draw(canvas, source);
    }
    EXPECT_EQ(lettersOf(surface), result);
}

TEST(Canvas, FillsAndFramesWithinItsBounds) {
    expectDrawn([](auto& c, auto&) { c.fill({1, 1, 3, 2}, red); }, ".....\n.rr..\n.....\n.....\n");
    expectDrawn([](auto& c, auto&) { c.fill({-4, 2, 1, 90}, red); }, ".....\n.....\nr....\nr....\n");
    expectDrawn([](auto& c, auto&) { c.fill({3, 3, 3, 1}, red); }, ".....\n.....\n.....\n.....\n");
    expectDrawn([](auto& c, auto&) { c.frame({0, 0, 4, 4}, red); }, "rrrr.\nr..r.\nr..r.\nrrrr.\n");
    expectDrawn([](auto& c, auto&) { c.frame({-1, 1, 3, 9}, red); }, ".....\nrrr..\n..r..\n..r..\n");
    expectDrawn([](auto& c, auto&) { c.rectangle({1, 0, 5, 3}, red, blue); }, ".rrrr\n.rbbr\n.rrrr\n.....\n");
}

TEST(Canvas, CopiesAndStretchesWithinItsBounds) {
    expectDrawn([](auto& c, auto& s) { c.copy({1, 1, 4, 3}, s, {0, 0}); }, ".....\n.rgb.\n.br..\n.....\n");
    expectDrawn([](auto& c, auto& s) { c.copy({0, 3, 2, 4}, s, {1, 0}); }, ".....\n.....\n.....\ngb...\n");
    expectDrawn([](auto& c, auto& s) { c.copy({-1, -1, 2, 1}, s, {0, 0}); }, "r....\n.....\n.....\n.....\n");
    expectDrawn([](auto& c, auto& s) { c.copy({4, 3, 7, 5}, s, {0, 0}); }, ".....\n.....\n.....\n....r\n");
    expectDrawn(
        [](auto& c, auto& s) {
            c.stretch({0, 0, 4, 4}, s, {0, 0, 2, 2});
        },
        "rrgg.\nrrgg.\nbbrr.\nbbrr.\n");
    expectDrawn(
        [](auto& c, auto& s) {
            c.stretch({-2, 2, 2, 6}, s, {0, 0, 2, 2});
        },
        ".....\n.....\ngg...\ngg...\n");
    expectDrawn(
        [](auto& c, auto& s) {
            c.stretch({2, 0, 5, 2}, s, {0, 0, 3, 2});
        },
        "..rgb\n..br.\n.....\n.....\n");
    const auto beyondTheSource = [](auto& c, auto& s) {
        c.fill({0, 0, 5, 4}, green);
        c.copy({0, 0, 5, 4}, s, {1, 0});
    };
    expectDrawn(beyondTheSource, "gbggg\nr.ggg\nggggg\nggggg\n");
}

TEST(Canvas, DropsPixelsInsteadOfMixingThem) {
    Surface checks({8, 8});
    for (int i = 0; i < 64; ++i) checks.row(i / 8)[i % 8] = (i / 8 + i) % 2 ? red : blue;
    Surface small({3, 3});
    Canvas(small).stretch({0, 0, 3, 3}, checks, {0, 0, 8, 8});
    EXPECT_EQ(lettersOf(small).find_first_not_of("rb\n"), std::string::npos) << lettersOf(small);
}

TEST(Surface, ThatIsTooLargeIsRefused) {
    const auto made = [] { Surface surface({60000, 60000}); };
    EXPECT_EQ(support::errorOf(made).number(), error::badPicture);
}

}  // namespace
