#include "editor/icons.h"

#include "editor/drawing.h"

namespace editor {

namespace {

using platform::IconImage;

constexpr std::uint32_t ink = 0x3A4A5A;
constexpr std::uint32_t blue = 0x2F6DB5;
constexpr std::uint32_t green = 0x2E8B57;
constexpr std::uint32_t red = 0xC0392B;
constexpr std::uint32_t folder = 0xE0A93B;
constexpr std::uint32_t folderFront = 0xF3C969;
constexpr std::uint32_t paper = 0xFFFFFF;
constexpr std::uint32_t sky = 0xBFE0F5;
constexpr std::uint32_t hill = 0x5BA05B;
constexpr std::uint32_t sun = 0xF2B632;

Drawing& triangle(Drawing& drawing, double tip, double base, std::uint32_t colour) {
    return drawing.polygon({{base, 2.5}, {base, 13.5}, {tip, 8}}, colour);
}

IconImage first(int size) {
    Drawing drawing(size);
    drawing.box(2, 2.5, 4, 13.5, blue);
    return triangle(drawing, 4.5, 13, blue).image();
}

IconImage previous(int size) {
    Drawing drawing(size);
    return triangle(drawing, 3.5, 12, blue).image();
}

IconImage next(int size) {
    Drawing drawing(size);
    return triangle(drawing, 12.5, 4, blue).image();
}

IconImage last(int size) {
    Drawing drawing(size);
    drawing.box(12, 2.5, 14, 13.5, blue);
    return triangle(drawing, 11.5, 3, blue).image();
}

IconImage loop(int size) {
    return Drawing(size)
        .arc(8, 8, 5.3, 2, 20, 310, green)
        .polygon({{15.6, 8.6}, {9.6, 8.6}, {12.6, 3.8}}, green)
        .image();
}

IconImage stop(int size) {
    return Drawing(size).box(3, 3, 13, 13, red).image();
}

IconImage openFolder(int size) {
    return Drawing(size)
        .polygon({{1, 3}, {6, 3}, {7.5, 4.5}, {14, 4.5}, {14, 13}, {1, 13}}, folder)
        .polygon({{3.4, 7}, {16, 7}, {13.6, 13.5}, {1, 13.5}}, folderFront)
        .image();
}

/// A floppy disk, small enough to leave place for what is saved.
Drawing disk(int size) {
    Drawing drawing(size);
    drawing.polygon({{1, 1}, {12, 1}, {14, 3}, {14, 14}, {1, 14}}, ink)
        .box(4, 1, 10.5, 5, paper)
        .box(7.8, 1.6, 9.5, 4.4, ink)
        .box(3, 7.5, 12, 14, paper);
    return drawing;
}

IconImage saveRegion(int size) {
    return disk(size).box(5, 9, 10, 12.5, blue).image();
}

IconImage saveRegions(int size) {
    return disk(size)
        .box(4, 8.5, 7, 10.5, blue)
        .box(8, 8.5, 11, 10.5, blue)
        .box(4, 11.5, 7, 13.3, blue)
        .box(8, 11.5, 11, 13.3, blue)
        .image();
}

IconImage saveEverything(int size) {
    return disk(size)
        .box(4, 8.5, 11, 9.8, blue)
        .box(4, 10.5, 11, 11.8, green)
        .box(4, 12.3, 11, 13.6, red)
        .image();
}

IconImage picture(int size, std::uint32_t frame) {
    return Drawing(size)
        .box(1, 2, 15, 14, frame)
        .box(2.2, 3.2, 13.8, 12.8, sky)
        .disc(11, 5.8, 1.6, sun)
        .polygon({{2.2, 12.8}, {6.2, 6.8}, {10, 12.8}}, hill)
        .polygon({{7.5, 12.8}, {10.5, 8.8}, {13.8, 12.8}}, green)
        .image();
}

}  // namespace

std::vector<IconImage> pictureIcons(int size) {
    return {picture(size, ink), picture(size, 0xA05A2C)};
}

std::vector<platform::Toolbar::Image> toolbarImages(int size) {
    return {{"btnFR", first(size)},
            {"btnR", previous(size)},
            {"btnF", next(size)},
            {"btnFF", last(size)},
            {"btnLoop", loop(size)},
            {"btnStop", stop(size)},
            {"btnPath", openFolder(size)},
            {"btnSave", saveRegion(size)},
            {"btnSaveROI", saveRegion(size)},
            {"btnSaveAllROI", saveRegions(size)},
            {"btnSaveAllROI2", saveEverything(size)}};
}

}  // namespace editor
