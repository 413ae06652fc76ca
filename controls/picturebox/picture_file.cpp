#include "controls/picturebox/picture_file.h"

#include <exception>
#include <utility>

namespace controls {

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

std::optional<ReadyPicture> decodeAhead(const std::string& fileName, PictureBuffer spare,
                                        std::int64_t mostBytes) try {
    // Asked before the file is read: a file that is written meanwhile is then no longer this one.
    const auto version = platform::files::version(fileName);
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
