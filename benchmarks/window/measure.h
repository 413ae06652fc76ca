#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <vector>

/// Times of actions in milliseconds, and lines of JSON about them.
namespace measure {

class Stopwatch {
  public:
    double milliseconds() const {
        return std::chrono::duration<double, std::milli>(Clock::now() - begin_).count();
    }

  private:
    using Clock = std::chrono::steady_clock;
    Clock::time_point begin_ = Clock::now();
};

double milliseconds(const std::function<void()>& action);
std::vector<double> repeated(int count, const std::function<void()>& action);
double percentile(std::vector<double> values, double share);

/// What a value is held against: what cannot be saved, measured in the same run.
struct Floor {
    std::string name;
    double median = 0;
};

/// Where we want to be; 0 where there is no target.
struct Target {
    double median = 0;
    double p95 = 0;
};

struct Row {
    std::string name;
    std::vector<double> values;
    Target target{};
    Floor floor{};
    std::string note{};
    std::string unit = "ms";
};

/// Prints one line; as something that others can be held against.
Floor report(const Row& row);
Floor report(const char* name, const std::vector<double>& times, const std::string& note = {});

/// One step of a drag of a region over a large picture. Uses the folder for the picture.
void dragging(const std::string& folder);

/// Cutting regions out of pictures with the kernel that is built in. The folder holds the photos,
/// `photos\0.jpg` to `photos\19.jpg`, and takes the bitmaps.
void cutting(const std::string& folder);

/// Sets of 100,000 samples: opened, edited, saved, and made of a folder (`pictures`).
void largeSets(const std::string& folder);
/// Memory of the process with a set of so many samples open, for `memoryGrowth`, in a process of its own.
void holdSet(const std::string& folder, int samples);
void memoryGrowth(const std::string& folder);

/// From the start of a process to its window, and to a picture in it.
void starting(const std::string& folder);
/// The processes that are started: the editor, and an empty window with the same controls.
void startEditor(const std::string& folder, const std::string& setFile);
void startEmpty(const std::string& folder);

/// The whole labelling step, for every kind of picture in a process of its own.
void labelling(const std::string& folder);
void labelKind(const std::string& folder, const std::string& kind);

}  // namespace measure
