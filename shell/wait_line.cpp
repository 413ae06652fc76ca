#include "shell/wait_line.h"

#include "platform/application.h"

namespace shell {

namespace {

// In milliseconds.
constexpr int tellAfter = 400;  // what is done by then needs no telling
constexpr int lookEvery = 30;

class Shown {
  public:
    explicit Shown(const WaitLine& line) : line_(line) { line_.show(true); }
    ~Shown() {
        line_.bar.setMarquee(false);
        line_.show(false);
    }
    Shown(const Shown&) = delete;
    Shown& operator=(const Shown&) = delete;

  private:
    const WaitLine& line_;
};

void showProgress(const WaitLine& line, const std::string& what,
                  const platform::BackgroundTask::Progress& progress) {
    const int total = progress.total;
    const int done = progress.done;
    // What is counted without an end in sight is told as a number.
    line.label.setCaption(total > 0 || done == 0 ? what : what + ' ' + std::to_string(done));
    line.bar.setMarquee(total == 0);
    if (total == 0) return;
    line.bar.setMaximum(total);
    line.bar.setValue(done);
}

}  // namespace

bool waitFor(const WaitLine& line, const std::string& what, platform::BackgroundTask& task, bool& givenUp) {
    if (task.wait(tellAfter)) return !givenUp;
    const Shown shown(line);
    while (!givenUp && !task.wait(lookEvery)) {
        showProgress(line, what, task.progress());
        if (platform::application::doEventsFor(line.frame)) givenUp = true;
    }
    return !givenUp;
}

}  // namespace shell
