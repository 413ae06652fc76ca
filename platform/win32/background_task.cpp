#include "platform/background_task.h"

#include <exception>
#include <utility>

#include "platform/win32/failure.h"

namespace platform {

namespace {

/// Holds the lock as long as it lives.
class Locked {
  public:
    explicit Locked(SRWLOCK& lock) : lock_(lock) { AcquireSRWLockExclusive(&lock_); }
    ~Locked() { ReleaseSRWLockExclusive(&lock_); }
    Locked(const Locked&) = delete;
    Locked& operator=(const Locked&) = delete;

  private:
    SRWLOCK& lock_;
};

}  // namespace

// Thread and lock are the system's own: of the threads that the compiler's thread library starts and
// detaches, one in some thousands never runs when the machine is busy, and the wait for it never ends. The
// thread comes from the system's pool, as every step to the next picture needs one, and a new one costs more
// than the rest of that step. Nothing may be left on it for the work that comes after.
struct BackgroundTask::State {
    Work work;
    Progress progress;
    SRWLOCK lock = SRWLOCK_INIT;
    CONDITION_VARIABLE ends = CONDITION_VARIABLE_INIT;
    bool ended = false;
    std::exception_ptr failure;

    explicit State(Work given) : work(std::move(given)) {}

    void run() {
        try {
            work(progress);
        } catch (...) {
            failure = std::current_exception();
        }
        work = nullptr;  // what it owns is not kept for as long as the result is
        const Locked locked(lock);
        ended = true;
        WakeAllConditionVariable(&ends);
    }

    /// `argument` is a shared_ptr on the heap: the thread's own share.
    static void CALLBACK onThread(PTP_CALLBACK_INSTANCE, void* argument) {
        const std::unique_ptr<std::shared_ptr<State>> own(static_cast<std::shared_ptr<State>*>(argument));
        (*own)->run();
    }
};

BackgroundTask::BackgroundTask(Work work) : state_(std::make_shared<State>(std::move(work))) {
    auto share = std::make_unique<std::shared_ptr<State>>(state_);
    TP_CALLBACK_ENVIRON environment;
    InitializeThreadpoolEnvironment(&environment);
    SetThreadpoolCallbackRunsLong(&environment);  // others need not wait for its end
    win32::require(TrySubmitThreadpoolCallback(State::onThread, share.get(), &environment), "Thread anlegen");
    static_cast<void>(share.release());  // the thread's by now
}

BackgroundTask::~BackgroundTask() {
    state_->progress.cancelled = true;
}

bool BackgroundTask::wait(int milliseconds) {
    {
        const Locked locked(state_->lock);
        const ULONGLONG until = GetTickCount64() + static_cast<ULONGLONG>(milliseconds);
        while (!state_->ended) {  // it also wakes for nothing
            const ULONGLONG now = GetTickCount64();
            if (now >= until) return false;
            SleepConditionVariableSRW(&state_->ends, &state_->lock, static_cast<DWORD>(until - now), 0);
        }
    }
    if (state_->failure) std::rethrow_exception(std::exchange(state_->failure, nullptr));
    return true;
}

const BackgroundTask::Progress& BackgroundTask::progress() const {
    return state_->progress;
}

}  // namespace platform
