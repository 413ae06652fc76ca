#include "platform/picture.h"

#include <gtest/gtest.h>

#include "tests/support/pictures.h"
#include "tests/support/temp_folder.h"

namespace {

using namespace platform;

constexpr Colour ground = 0x123456;

TEST(DecodePicture, PutsThePictureIntoItsAreaOnly) {
    const Size size{6, 5};
    const support::TempFolder folder;
    const std::string file =
        folder.write("bild.bmp", support::trueColourBitmap(size, support::distinctColour));
    const Rect areas[] = {
        {2, 3, 8, 8},    // as large as the picture
        {2, 3, 4, 6},    // the picture is cut off
        {0, 0, 12, 10},  // the picture does not fill it
        {9, 7, 15, 12},  // it reaches out of the surface
        {-2, -1, 4, 4},  // at the other side as well
        {3, 3, 3, 3},    // empty
    };
    for (const Rect& area : areas) {
        Surface surface({12, 10});
        surface.fill(ground);
        EXPECT_EQ(decodePicture(file, surface, area), size) << "the picture's own size";
        for (int y = 0; y < 10; ++y)
            for (int x = 0; x < 12; ++x) {
                const Point p{x - area.left, y - area.top};
                const bool covered = area.contains({x, y}) && p.x < size.width && p.y < size.height;
                EXPECT_EQ(surface.row(y)[x] & 0xFFFFFF, covered ? support::distinctColour(p.x, p.y) : ground)
                    << "area at " << area.left << ", " << area.top << ": " << x << ", " << y;
            }
    }
}

}  // namespace
