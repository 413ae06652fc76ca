// The editor in its real window: what opening, labelling and saving cost with large sets.
//
// Takes a folder with others in it, `pictures` (at least as many as the largest set needs, named by
// picture()), `source` (those that are made a set of) and `photos` (see measure.h), writes its sets beside
// them, and prints one line of JSON for each measurement.
#include <algorithm>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

#include "benchmarks/window/measure.h"
#include "editor/frmStich.h"
#include "editor/set_io.h"
#include "platform/application.h"
#include "platform/win32/wide.h"
#include "platform/win32/windows.h"
#include "shell/mStichMain.h"
#include "tests/support/initialise.h"
#include "tests/support/user.h"

#include <psapi.h>

namespace {

constexpr int small = 1000;
constexpr int large = 100000;
constexpr int classes = 10;
constexpr int regions = 10;
constexpr const char* root = "Software\\Veltor2 Benchmark";

using measure::milliseconds;
using measure::percentile;
using measure::repeated;
using measure::report;

std::string ratio(double value, double floor) {
    char text[64];
    std::snprintf(text, sizeof text, "%.2f times", value / floor);
    return text;
}

std::size_t workingSet() {
    PROCESS_MEMORY_COUNTERS counters{};
    ::GetProcessMemoryInfo(::GetCurrentProcess(), &counters, sizeof counters);
    return counters.WorkingSetSize;
}

std::string picture(int number) {
    char name[32];
    std::snprintf(name, sizeof name, "p%06d.bmp", number);
    return name;
}

/// A set of so many samples; with one picture only, showing the next item decodes nothing.
std::string writeSetOf(const std::string& folder, int samples, bool onePicture) {
    editor::OpenSet set;
    std::vector<editor::RegionRect> rectangles;
    for (int i = 1; i <= classes; ++i) set.addClass("Klasse" + std::to_string(i));
    for (int i = 1; i < regions; ++i) {
        set.addRegion("Bereich" + std::to_string(i));
        rectangles.push_back({0, 0, 1, 1});
    }
    set.setDoubleSelection(onePicture);
    for (int i = 1; i <= samples; ++i) {
        set.addSample(folder + "\\pictures", picture(onePicture ? 1 : i));
        for (int region = 0; region < regions; ++region) {
            set.assign(i, region, static_cast<std::int16_t>((i + region) % classes));
        }
    }
    const std::string file =
        folder + "\\TestSets\\" + (onePicture ? "click" : "open") + std::to_string(samples) + ".kvs";
    platform::files::createDirectories(folder + "\\TestSets");
    editor::writeSet(file, folder, set, rectangles);
    return file;
}

class Editor {
  public:
    explicit Editor(const std::string& folder) : environment{folder, root}, window(environment) {
        platform::files::createDirectories(folder + "\\Picture");
        shell::start(window, environment, "");
        user::pump();
    }
    ~Editor() { window.btnAbbr.onClick(); }

    shell::Environment environment;
    editor::frmStich window;
};

/// What is done all day, in a set of that size.
struct Day {
    std::vector<double> clicks;     // on a class button
    std::vector<double> switching;  // to another region by the chooser
};

Day measureDay(const std::string& folder, int samples) {
    const std::string file = writeSetOf(folder, samples, true);
    Editor editor(folder);
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
        region = (region + 1) % regions;
        user::choose(window.cboROI, region);
        window.form.update();
    });
    return day;
}

void measureOpening(const std::string& folder) {
    for (const int samples : {large / 10, large}) {
        const std::string file = writeSetOf(folder, samples, false);
        const std::string suffix = std::to_string(samples);
        const double floor = report(("read the bytes of a set file, " + suffix + " samples").c_str(),
                                    repeated(9, [&] { platform::files::read(file); }));
        report(("read a set file into tables, " + suffix + " samples").c_str(),
               repeated(9, [&] { editor::readSet(file, folder); }));
        const editor::OpenSet set = editor::readSet(file, folder).set;
        report(("ask which pictures exist, " + suffix + " samples").c_str(), repeated(5, [&] {
                   platform::BackgroundTask::Progress progress;
                   editor::missingSamples(set, platform::files::foldedFileNames, progress);
               }));
        Editor editor(folder);
        const std::size_t before = workingSet();
        std::vector<double> times{milliseconds([&] { editor.window.LoadFile(file); })};
        const auto megabytes = static_cast<double>(workingSet() - before) / 1048576;
        for (int i = 0; i < 6; ++i) times.push_back(milliseconds([&] { editor.window.LoadFile(file); }));
        char note[96];
        std::snprintf(note, sizeof note, "%.1f MB more; %.1f times the bytes read", megabytes,
                      percentile(times, 0.5) / floor);
        report(("LoadFile in the window, " + suffix + " samples").c_str(), times, note);
        report(("write a set file from tables, " + suffix + " samples").c_str(), repeated(5, [&] {
                   std::vector<editor::RegionRect> rectangles(regions - 1);
                   editor::writeSet(folder + "\\TestSets\\written.kvs", folder, editor.window.set(),
                                    rectangles);
               }));
    }
}

/// A folder becomes a set, all at once, and is taken out again.
void measureMaking(const std::string& folder) {
    Editor editor(folder);
    editor::frmStich& window = editor.window;
    const auto timed = [&](platform::Button& button) {
        return milliseconds([&] {
            user::press(button);
            window.form.update();
        });
    };
    std::vector<double> browse, add, addAgain, remove;
    for (int i = 0; i < 9; ++i) {
        browse.push_back(milliseconds([&] {
            window.browse(folder + "\\source");
            window.form.update();
        }));
        add.push_back(timed(window.btn_A));
        addAgain.push_back(timed(window.btn_A));
        window.ListView2.selectAll();
        remove.push_back(timed(window.btnR));
    }
    const std::string files = std::to_string(window.ListView1.count()) + " files";
    report(("browse a folder, " + files).c_str(), browse);
    report(("add all of a folder, " + files).c_str(), add);
    report(("add all of a folder again, " + files).c_str(), addAgain);
    report(("remove all selected samples, " + files).c_str(), remove,
           window.set().sampleCount() == 0 ? "" : "NOT REMOVED");
}

}  // namespace

int main(int count, char** arguments) {
    if (count < 2) {
        std::fprintf(stderr, "usage: window_bench FOLDER\n");
        return 2;
    }
    support::initialise();
    const std::string folder = platform::files::fullPath(arguments[1]);
    platform::Registry(root).removeAll();

    report("start to the window on the screen", repeated(5, [&] { Editor editor(folder); }));
    const Day few = measureDay(folder, small);
    const Day many = measureDay(folder, large);
    const double click = report("class click, 1000 items", few.clicks);
    report("class click, 100000 items", many.clicks,
           ratio(percentile(many.clicks, 0.5), click) + " the click at 1000");
    const double choice = report("another region chosen, 1000 items", few.switching);
    report("another region chosen, 100000 items", many.switching,
           ratio(percentile(many.switching, 0.5), choice) + " the same at 1000");
    measureMaking(folder);
    measureOpening(folder);
    measure::dragging(folder);
    measure::cutting(folder);
    platform::Registry(root).removeAll();
    return 0;
}
