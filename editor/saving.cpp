#include "editor/saving.h"

#include "platform/errors.h"

namespace editor {

namespace files = platform::files;

namespace {

int kilobytes(std::size_t bytes) {
    return static_cast<int>(bytes / 1024);
}

}  // namespace

void Saving::write(platform::BackgroundTask::Progress& progress) {
    progress.total = kilobytes(bytes_.size());
    try {
        stored_ = files::replace(path_, bytes_, [&](std::size_t written) {
            progress.done = kilobytes(written);
            return !progress.cancelled && mayGoOn(written);
        });
        if (stored_) version_ = files::version(path_);
    } catch (const platform::RuntimeError&) {
        const auto now = files::version(path_);
        if (now != before_ && isThere(now)) {
            stored_ = true;
            version_ = now;
        }
        throw;
    }
}

bool Saving::isThere(std::optional<files::Version> now) const try {
    return files::read(path_) == bytes_ && files::version(path_) == now;
} catch (const platform::RuntimeError&) {
    return false;
}

// The last question comes when only the old file's place is to be taken.
bool Saving::mayGoOn(std::size_t written) {
    if (written < bytes_.size()) return stage_ == Stage::writing;
    Stage expected = Stage::writing;
    return stage_.compare_exchange_strong(expected, Stage::placing);
}

bool Saving::giveUp() {
    Stage expected = Stage::writing;
    return stage_.compare_exchange_strong(expected, Stage::givenUp) || expected == Stage::givenUp;
}

}  // namespace editor
