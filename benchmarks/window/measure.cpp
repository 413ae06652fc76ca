#include "benchmarks/window/measure.h"

#include <algorithm>
#include <chrono>
#include <cstdio>

namespace measure {

using Clock = std::chrono::steady_clock;

double milliseconds(const std::function<void()>& action) {
    const auto begin = Clock::now();
    action();
    return std::chrono::duration<double, std::milli>(Clock::now() - begin).count();
}

std::vector<double> repeated(int count, const std::function<void()>& action) {
    std::vector<double> times;
    for (int i = 0; i < count; ++i) times.push_back(milliseconds(action));
    return times;
}

double percentile(std::vector<double> times, double share) {
    std::sort(times.begin(), times.end());
    return times[static_cast<std::size_t>(share * static_cast<double>(times.size() - 1) + 0.5)];
}

double report(const char* name, const std::vector<double>& times, const std::string& note) {
    const double median = percentile(times, 0.5);
    std::printf("{\"name\": \"%s\", \"median_ms\": %.3f, \"p95_ms\": %.3f, \"note\": \"%s\"}\n", name, median,
                percentile(times, 0.95), note.c_str());
    std::fflush(stdout);
    return median;
}

}  // namespace measure
