#pragma once

#include <atomic>
#include <optional>
#include <string>

#include "platform/background_task.h"
#include "platform/files.h"

namespace editor {

/// The writing of a set file beside the window. It can be given up until the new file takes the place of the
/// old one, and then it is known whether it did.
class Saving {
  public:
    /// `before` is the version of the file that there was, when it is known.
    Saving(std::string path, std::string bytes, std::optional<platform::files::Version> before)
        : path_(std::move(path)), bytes_(std::move(bytes)), before_(before) {}

    /// On the thread of the task. RuntimeError when the file could not be written.
    void write(platform::BackgroundTask::Progress& progress);
    /// The old file stays: true. False when it is too late for that: then the end is near, and is to be
    /// waited for.
    bool giveUp();

    // When the writing is over, well or not:
    bool isStored() const { return stored_; }  ///< a disk that fails may have taken the file all the same
    /// Of the file that was written, empty when it is not known.
    const std::optional<platform::files::Version>& version() const { return version_; }

  private:
    bool mayGoOn(std::size_t written);
    bool isThere(std::optional<platform::files::Version> now) const;

    const std::string path_;
    const std::string bytes_;
    const std::optional<platform::files::Version> before_;
    enum class Stage { writing, placing, givenUp };
    std::atomic<Stage> stage_{Stage::writing};
    bool stored_ = false;
    std::optional<platform::files::Version> version_;
};

}  // namespace editor
