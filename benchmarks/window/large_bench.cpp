// Sets as large as they get: opened, edited, saved, and made of a folder.
#include <algorithm>
#include <cstdio>
#include <stdexcept>

#include "benchmarks/window/editor.h"
#include "benchmarks/window/measure.h"
#include "benchmarks/window/process.h"
#include "editor/set_io.h"
#include "platform/files.h"
#include "tests/support/user.h"

namespace measure {

namespace files = platform::files;

namespace {

constexpr int large = 100000;

void expect(bool done, const char* what) {
    if (!done) throw std::runtime_error(what);
}

/// What an edit costs until the screen shows it.
std::vector<double> edits(Editor& editor, int count, const std::function<void()>& prepare,
                          const std::function<void()>& edit) {
    std::vector<double> times;
    for (int i = 0; i < count; ++i) {
        prepare();
        user::pump();
        times.push_back(milliseconds([&] {
            edit();
            editor.window.form.update();
        }));
    }
    return times;
}

/// Each of them in a set of 100,000 samples, 20 classes and 20 regions. What is memory only is held against
/// one pass over all classes that the samples have, what is a file against its bytes.
void measureEdits(const std::string& folder) {
    constexpr Target target{.median = 100};
    const std::string of = ", 100000 samples x 20 classes x 20 regions";
    const std::string file =
        writeSet(folder, {.samples = large, .classes = 20, .regions = 20, .onePicture = true});
    const std::string bytes = files::read(file);
    const Floor reading = report({.name = "floor: read the set file's bytes, 20 regions",
                                  .values = repeated(5, [&] { files::read(file); })});
    const Floor writing =
        report({.name = "floor: write the set file's bytes, flushed, 20 regions",
                .values = repeated(5, [&] { files::replace(folder + "\\TestSets\\floor.kvs", bytes); })});
    std::vector<std::int16_t> from(large * 20, 1), to(large * 20);
    const Floor pass =
        report({.name = "floor: copy all assignments in memory",
                .values = repeated(9, [&] { std::copy(from.begin(), from.end(), to.begin()); })});

    Editor editor(folder);
    editor::frmStich& window = editor.window;
    const auto nothing = [] {};
    report({.name = "open" + of,
            .values = edits(editor, 5, nothing, [&] { window.LoadFile(file); }),
            .target = {.median = 300},
            .floor = reading});
    expect(window.set().regionCount() == 19, "the set was not opened");
    window.GoToItem(large / 2);
    auto& button = user::find<platform::Button>(window.form, "Command1(3)");
    report({.name = "label" + of,
            .values = edits(editor, 100, nothing, [&] { user::press(button); }),
            .target = target,
            .floor = pass});
    user::selectTab(window.TabStrip1, 3);
    report({.name = "add a region" + of,
            .values = edits(editor, 5, nothing, [&] { window.btnROINew_Click(); }),
            .target = target,
            .floor = pass});
    report({.name = "delete a region" + of,
            .values = edits(
                editor, 5, [&] { window.lvROIs.selectOnly(window.set().regionCount()); },
                [&] { window.btnROIDel_Click(); }),
            .target = target,
            .floor = pass});
    user::selectTab(window.TabStrip1, 2);
    report({.name = "change the standard class for all" + of,
            .values = edits(
                editor, 9, [&, row = 0]() mutable { window.lvCClasses.selectOnly(++row); },
                [&] { window.SetStdClass(true); }),
            .target = target,
            .floor = pass});
    report({.name = "delete a class" + of,
            .values = edits(
                editor, 5, [&] { window.lvCClasses.selectOnly(2); }, [&] { window.btnCDel_Click(); }),
            .target = target,
            .floor = pass});
    expect(window.set().classCount() == 15 && window.set().regionCount() == 19, "an edit did nothing");
    report({.name = "save" + of,
            .values = edits(
                editor, 5, [&] { files::remove(folder + "\\TestSets\\saved.kvs"); },
                [&] { expect(window.SaveSetAs("saved"), "not saved"); }),
            .target = target,
            .floor = writing});
}

/// Opens a set and notes when its first picture is on the screen, which is before the files of all samples
/// were looked for.
struct Opening {
    std::vector<double> picture, whole;
};

Opening openings(Editor& editor, const std::string& other, const std::string& file, int count) {
    Opening result;
    editor::frmStich& window = editor.window;
    const auto loaded = window.kvPictureBox1.LoadPicture;
    for (int i = 0; i < count; ++i) {
        window.LoadFile(other);
        double shown = 0;
        const Stopwatch clock;
        window.kvPictureBox1.LoadPicture = [&](auto& width, auto& height, auto& planes, auto& depth) {
            loaded(width, height, planes, depth);
            window.kvPictureBox1.update();
            if (shown == 0) shown = clock.milliseconds();
        };
        window.LoadFile(file);
        window.form.update();
        result.whole.push_back(clock.milliseconds());
        result.picture.push_back(shown);
        window.kvPictureBox1.LoadPicture = loaded;
    }
    return result;
}

void measureOpening(const std::string& folder) {
    const std::string other = writeSet(folder, {.samples = 3, .regions = 1, .onePicture = true});
    const std::string file = writeSet(folder, {.samples = large, .regions = 1});
    const Floor reading = report({.name = "floor: read the set file's bytes, 1 region",
                                  .values = repeated(9, [&] { files::read(file); })});
    const Floor listing = report({.name = "floor: list a folder of 100000 files",
                                  .values = repeated(5, [&] { files::list(folder + "\\pictures"); })});
    report({.name = "read a set file into tables, 100000 samples",
            .values = repeated(9, [&] { editor::readSet(file, folder); }),
            .floor = reading});
    const editor::PictureFiles pictures(editor::readSet(file, folder).set);
    report({.name = "ask which pictures exist, 100000 samples",
            .values = repeated(5,
                               [&] {
                                   platform::BackgroundTask::Progress progress;
                                   expect(pictures.missing(files::foldedFileNames, progress).empty(),
                                          "missing?");
                               }),
            .floor = listing});
    Editor editor(folder);
    const Opening opening = openings(editor, other, file, 7);
    report({.name = "open 100000 samples: until the first picture is on the screen",
            .values = opening.picture,
            .target = {.median = 300},
            .floor = reading});
    report({.name = "open 100000 samples: until all files were looked for",
            .values = opening.whole,
            .floor = listing});
}

/// A folder of 100,000 pictures becomes a set, all at once, and is taken out again.
void measureMaking(const std::string& folder) {
    const std::string source = folder + "\\pictures";
    const Floor listing = report({.name = "floor: list a folder of 100000 files, again",
                                  .values = repeated(5, [&] { files::list(source); })});
    Editor editor(folder);
    editor::frmStich& window = editor.window;
    user::selectTab(window.TabStrip1, 1);
    const auto timed = [&](platform::Button& button) {
        return milliseconds([&] {
            user::press(button);
            window.form.update();
        });
    };
    std::vector<double> browse, add, both, again, remove;
    for (int i = 0; i < 5; ++i) {
        browse.push_back(milliseconds([&] {
            window.browse(source);
            window.form.update();
        }));
        add.push_back(timed(window.btn_A));
        expect(window.set().sampleCount() == large, "not added");
        both.push_back(browse.back() + add.back());
        again.push_back(timed(window.btn_A));
        window.ListView2.selectAll();
        remove.push_back(timed(window.btnR));
        expect(window.set().sampleCount() == 0, "not removed");
        window.browse(folder + "\\one");
    }
    report({.name = "browse a folder of 100000 files", .values = browse, .floor = listing});
    report({.name = "add all of its files, until the first picture is on the screen",
            .values = add,
            .target = {.median = 300}});
    report({.name = "browse and add a folder of 100000 files",
            .values = both,
            .target = {.median = 800},
            .floor = listing});
    report({.name = "add all of its files again, none twice", .values = again});
    report({.name = "remove all 100000 samples, all selected", .values = remove});
}

std::string memoryFile(const std::string& folder) {
    return folder + "\\memory.txt";
}

}  // namespace

void largeSets(const std::string& folder) {
    measureOpening(folder);
    measureEdits(folder);
    measureMaking(folder);
}

void holdSet(const std::string& folder, int samples) {
    Editor editor(folder);
    editor.window.LoadFile(folder + "\\TestSets\\open" + std::to_string(samples) + "x1.kvs");
    user::pump();
    expect(editor.window.set().sampleCount() == samples, "the set was not opened");
    char text[64];
    std::snprintf(text, sizeof text, "%f %f", memoryNow(), memoryPeak());
    files::replace(memoryFile(folder), text);
}

void memoryGrowth(const std::string& folder) {
    std::vector<double> growth, peakGrowth;
    for (const int samples : {large, 2 * large}) writeSet(folder, {.samples = samples, .regions = 1});
    for (int i = 0; i < 3; ++i) {
        double now[2], peak[2];
        for (const int step : {0, 1}) {
            Child({folder, "memory", std::to_string((step + 1) * large)}).wait();
            expect(
                std::sscanf(files::read(memoryFile(folder)).c_str(), "%lf %lf", &now[step], &peak[step]) == 2,
                "no memory told");
        }
        growth.push_back(now[1] - now[0]);
        peakGrowth.push_back(peak[1] - peak[0]);
    }
    report({.name = "memory for another 100000 samples of one region",
            .values = growth,
            .target = {.median = 25},
            .unit = "MB"});
    report({.name = "peak memory for another 100000 samples of one region, while they are opened",
            .values = peakGrowth,
            .unit = "MB"});
}

}  // namespace measure
