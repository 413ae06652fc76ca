#pragma once

#include <functional>
#include <string>
#include <vector>

/// Times of actions in milliseconds, and lines of JSON about them.
namespace measure {

double milliseconds(const std::function<void()>& action);
std::vector<double> repeated(int count, const std::function<void()>& action);
double percentile(std::vector<double> times, double share);

/// Prints one line; the median.
double report(const char* name, const std::vector<double>& times, const std::string& note = {});

/// One step of a drag of a region over a large picture. Uses the folder for the picture.
void dragging(const std::string& folder);

/// Cutting regions out of pictures with the kernel that is built in. The folder holds the photos,
/// `photos\0.jpg` to `photos\19.jpg`, and takes the bitmaps.
void cutting(const std::string& folder);

}  // namespace measure
