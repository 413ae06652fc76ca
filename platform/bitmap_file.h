#pragma once

#include <string_view>

/// What can be told of a bitmap file without decoding it.
namespace platform::bitmap_file {

/// Whether the content is that of a bitmap.
bool isBitmap(std::string_view content);

/// Whether the pixels end before the header says so. Of rows that are packed only a decoder knows it.
bool isCutOff(std::string_view content);

/// Whether everything that the header speaks of lies within the file: the palette, the rows, the runs of
/// packed rows. A loader that believes the header reads nothing but the file then.
bool isWhole(std::string_view content);

}  // namespace platform::bitmap_file
