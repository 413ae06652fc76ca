// The editor in its real window: what starting, opening, labelling, editing and saving cost.
//
// Takes a folder with others in it: `pictures` and `pictures2` (100,000 files p000001.bmp, ... each, the
// first a bitmap), `one` (only that bitmap), `photos` and `labelling` (see measure.h and
// labelling_bench.cpp); writes its sets beside them, and prints one line of JSON for each measurement.
#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include "benchmarks/window/editor.h"
#include "benchmarks/window/measure.h"
#include "platform/files.h"
#include "platform/registry.h"
#include "tests/support/initialise.h"
#include "tests/support/user.h"

namespace {

using measure::repeated;
using measure::report;

/// What is done all day, in a set of that size.
struct Day {
    std::vector<double> clicks;     // on a class button
    std::vector<double> switching;  // to another region by the chooser
};

Day measureDay(const std::string& folder, int samples) {
    const std::string file = measure::writeSet(folder, {.samples = samples, .onePicture = true});
    measure::Editor editor(folder);
    editor::frmStich& window = editor.window;
    window.LoadFile(file);
    window.GoToItem(samples / 2);
    user::pump();
    auto& button = user::find<platform::Button>(window.form, "Command1(3)");
    Day day;
    day.clicks = repeated(200, [&] {
        user::press(button);
        window.form.update();
    });
    int region = 0;
    day.switching = repeated(100, [&] {
        region = (region + 1) % window.cboROI.count();
        user::choose(window.cboROI, region);
        window.form.update();
    });
    return day;
}

void measureDays(const std::string& folder) {
    const Day few = measureDay(folder, 1000);
    const Day many = measureDay(folder, 100000);
    const measure::Floor click = report("class click, 1000 items", few.clicks);
    report({.name = "class click, 100000 items", .values = many.clicks, .floor = click});
    const measure::Floor choice = report("another region chosen, 1000 items", few.switching);
    report({.name = "another region chosen, 100000 items", .values = many.switching, .floor = choice});
}

/// A part alone; those with an argument are what others start as processes of their own.
void runPart(const std::string& folder, const std::string& part, const std::string& argument) {
    const bool one = !argument.empty();
    if (part == "start") measure::starting(folder);
    if (part == "labelling") one ? measure::labelKind(folder, argument) : measure::labelling(folder);
    if (part == "days") measureDays(folder);
    if (part == "large") measure::largeSets(folder);
    if (part == "memory") one ? measure::holdSet(folder, std::stoi(argument)) : measure::memoryGrowth(folder);
    if (part == "drag") measure::dragging(folder);
    if (part == "cut") measure::cutting(folder);
    if (part == "empty") measure::startEmpty(folder);
    if (part == "editor") measure::startEditor(folder, argument);
}

void runAll(const std::string& folder) {
    platform::Registry(measure::settingsRoot).removeAll();
    for (const char* part : {"start", "labelling", "days", "large", "memory", "drag", "cut"})
        runPart(folder, part, "");
    platform::Registry(measure::settingsRoot).removeAll();
}

}  // namespace

int main(int count, char** arguments) {
    if (count < 2) {
        std::fprintf(stderr, "usage: window_bench FOLDER [PART [ARGUMENT]]\n");
        return 2;
    }
    support::initialise();
    const std::string folder = platform::files::fullPath(arguments[1]);
    try {
        if (count > 2)
            runPart(folder, arguments[2], count > 3 ? arguments[3] : "");
        else
            runAll(folder);
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "window_bench: %s\n", failure.what());
        return 1;
    }
    return 0;
}
