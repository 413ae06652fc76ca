#include "controls/picturebox/picture_file.h"

#include <exception>
#include <utility>

#include "platform/errors.h"

namespace controls {

using platform::RuntimeError;

namespace {

[[noreturn]] void refuse(const std::string& fileName) {
    const bool isThere = platform::files::fileExists(fileName);
    // One that another program holds has a reason of its own.
    if (isThere && platform::files::readAt(fileName, 0, 1).empty()) platform::files::read(fileName);
    throw RuntimeError(platform::error::badPicture,
                       isThere ? "Die Datei ist beschädigt oder nicht von der Art, die ihr Name angibt."
                               : "Die Datei wurde nicht gefunden.");
}

}  // namespace

PictureFacts PictureFacts::ofFile(const std::string& fileName) {
    HeaderBytes file = HeaderBytes::ofFile(fileName);
    PictureFacts facts;
    facts.words = ReadBitmapHeaderWords(file);
    const bool jpeg = fileName.ends_with(".jpg");
    const bool bitmap = fileName.ends_with(".bmp");
    facts.tellsSize = jpeg || bitmap;
    if (jpeg)
        facts.header = readJpegHeader(file);
    else if (bitmap)
        facts.header = readBitmapHeader(file);
    else
        facts.header = readPictureHeader(file);
    return facts;
}

LoadedPicture loadPicture(const std::string& fileName, PictureBuffer spare, platform::Size before) {
    // Asked before the file is read: a file that is written meanwhile is then no longer this one.
    const auto version = platform::files::version(fileName);
    ReadyPicture picture{fileName, version.value_or(platform::files::Version{}),
                         PictureFacts::ofFile(fileName), std::move(spare)};
    const PictureFacts& facts = picture.facts;
    try {
        if (facts.tellsSize && !facts.header) refuse(fileName);
        picture.buffer.resize(facts.tellsSize ? facts.header->size : before);
    } catch (const RuntimeError& error) {
        return {std::nullopt, error.description()};
    }
    LoadedPicture result;
    try {
        picture.buffer.decode(fileName);
    } catch (const RuntimeError& error) {
        result.reason = error.description();
    }
    result.picture = std::move(picture);
    return result;
}

std::optional<ReadyPicture> decodeAhead(const std::string& fileName, PictureBuffer spare,
                                        std::int64_t mostBytes) try {
    const auto version = platform::files::version(fileName);  // before it is read, as above
    // It is read as a whole, however little of it is a picture.
    if (!version || version->size > static_cast<std::uint64_t>(mostBytes)) return std::nullopt;
    ReadyPicture picture{fileName, *version, PictureFacts::ofFile(fileName), std::move(spare)};
    const PictureFacts& facts = picture.facts;
    if (!facts.tellsSize || !facts.header || PictureBuffer::bytesOf(facts.header->size) > mostBytes)
        return std::nullopt;
    picture.buffer.resize(facts.header->size);
    picture.buffer.decode(fileName);
    return picture;
} catch (const std::exception&) {
    return std::nullopt;  // whoever shows the file meets the same and tells it
}

}  // namespace controls
