#include "controls/picturebox/view_geometry.h"

#include <algorithm>

#include "platform/text.h"

namespace controls {

using platform::Rect;
using platform::Size;
using platform::text::roundHalfEven;

AxisView viewAxis(int picture, int inner, int bar, int offset) {
    const int view = inner - bar;
    AxisView axis;
    axis.scrollable = picture > view;
    if (!axis.scrollable) {
        axis.offset = roundHalfEven((view - picture) * 0.5);
        return axis;
    }
    axis.maximum = picture - view;
    axis.smallChange = roundHalfEven(axis.maximum / 30.0 + 1);
    axis.largeChange = std::max(1, view);
    axis.offset = std::clamp(offset, -axis.maximum, 0);
    return axis;
}

namespace {

/// The picture is centred between the bands of this width. Rounded apart, the picture's end and the band's
/// start can leave a line between them, which is the band's.
struct Centred {
    Centred(int inner, double extent) {
        const double band = (inner - extent) / 2;
        start = roundHalfEven(band);
        end = start + roundHalfEven(extent);
        farBand = std::min(end, roundHalfEven(inner - band));
    }
    int start, end, farBand;
};

}  // namespace

std::optional<StretchView> viewStretched(Size inner, Size picture) {
    if (inner.height == 0 || picture.height == 0) return std::nullopt;
    const double innerRatio = static_cast<double>(inner.width) / inner.height;
    const double pictureRatio = static_cast<double>(picture.width) / picture.height;
    if (innerRatio < pictureRatio) {
        const double scale = static_cast<double>(inner.width) / picture.width;
        const Centred y(inner.height, picture.height * scale);
        return StretchView{{0, y.start, roundHalfEven(picture.width * scale), y.end},
                           {Rect{0, 0, inner.width, y.start}, Rect{0, y.farBand, inner.width, inner.height}}};
    }
    const double scale = static_cast<double>(inner.height) / picture.height;
    const Centred x(inner.width, picture.width * scale);
    return StretchView{{x.start, 0, x.end, roundHalfEven(picture.height * scale)},
                       {Rect{0, 0, x.start, inner.height}, Rect{x.farBand, 0, inner.width, inner.height}}};
}

}  // namespace controls
