#include "benchmarks/window/measure.h"

#include <algorithm>
#include <cstdio>

namespace measure {

double milliseconds(const std::function<void()>& action) {
    const Stopwatch clock;
    action();
    return clock.milliseconds();
}

std::vector<double> repeated(int count, const std::function<void()>& action) {
    std::vector<double> times;
    for (int i = 0; i < count; ++i) times.push_back(milliseconds(action));
    return times;
}

double percentile(std::vector<double> values, double share) {
    std::sort(values.begin(), values.end());
    return values[static_cast<std::size_t>(share * static_cast<double>(values.size() - 1) + 0.5)];
}

Floor report(const Row& row) {
    const double median = percentile(row.values, 0.5);
    std::printf(R"({"name": "%s", "unit": "%s", "median": %.3f, "p95": %.3f)", row.name.c_str(),
                row.unit.c_str(), median, percentile(row.values, 0.95));
    if (row.target.median > 0) std::printf(R"(, "target": %g)", row.target.median);
    if (row.target.p95 > 0) std::printf(R"(, "target_p95": %g)", row.target.p95);
    if (row.floor.median > 0)
        std::printf(R"(, "floor": "%s", "ratio": %.3f)", row.floor.name.c_str(), median / row.floor.median);
    std::printf(R"(, "note": "%s"})"
                "\n",
                row.note.c_str());
    std::fflush(stdout);
    return {row.name, median};
}

Floor report(const char* name, const std::vector<double>& times, const std::string& note) {
    Row row;
    row.name = name;
    row.values = times;
    row.note = note;
    return report(row);
}

}  // namespace measure
