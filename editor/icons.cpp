#include "editor/icons.h"

#include "editor/drawing.h"

namespace editor {

namespace {

using platform::IconImage;

/// Colours that stand out from what the icons are drawn on.
struct Inks {
    std::uint32_t ink, paper, blue, green, red, jpegFrame;
};
constexpr Inks onLight{0x3A4A5A, 0xFFFFFF, 0x2F6DB5, 0x2E8B57, 0xC0392B, 0xA05A2C};
constexpr Inks onDark{0xB4C2D0, 0x1F2932, 0x6FAAF0, 0x57C78A, 0xF0786A, 0xD98A52};

const Inks& inksFor(platform::Colour ground) {
    const auto channel = [ground](int shift) { return static_cast<int>(ground >> shift & 0xFF); };
    const int brightness = (3 * channel(16) + 6 * channel(8) + channel(0)) / 10;
    return brightness < 128 ? onDark : onLight;
}

constexpr std::uint32_t folder = 0xE0A93B;
constexpr std::uint32_t folderFront = 0xF3C969;
constexpr std::uint32_t sky = 0xBFE0F5;
constexpr std::uint32_t hill = 0x5BA05B;
constexpr std::uint32_t sun = 0xF2B632;

Drawing& triangle(Drawing& drawing, double tip, double base, std::uint32_t colour) {
    return drawing.polygon({{base, 2.5}, {base, 13.5}, {tip, 8}}, colour);
}

IconImage first(int size, const Inks& inks) {
    Drawing drawing(size);
    drawing.box(2, 2.5, 4, 13.5, inks.blue);
    return triangle(drawing, 4.5, 13, inks.blue).image();
}

IconImage previous(int size, const Inks& inks) {
    Drawing drawing(size);
    return triangle(drawing, 3.5, 12, inks.blue).image();
}

IconImage next(int size, const Inks& inks) {
    Drawing drawing(size);
    return triangle(drawing, 12.5, 4, inks.blue).image();
}

IconImage last(int size, const Inks& inks) {
    Drawing drawing(size);
    drawing.box(12, 2.5, 14, 13.5, inks.blue);
    return triangle(drawing, 11.5, 3, inks.blue).image();
}

IconImage loop(int size, const Inks& inks) {
    return Drawing(size)
        .arc(8, 8, 5.3, 2, 20, 310, inks.green)
        .polygon({{15.6, 8.6}, {9.6, 8.6}, {12.6, 3.8}}, inks.green)
        .image();
}

IconImage stop(int size, const Inks& inks) {
    return Drawing(size).box(3, 3, 13, 13, inks.red).image();
}

IconImage openFolder(int size) {
    return Drawing(size)
        .polygon({{1, 3}, {6, 3}, {7.5, 4.5}, {14, 4.5}, {14, 13}, {1, 13}}, folder)
        .polygon({{3.4, 7}, {16, 7}, {13.6, 13.5}, {1, 13.5}}, folderFront)
        .image();
}

/// A floppy disk, small enough to leave place for what is saved.
Drawing disk(int size, const Inks& inks) {
    Drawing drawing(size);
    drawing.polygon({{1, 1}, {12, 1}, {14, 3}, {14, 14}, {1, 14}}, inks.ink)
        .box(4, 1, 10.5, 5, inks.paper)
        .box(7.8, 1.6, 9.5, 4.4, inks.ink)
        .box(3, 7.5, 12, 14, inks.paper);
    return drawing;
}

IconImage saveRegion(int size, const Inks& inks) {
    return disk(size, inks).box(5, 9, 10, 12.5, inks.blue).image();
}

IconImage saveRegions(int size, const Inks& inks) {
    return disk(size, inks)
        .box(4, 8.5, 7, 10.5, inks.blue)
        .box(8, 8.5, 11, 10.5, inks.blue)
        .box(4, 11.5, 7, 13.3, inks.blue)
        .box(8, 11.5, 11, 13.3, inks.blue)
        .image();
}

IconImage saveEverything(int size, const Inks& inks) {
    return disk(size, inks)
        .box(4, 8.5, 11, 9.8, inks.blue)
        .box(4, 10.5, 11, 11.8, inks.green)
        .box(4, 12.3, 11, 13.6, inks.red)
        .image();
}

IconImage picture(int size, std::uint32_t frame) {
    return Drawing(size)
        .box(1, 2, 15, 14, frame)
        .box(2.2, 3.2, 13.8, 12.8, sky)
        .disc(11, 5.8, 1.6, sun)
        .polygon({{2.2, 12.8}, {6.2, 6.8}, {10, 12.8}}, hill)
        .polygon({{7.5, 12.8}, {10.5, 8.8}, {13.8, 12.8}}, onLight.green)
        .image();
}

}  // namespace

std::vector<IconImage> pictureIcons(int size, platform::Colour ground) {
    const Inks& inks = inksFor(ground);
    return {picture(size, inks.ink), picture(size, inks.jpegFrame)};
}

std::vector<platform::Toolbar::Image> toolbarImages(int size, platform::Colour ground) {
    const Inks& inks = inksFor(ground);
    return {{"btnFR", first(size, inks)},
            {"btnR", previous(size, inks)},
            {"btnF", next(size, inks)},
            {"btnFF", last(size, inks)},
            {"btnLoop", loop(size, inks)},
            {"btnStop", stop(size, inks)},
            {"btnPath", openFolder(size)},
            {"btnSave", saveRegion(size, inks)},
            {"btnSaveROI", saveRegion(size, inks)},
            {"btnSaveAllROI", saveRegions(size, inks)},
            {"btnSaveAllROI2", saveEverything(size, inks)}};
}

}  // namespace editor
