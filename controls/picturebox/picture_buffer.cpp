#include "controls/picturebox/picture_buffer.h"

#include <algorithm>

#include "platform/canvas.h"
#include "platform/errors.h"
#include "platform/picture.h"

namespace controls {

using platform::Rect;
using platform::RuntimeError;
using platform::Size;
using platform::Surface;

namespace {

platform::Colour background() {
    return platform::systemColour(platform::SystemColour::buttonFace);
}

}  // namespace

PictureBuffer::PictureBuffer() : surface_(Size{margins, margins}) {
    surface_.fill(background());
}

void PictureBuffer::resize(Size picture) {
    if (picture == picture_) return;  // fresh memory costs more than the decoder needs for a small picture
    if (bytesOf(picture) / 4 > mostPixels)
        throw RuntimeError(platform::error::badPicture, "Das Bild ist zu groß (" +
                                                            std::to_string(picture.width) + " x " +
                                                            std::to_string(picture.height) + " Pixel).");
    surface_ = Surface(Size{picture.width + margins, picture.height + margins});
    picture_ = picture;
}

void PictureBuffer::decode(const std::string& fileName) {
    holdsPicture_ = false;
    const Rect place = Rect::at(margin, margin, picture_.width, picture_.height);
    try {
        const Size size = platform::decodePicture(fileName, surface_, place);
        clearAround(intersect(place, Rect::at(margin, margin, size.width, size.height)));
        holdsPicture_ = true;
    } catch (const RuntimeError&) {
        surface_.fill(background());
        throw;
    }
}

void PictureBuffer::assign(const Surface* picture) {
    surface_.fill(background());
    if (picture == nullptr) return;
    const int width = std::min(surface_.size().width, picture->size().width);
    const int height = std::min(surface_.size().height, picture->size().height);
    for (int y = 0; y < height; ++y) std::copy_n(picture->row(y), width, surface_.row(y));
}

void PictureBuffer::clearAround(Rect kept) {
    const Size size = surface_.size();
    const platform::Colour colour = background();
    for (int y = 0; y < size.height; ++y) {
        std::uint32_t* row = surface_.row(y);
        if (y < kept.top || y >= kept.bottom) {
            std::fill_n(row, size.width, colour);
        } else {
            std::fill_n(row, kept.left, colour);
            std::fill_n(row + kept.right, size.width - kept.right, colour);
        }
    }
}

}  // namespace controls
