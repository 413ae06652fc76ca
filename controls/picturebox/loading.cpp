// From a file's name to its picture in the buffer.
#include <optional>
#include <string>
#include <utility>

#include "controls/picturebox/kvPictureBox.h"
#include "controls/picturebox/picture_file.h"
#include "platform/application.h"
#include "platform/errors.h"
#include "platform/files.h"
#include "platform/path.h"

namespace controls {

using platform::RuntimeError;

namespace {

[[noreturn]] void refuse(const std::string& fileName) {
    const bool isThere = platform::files::fileExists(fileName);
    // One that another program holds has a reason of its own.
    if (isThere && platform::files::readAt(fileName, 0, 1).empty()) platform::files::read(fileName);
    throw RuntimeError(platform::error::badPicture,
                       isThere
                           ? "Die Datei ist beschädigt oder nicht von der Art, die ihr Name angibt."
                           : "Die Datei wurde nicht gefunden.");
}

}  // namespace

void kvPictureBox::LoadPic(std::string FileName) {
    if (FileName == fileName_) {
        if (!Failed()) bringRegionsIn();
        layOut();
        if (Failed() && onLoadFailed) onLoadFailed(failure_);
        return;
    }
    fileName_ = std::move(FileName);
    const std::uint32_t load = ++loads_;
    platform::application::doEvents();
    if (load == loads_) loadFile();
}

void kvPictureBox::Expect(std::vector<std::string> FileNames) {
    store_.expect(std::move(FileNames), buffer_.bytes());
}

void kvPictureBox::loadFile() {
    if (auto ready = store_.take(fileName_)) {
        // Going back is as likely as anything. What does not tell its size is shown in another one then.
        if (shown_ && shown_->facts.tellsSize)
            store_.keep({shown_->fileName, shown_->version, shown_->facts, std::move(buffer_)});
        buffer_ = std::move(ready->buffer);
        return loaded({ready->fileName, ready->version, ready->facts});
    }
    const auto version = platform::files::version(fileName_);
    const PictureFacts facts = PictureFacts::ofFile(fileName_);
    try {
        if (facts.tellsSize && !facts.header) refuse(fileName_);
        if (facts.tellsSize) buffer_.resize(facts.header->size);
    } catch (const RuntimeError& error) {
        return failed(error.description());
    }
    try {
        buffer_.decode(fileName_);
    } catch (const RuntimeError& error) {
        shown_.reset();
        failure_.clear();
        depth_ = 0;
        layOut();
        return failed(error.description());
    }
    loaded({fileName_, version.value_or(platform::files::Version{}), facts});
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
