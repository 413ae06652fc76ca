#include "platform/background_task.h"

#include <exception>

#include "platform/win32/failure.h"
#include "platform/win32/handle.h"

namespace platform {

// Thread and event are the system's own: of the threads that the compiler's thread library starts and
// detaches, one in some thousands never runs when the machine is busy, and the wait for it never ends.
struct BackgroundTask::State {
    Work work;
    Progress progress;
    std::exception_ptr failure;
    win32::UniqueHandle ended;

    explicit State(Work given)
        : work(std::move(given)),
          ended(win32::require(::CreateEventW(nullptr, /*manual reset*/ TRUE, FALSE, nullptr), "Ereignis anlegen")) {}

    void run() {
        try {
            work(progress);
        } catch (...) {
            failure = std::current_exception();
        }
        work = nullptr;  // what it owns is not kept for as long as the result is
        ::SetEvent(ended.get());
    }

    /// `argument` is a shared_ptr on the heap: the thread's own share.
    static DWORD WINAPI thread(void* argument) {
        const std::unique_ptr<std::shared_ptr<State>> own(static_cast<std::shared_ptr<State>*>(argument));
        (*own)->run();
        return 0;
    }
};

BackgroundTask::BackgroundTask(Work work) : state_(std::make_shared<State>(std::move(work))) {
    auto share = std::make_unique<std::shared_ptr<State>>(state_);
    const win32::UniqueHandle thread(
        win32::require(::CreateThread(nullptr, 0, State::thread, share.get(), 0, nullptr), "Thread anlegen"));
    static_cast<void>(share.release());  // the thread's by now
}

BackgroundTask::~BackgroundTask() {
    state_->progress.cancelled = true;
}

bool BackgroundTask::wait(int milliseconds) {
    if (::WaitForSingleObject(state_->ended.get(), static_cast<DWORD>(milliseconds)) != WAIT_OBJECT_0) return false;
    if (state_->failure) std::rethrow_exception(std::exchange(state_->failure, nullptr));
    return true;
}

const BackgroundTask::Progress& BackgroundTask::progress() const {
    return state_->progress;
}

}  // namespace platform
