#include <benchmark/benchmark.h>
#include <malloc.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "model/kvTamSampleSet.h"
#include "model/set_file_names.h"
#include "platform/document.h"
#include "platform/files.h"
#include "platform/path.h"

/// Sets of 10 classes and 10 regions; the argument is the number of samples.
namespace {

using namespace model;
namespace files = platform::files;

constexpr int classCount = 10;
constexpr int regionCount = 10;

std::string padded(int number) {
    const std::string digits = std::to_string(number);
    return std::string(6 - digits.size(), '0') + digits;
}

kvTamSampleSet makeSet(int samples) {
    kvTamSampleSet set;
    set.AppPath(R"(C:\Veltor\Data)");
    for (int i = 1; i <= classCount; ++i) set.kvtamClasses().Add("Fehlerart " + std::to_string(i));
    for (int i = 0; i < regionCount; ++i) {
        kvTamROI& roi = set.kvtamROIs().Add();
        roi.Name = "Bereich " + std::to_string(i);
        roi.X = roi.Y = roi.dX = roi.dY = i * 10;
    }
    for (int i = 0; i < samples; ++i) {
        kvTamSample& sample = set.kvtamSamples().Add(
            R"(C:\Veltor\Data\Picture\Serie )" + std::to_string(i / 1000) + "\\bild" + padded(i) + ".bmp",
            "bild" + padded(i) + ".bmp");
        for (int r = 0; r < regionCount; ++r) sample.ItemClasses.push_back(1 + (i + r) % classCount);
    }
    return set;
}

std::string temporaryFile() {
    return files::fullPath((std::filesystem::temp_directory_path() / "set_file_bench.kvs").string());
}

/// A set file as long as a benchmark needs it.
class StoredSet {
  public:
    explicit StoredSet(int samples) : name(temporaryFile()), set(makeSet(samples)) { set.Save(name); }
    ~StoredSet() { files::remove(name); }
    StoredSet(const StoredSet&) = delete;
    StoredSet& operator=(const StoredSet&) = delete;

    const std::string name;
    kvTamSampleSet set;
};

// Floors: what no reader and no writer of these files can save.
void ReadBytes(benchmark::State& state) {
    const StoredSet stored(static_cast<int>(state.range(0)));
    for (auto _ : state) benchmark::DoNotOptimize(files::read(stored.name).size());
}
void WriteBytes(benchmark::State& state) {
    const StoredSet stored(static_cast<int>(state.range(0)));
    const std::string bytes = files::read(stored.name);
    for (auto _ : state) files::replace(stored.name, bytes);
}

void Save(benchmark::State& state) {
    StoredSet stored(static_cast<int>(state.range(0)));
    for (auto _ : state) stored.set.Save();
    state.counters["MB"] = static_cast<double>(files::read(stored.name).size()) / 1e6;
}

/// Each set is read into fresh memory, as a program that opens one does.
void giveMemoryBack() {
    malloc_trim(0);
}

/// The same after other work. A set that is read right behind one of its size gets that one's memory again,
/// and a small one finds much of it still in the cache: quicker than the set that somebody opens.
void workOnOtherThings() {
    static constexpr std::size_t much = 64'000'000;
    giveMemoryBack();
    std::vector<char> other(much, 1);
    benchmark::DoNotOptimize(other.data());
}

void loadAfter(benchmark::State& state, void (*before)()) {
    const StoredSet stored(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        state.PauseTiming();
        before();
        auto set = std::make_unique<kvTamSampleSet>();
        set->AppPath(stored.set.AppPath());
        state.ResumeTiming();
        if (!set->Load(stored.name)) state.SkipWithError("not loaded");
        state.PauseTiming();  // the set's end is not part of reading it
        set.reset();
        state.ResumeTiming();
    }
}

void Load(benchmark::State& state) {
    loadAfter(state, giveMemoryBack);
}
void LoadAfterOtherWork(benchmark::State& state) {
    loadAfter(state, workOnOtherThings);
}

void ParseOnly(benchmark::State& state) {
    const StoredSet stored(static_cast<int>(state.range(0)));
    for (auto _ : state) benchmark::DoNotOptimize(platform::ProfileDocument::load(stored.name).lineCount());
}

/// The window's way: one entry per call, sample by sample, for its path and its class in every region.
void PeekEntryByEntry(benchmark::State& state) {
    const StoredSet stored(static_cast<int>(state.range(0)));
    platform::ProfileFile file(stored.name);
    std::vector<std::string> regions;
    for (int r = 0; r < regionCount; ++r) regions.push_back(set_file::regionSection(r));
    std::size_t read = file.lineCount();
    for (auto _ : state) {
        for (int n = 1; n <= state.range(0); ++n) {
            const std::string key = std::to_string(n);
            read += file.peek(set_file::itemsSection, key, "").size();
            for (const std::string& region : regions) read += file.peek(region, key, "").size();
        }
    }
    benchmark::DoNotOptimize(read);
}

BENCHMARK(ReadBytes)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(WriteBytes)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(Save)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(Load)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(LoadAfterOtherWork)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(ParseOnly)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(PeekEntryByEntry)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
