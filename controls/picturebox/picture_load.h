#pragma once

#include <atomic>
#include <chrono>
#include <memory>
#include <optional>
#include <string>

#include "controls/picturebox/picture_file.h"
#include "platform/background_task.h"

namespace controls {

/// A picture that a worker decodes before it is asked for.
struct PictureFetch {
    std::string fileName;
    std::shared_ptr<std::optional<ReadyPicture>> result;
    std::unique_ptr<platform::BackgroundTask> task;
    std::chrono::steady_clock::time_point begun = std::chrono::steady_clock::now();
};

/// One picture's way to the screen, with what had been done for it before it was asked for. All that it asks
/// the disk for it asks in run(), which a worker calls: a disk may hang. It shares nothing with the window.
struct PictureLoad {
    std::string fileName;
    std::optional<ReadyPicture> ready;    ///< whose file may have changed since
    std::shared_ptr<PictureFetch> fetch;  ///< that still goes on
    std::optional<PictureBuffer> spare;   ///< memory to be used again
    platform::Size before;                ///< of a file that does not tell its own size
    LoadedPicture result;                 ///< when run() has ended

    void run(const std::atomic<bool>& givenUp);
};

}  // namespace controls
