#include "platform/background_task.h"

#include <chrono>
#include <future>
#include <thread>

namespace platform {

struct BackgroundTask::State {
    std::packaged_task<void(Progress&)> work;
    std::future<void> ended = work.get_future();
    Progress progress;

    explicit State(Work given) : work(std::move(given)) {}
};

BackgroundTask::BackgroundTask(Work work) : state_(std::make_shared<State>(std::move(work))) {
    std::thread([state = state_] { state->work(state->progress); }).detach();
}

BackgroundTask::~BackgroundTask() {
    state_->progress.cancelled = true;
}

bool BackgroundTask::wait(int milliseconds) {
    if (!state_->ended.valid()) return true;
    if (state_->ended.wait_for(std::chrono::milliseconds(milliseconds)) != std::future_status::ready)
        return false;
    state_->ended.get();
    return true;
}

const BackgroundTask::Progress& BackgroundTask::progress() const {
    return state_->progress;
}

}  // namespace platform
