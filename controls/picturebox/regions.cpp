// The regions as the host sees them. What changes is marked to be painted, in the bands around it only.
#include <algorithm>

#include "controls/picturebox/kvPictureBox.h"
#include "controls/picturebox/region_overlay.h"
#include "platform/errors.h"

namespace controls {

using platform::Rect;
using platform::RuntimeError;

std::int32_t kvPictureBox::ROI_Add(std::int32_t X, std::int32_t Y, std::int32_t dX, std::int32_t dY) {
    if (X <= 0) X = OffsetX_ > 0 ? 0 : -OffsetX_;
    if (Y <= 0) Y = OffsetY_ > 0 ? 0 : -OffsetY_;
    RegionRecord region = RegionRecord::at(X, Y, dX, dY);
    region.Selected = true;
    endDrag();
    regions_.unselectAll();
    const int index = regions_.add(region);
    regions_.SelectedIndex = index;
    Refresh();
    raiseROIselect(index);
    return index;
}

void kvPictureBox::ROI_Load(std::int32_t X, std::int32_t Y, std::int32_t dX, std::int32_t dY) {
    touch(regions_.at(regions_.add(RegionRecord::at(X, Y, dX, dY))));
}

void kvPictureBox::ROI_Clear() {
    Clear();
}

void kvPictureBox::ROI_Remove(std::int16_t Index) {
    const RegionRecord removed = regions_.at(Index + 1);
    endDrag();
    regions_.remove(Index + 1);
    touch(removed);
    Refresh();
}

void kvPictureBox::ROI_Move(std::int16_t Index, std::int32_t& X, std::int32_t& Y, std::int32_t& dX,
                            std::int32_t& dY) {
    if (Index < 1) return;
    const RegionRecord before = regions_.at(Index);
    fitMove(buffer_.picture(), before, X, Y, dX, dY);
    const RegionRecord after = RegionRecord::at(X, Y, dX, dY);
    setEdges(Index, after);
    scrollAlong(before, after);
    Refresh();
}

/// Selected as before. What stood there and stands there now is to be painted.
void kvPictureBox::setEdges(int index, RegionRecord edges) {
    RegionRecord& region = regions_.at(index);
    touch(region);
    edges.Selected = region.Selected;
    region = edges;
    touch(region);
}

void kvPictureBox::scrollAlong(const RegionRecord& from, const RegionRecord& to) {
    const auto inView = [](std::int32_t start, std::int32_t end, std::int32_t offset, int view) {
        return std::int64_t{start} + offset >= 0 && std::int64_t{end} + offset <= view;
    };
    if (inView(to.Left, to.Right, OffsetX_, viewWidth()) && inView(to.Top, to.Bottom, OffsetY_, viewHeight()))
        return;
    const auto along = [](std::int32_t start, std::int32_t end, std::int32_t offset) {
        constexpr std::int64_t most = farAway;  // the bars keep it in their ranges
        return static_cast<int>(std::clamp(offset + (std::int64_t{start} - end), -most, most));
    };
    scrollTo({along(from.Left, to.Left, OffsetX_), along(from.Top, to.Top, OffsetY_)});
}

void kvPictureBox::ROI_Select(std::int32_t Index) {
    RegionRecord& region = regions_.at(Index);
    regions_.CurrentIndex = Index;
    regions_.unselectAll();
    region.Selected = Index > 0;
    Refresh();
    raiseROIselect(Index);
}

Rect kvPictureBox::regionRect(std::int32_t Index) const {
    const RegionRecord& region = regions_.at(Index);
    return {region.Left, region.Top, region.Right, region.Bottom};
}

void kvPictureBox::ROI(std::int32_t Index) {
    if (Index < 0 || Index > regions_.count() + 1)
        throw RuntimeError(platform::error::indexOutOfBounds, "Index außerhalb des gültigen Bereiches");
    regions_.CurrentIndex = Index;
}

RegionRecord& kvPictureBox::current() {
    return regions_.at(regions_.CurrentIndex);
}

const RegionRecord& kvPictureBox::current() const {
    return regions_.at(regions_.CurrentIndex);
}

void kvPictureBox::bringRegionsIn() {
    if (!showROIs_ || PicWidth() == 0 || PicHeight() == 0) return;
    bool moved = false;
    for (RegionRecord& region : regions_) {
        const RegionRecord before = region;
        bringInto(buffer_.picture(), region);
        moved = moved || region != before;
    }
    if (moved && onRegionsBroughtIn) onRegionsBroughtIn();
}

void kvPictureBox::touch(const RegionRecord& region) {
    if (stretch_) return;
    for (const Rect& band : bandsOf(region, offset())) {
        const Rect seen = intersect(band, inner());
        if (!seen.empty()) invalidate(seen);
    }
}

void kvPictureBox::touchRegions() {
    for (const RegionRecord& region : regions_) touch(region);
}

void kvPictureBox::raise(const RegionEvent& event, int region, std::int32_t index) const {
    if (!event) return;
    const RegionRecord& r = regions_.at(region);
    std::int32_t X = r.Left;
    std::int32_t Y = r.Top;
    std::int32_t dX = r.dX();
    std::int32_t dY = r.dY();
    event(index, X, Y, dX, dY);
}

}  // namespace controls
