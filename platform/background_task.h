#pragma once

#include <atomic>
#include <functional>
#include <memory>

namespace platform {

/// Something that takes long, done on a thread of its own while the window lives on. Shares nothing with
/// the window but a count of what has been done.
class BackgroundTask {
  public:
    /// What the work tells, and is told, while it goes on.
    struct Progress {
        std::atomic<int> done{0};
        std::atomic<int> total{0};           ///< 0 while it is not known
        std::atomic<bool> cancelled{false};   ///< nobody waits for the result any more
    };
    /// Must own all that it touches, as it may go on for a while after the task object is gone.
    using Work = std::function<void(Progress&)>;

    /// Starts at once.
    explicit BackgroundTask(Work work);
    /// Work that still goes on is told to stop, and not waited for: it may hang in a dead network share.
    ~BackgroundTask();
    BackgroundTask(const BackgroundTask&) = delete;
    BackgroundTask& operator=(const BackgroundTask&) = delete;

    /// Waits for the end, up to that long; true when it has come. What the work threw is thrown here.
    bool wait(int milliseconds);
    const Progress& progress() const;

  private:
    struct State;
    std::shared_ptr<State> state_;
};

}  // namespace platform
