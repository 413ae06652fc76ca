// A region dragged over a large picture in a real window: what one mouse move costs, and what it draws.
#include "benchmarks/window/measure.h"
#include "controls/picturebox/kvPictureBox.h"
#include "platform/files.h"
#include "platform/form.h"
#include "tests/support/pictures.h"
#include "tests/support/user.h"

namespace measure {

namespace {

using platform::MouseButton;
using platform::Point;
using platform::Rect;
using platform::Size;

constexpr Size picture{4000, 3000};
constexpr Size control{1200, 900};
constexpr int regions = 50;
constexpr int moves = 300;
constexpr int dragged = 25;

struct Window {
    explicit Window(const std::string& file) {
        form.show();
        box.move(Rect::at(0, 0, control.width, control.height));
        box.LoadPic(file);
        for (int i = 0; i < regions; ++i) box.ROI_Load(i * 15, i * 10, 300, 200);
        box.ROI_Select(dragged);
        grabbed = {box.regionRect(dragged).left + 100, box.regionRect(dragged).top + 100};
        user::mouseDown(box, MouseButton::left, 0, grabbed);
        user::pump();
    }
    /// Another place each time, a few pixels on, as a hand moves.
    void moveMouse() {
        ++steps;
        user::mouseMove(box, MouseButton::left, 0,
                        {grabbed.x + steps * 7 % 400, grabbed.y + steps * 3 % 200});
    }

    platform::Form form{"frmPicture", "Bild", {.clientSize = control}};
    controls::kvPictureBox box{form, "kvPictureBox1"};
    Point grabbed;
    int steps = 0;
};

bool inBands(const Rect& region, Point p) {
    constexpr int reach = 8;
    const Rect outer{region.left - reach, region.top - reach, region.right + reach, region.bottom + reach};
    const Rect inside{region.left + 1, region.top + 1, region.right - 1, region.bottom - 1};
    return outer.contains(p) && !inside.contains(p);
}

/// How many marks of a screen full of them one move draws over, in the bands and elsewhere.
std::string pixelsDrawn(Window& window) {
    constexpr platform::Colour mark = 0xFF00FF;
    window.box.draw(
        [](platform::Canvas& canvas) { canvas.fill(Rect::at(0, 0, control.width, control.height), mark); });
    const user::Picture before = user::screen(window.box);
    const Rect from = window.box.regionRect(dragged);
    window.moveMouse();
    const Rect to = window.box.regionRect(dragged);
    const user::Picture after = user::screen(window.box);
    int drawn = 0;
    int outside = 0;
    for (int y = 0; y < after.size.height; ++y)
        for (int x = 0; x < after.size.width; ++x) {
            const Point p{x, y};
            if (after.at(p) == before.at(p)) continue;
            ++drawn;
            if (!inBands(from, p) && !inBands(to, p)) ++outside;
        }
    return std::to_string(drawn) + " pixels drawn, " + std::to_string(outside) +
           " of them outside of the bands";
}

}  // namespace

void dragging(const std::string& folder) {
    const std::string file = folder + "\\large.bmp";
    platform::files::replace(file, support::trueColourBitmap(picture, support::distinctColour));
    Window window(file);
    const auto times = repeated(moves, [&] { window.moveMouse(); });
    report("one mouse move of a drag, 4000 x 3000 picture, 50 regions", times, pixelsDrawn(window));
}

}  // namespace measure
