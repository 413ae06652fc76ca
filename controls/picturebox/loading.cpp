// From a file's name to its picture in the buffer.
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "controls/picturebox/kvPictureBox.h"
#include "platform/application.h"
#include "platform/background_task.h"
#include "platform/errors.h"
#include "platform/flagged.h"
#include "platform/path.h"

namespace controls {

namespace {

constexpr int untilItEnds = 1'000'000'000;  // milliseconds

}  // namespace

void kvPictureBox::LoadPic(std::string FileName) {
    if (FileName == fileName_ && !givenUp_) {
        if (waiting_) return;
        if (!Failed()) bringRegionsIn();
        layOut();
        if (Failed() && onLoadFailed) onLoadFailed(failure_);
        return;
    }
    // The picture before stayed on the screen for the one that was given up: no disk need be asked for it.
    const bool isSeen = givenUp_ && shown_ && shown_->fileName == FileName;
    fileName_ = std::move(FileName);
    givenUp_ = false;
    const std::uint32_t load = ++loads_;
    platform::application::doEvents();
    // A later wish has been fulfilled by now, or whoever waits for the one before comes to this one.
    if (load != loads_ || waiting_) return;
    if (isSeen) return loaded(*shown_);
    loadFile();
}

void kvPictureBox::Expect(std::vector<std::string> FileNames) {
    store_.expect(std::move(FileNames), buffer_.bytes());
}

void kvPictureBox::loadFile() {
    std::optional<LoadedPicture> came;
    try {
        std::uint32_t load = 0;
        do {
            load = loads_;
            came = bring();
        } while (load != loads_);
    } catch (const platform::RuntimeError& error) {
        return failed(error.description());
    }
    givenUp_ = !came;
    if (!came) return failed("Das Laden wurde abgebrochen.");
    if (!came->picture) return failed(came->reason);
    put(*came->picture);
    if (came->reason.empty())
        return loaded({came->picture->fileName, came->picture->version, came->picture->facts});
    shown_.reset();
    failure_.clear();
    depth_ = 0;
    layOut();
    failed(came->reason);
}

std::optional<LoadedPicture> kvPictureBox::bring() {
    const auto load = std::make_shared<PictureLoad>(store_.take(fileName_));
    load->before = buffer_.picture();
    platform::BackgroundTask task([load](auto& progress) { load->run(progress.cancelled); });
    const platform::Flagged waiting(waiting_);
    if (waitFor ? waitFor(task) : task.wait(untilItEnds)) return std::move(load->result);
    store_.leave(load);
    return std::nullopt;
}

// Going back is as likely as anything. What does not tell its size is shown in another one then.
void kvPictureBox::put(ReadyPicture& picture) {
    if (shown_ && shown_->facts.tellsSize)
        store_.keep({shown_->fileName, shown_->version, shown_->facts, std::move(buffer_)});
    buffer_ = std::move(picture.buffer);
}

void kvPictureBox::loaded(ShownFile file) {
    shown_ = std::move(file);
    failure_.clear();
    const PictureFacts& facts = shown_->facts;
    depth_ = facts.header ? facts.header->bitsPerPixel : 0;
    std::int32_t planes = facts.words.planes;
    std::int32_t bitCount = facts.words.bitCount;
    bringRegionsIn();
    layOut();
    std::int32_t width = PicWidth();
    std::int32_t height = PicHeight();
    if (LoadPicture) LoadPicture(width, height, planes, bitCount);
}

void kvPictureBox::failed(const std::string& reason) {
    failure_ = platform::path::fileName(fileName_) + ": " + reason;
    if (buffer_.holdsPicture()) failure_ += " Zu sehen ist noch das vorige Bild.";
    if (onLoadFailed) onLoadFailed(failure_);
}

}  // namespace controls
