#include <benchmark/benchmark.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "editor/frmStich.h"
#include "editor/set_io.h"
#include "platform/files.h"
#include "shell/mStichMain.h"

/// Deleting a class of 10 in a set of 10 regions; the argument is the number of samples.
namespace {

constexpr int classes = 10;
constexpr int regions = 10;
constexpr int deleted = 5;  // row of the list

/// All samples are one picture, which exists.
editor::OpenSet makeSet(int samples, const std::string& folder, const std::string& picture) {
    editor::OpenSet set;
    for (int i = 1; i <= classes; ++i) set.addClass("Klasse" + std::to_string(i));
    for (int i = 1; i < regions; ++i) set.addRegion("Bereich" + std::to_string(i));
    set.setDoubleSelection(true);
    for (int row = 1; row <= samples; ++row) {
        set.addSample(folder, picture);
        for (int region = 0; region < regions; ++region)
            set.assign(row, region, static_cast<std::int16_t>((row + region) % classes));
    }
    return set;
}

/// The floor: no deletion can do with less than one pass over what the samples have.
void CopyAssignments(benchmark::State& state) {
    const std::vector<std::int16_t> from(static_cast<std::size_t>(state.range(0) * regions), 1);
    std::vector<std::int16_t> to(from.size());
    for (auto _ : state) {
        std::copy(from.begin(), from.end(), to.begin());
        benchmark::DoNotOptimize(to.data());
        benchmark::ClobberMemory();
    }
}

void DeleteClassInTable(benchmark::State& state) {
    const editor::OpenSet full = makeSet(static_cast<int>(state.range(0)), "Z:\\", "p.bmp");
    for (auto _ : state) {
        state.PauseTiming();
        editor::OpenSet set = full;
        state.ResumeTiming();
        set.removeClass(deleted, 0);
        if (set.classCount() != classes - 1) state.SkipWithError("not deleted");
    }
}

/// With all that the window does besides: its lists, the buttons, the chooser.
void DeleteClassInWindow(benchmark::State& state) {
    const std::filesystem::path place = std::filesystem::temp_directory_path() / "classes_bench";
    const std::string folder = platform::files::fullPath(place.string());
    const std::string file = folder + "\\TestSets\\set.kvs";
    platform::files::createDirectories(folder + "\\TestSets");
    platform::files::replace(folder + "\\p.bmp", "");
    editor::writeSet(file, folder, makeSet(static_cast<int>(state.range(0)), folder, "p.bmp"),
                     std::vector<editor::RegionRect>(regions - 1));
    const shell::Environment environment{folder, "Software\\Veltor2 Benchmark"};
    {
        editor::frmStich window(environment);
        shell::start(window, environment, file);
        for (auto _ : state) {
            state.PauseTiming();
            window.LoadFile(file);
            window.lvCClasses.selectOnly(deleted);
            state.ResumeTiming();
            window.btnCDel_Click();
            const bool done =
                window.set().classCount() == classes - 1 && window.set().sampleCount() == state.range(0);
            if (!done) state.SkipWithError("not deleted");
        }
        window.btnAbbr.onClick();
    }
    std::filesystem::remove_all(place);
}

BENCHMARK(CopyAssignments)->Arg(100000)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(DeleteClassInTable)->Arg(100000)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(20);
BENCHMARK(DeleteClassInWindow)->Arg(100000)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(5);

}  // namespace
