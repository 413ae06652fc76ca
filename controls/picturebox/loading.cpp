// From a file's name to its picture in the buffer.
#include <optional>
#include <string>
#include <utility>

#include "controls/picturebox/kvPictureBox.h"
#include "controls/picturebox/picture_header.h"
#include "platform/application.h"
#include "platform/errors.h"
#include "platform/files.h"
#include "platform/path.h"

namespace controls {

using platform::RuntimeError;

namespace {

struct FileFacts {
    explicit FileFacts(const std::string& fileName);

    bool tellsSize = false;  ///< by its name's ending; small letters only
    std::optional<PictureHeader> header;
    HeaderWords words;
};

FileFacts::FileFacts(const std::string& fileName) {
    HeaderBytes file = HeaderBytes::ofFile(fileName);
    words = ReadBitmapHeaderWords(file);
    const bool jpeg = fileName.ends_with(".jpg");
    const bool bitmap = fileName.ends_with(".bmp");
    tellsSize = jpeg || bitmap;
    if (jpeg)
        header = readJpegHeader(file);
    else if (bitmap)
        header = readBitmapHeader(file);
    else
        header = readPictureHeader(file);
}

[[noreturn]] void refuse(const std::string& fileName) {
    throw RuntimeError(platform::error::badPicture,
                       platform::files::fileExists(fileName)
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

void kvPictureBox::loadFile() {
    const FileFacts facts(fileName_);
    try {
        if (facts.tellsSize && !facts.header) refuse(fileName_);
        if (facts.tellsSize) buffer_.resize(facts.header->size);
    } catch (const RuntimeError& error) {
        return failed(error.description());
    }
    failure_.clear();
    depth_ = 0;
    try {
        buffer_.decode(fileName_);
    } catch (const RuntimeError& error) {
        layOut();
        return failed(error.description());
    }
    if (facts.header) depth_ = facts.header->bitsPerPixel;
    bringRegionsIn();
    layOut();
    std::int32_t width = PicWidth();
    std::int32_t height = PicHeight();
    std::int32_t planes = facts.words.planes;
    std::int32_t bitCount = facts.words.bitCount;
    if (LoadPicture) LoadPicture(width, height, planes, bitCount);
}

void kvPictureBox::failed(const std::string& reason) {
    failure_ = platform::path::fileName(fileName_) + ": " + reason;
    if (buffer_.holdsPicture()) failure_ += " Zu sehen ist noch das vorige Bild.";
    if (onLoadFailed) onLoadFailed(failure_);
}

}  // namespace controls
