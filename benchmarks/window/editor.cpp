#include "benchmarks/window/editor.h"

#include <cstdio>

#include "editor/set_io.h"
#include "platform/files.h"
#include "platform/path.h"
#include "tests/support/user.h"

namespace measure {

namespace path = platform::path;

namespace {

constexpr int picturesInAFolder = 100000;

std::string picture(int number) {
    char name[32];
    std::snprintf(name, sizeof name, "p%06d.bmp", number);
    return name;
}

std::string store(const std::string& folder, const std::string& name, const editor::OpenSet& set) {
    const std::string file = folder + "\\TestSets\\" + name + ".kvs";
    platform::files::createDirectories(folder + "\\TestSets");
    const std::vector<editor::RegionRect> rectangles(static_cast<std::size_t>(set.regionCount()),
                                                     {0, 0, 1, 1});
    editor::writeSet(file, folder, set, rectangles);
    return file;
}

}  // namespace

Editor::Editor(const std::string& folder) : environment{folder, settingsRoot}, window(environment) {
    platform::files::createDirectories(folder + "\\Picture");
    shell::start(window, environment, "");
    user::pump();
}

Editor::~Editor() {
    window.btnAbbr.onClick();
}

std::string writeSet(const std::string& folder, const SetShape& shape) {
    editor::OpenSet set;
    for (int i = 1; i <= shape.classes; ++i) set.addClass("Klasse" + std::to_string(i));
    for (int i = 1; i < shape.regions; ++i) set.addRegion("Bereich" + std::to_string(i));
    set.setDoubleSelection(shape.onePicture);
    for (int i = 1; i <= shape.samples; ++i) {
        const int place = i - 1;
        const bool first = shape.onePicture || place < picturesInAFolder;
        set.addSample(folder + (shape.onePicture ? "\\one"
                                : first          ? "\\pictures"
                                                 : "\\pictures2"),
                      picture(shape.onePicture ? 1 : place % picturesInAFolder + 1));
        for (int region = 0; region < shape.regions; ++region)
            set.assign(i, region, static_cast<std::int16_t>((i + region) % shape.classes));
    }
    const std::string name = (shape.onePicture ? "click" : "open") + std::to_string(shape.samples) + "x" +
                             std::to_string(shape.regions);
    return store(folder, name, set);
}

std::string writeSet(const std::string& folder, const std::string& name,
                     const std::vector<std::string>& files, int classes) {
    editor::OpenSet set;
    for (int i = 1; i <= classes; ++i) set.addClass("Klasse" + std::to_string(i));
    for (const std::string& file : files) set.addSample(path::directory(file), path::fileName(file));
    return store(folder, name, set);
}

}  // namespace measure
