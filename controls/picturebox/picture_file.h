#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "controls/picturebox/picture_buffer.h"
#include "controls/picturebox/picture_header.h"
#include "platform/files.h"

namespace controls {

/// What of a picture file is told without decoding it.
struct PictureFacts {
    static PictureFacts ofFile(const std::string& fileName);

    bool tellsSize = false;  ///< by its name's ending; small letters only
    std::optional<PictureHeader> header;
    HeaderWords words;
};

/// A file's picture with all that belongs to it.
struct ReadyPicture {
    std::string fileName;
    platform::files::Version version;  ///< of the file that was decoded
    PictureFacts facts;
    PictureBuffer buffer;

    std::int64_t bytes() const { return buffer.bytes(); }
};

/// What came of a file that is to be shown.
struct LoadedPicture {
    /// An empty place of its size, where a file tells one but cannot be decoded; none where it does not.
    std::optional<ReadyPicture> picture;
    std::string reason;  ///< why it is not to be seen, in German; empty when it is
};

/// Loads a file as it is now; touches nothing but the file and `spare`, whose memory is used again if it
/// fits. A file that does not tell its size is given that of the picture `before`.
LoadedPicture loadPicture(const std::string& fileName, PictureBuffer spare, platform::Size before);

/// Decodes a file that tells its size, for one who will show it later; touches nothing but the file and
/// `spare`, whose memory is used again if it fits. Empty when there is anything wrong with the file, or its
/// picture would take more than `mostBytes`. Throws nothing.
std::optional<ReadyPicture> decodeAhead(const std::string& fileName, PictureBuffer spare,
                                        std::int64_t mostBytes);

}  // namespace controls
