// The regions as the host sees them. What changes is marked to be painted, in the bands around it only.
#include <algorithm>

#include "controls/picturebox/kvPictureBox.h"
#include "controls/picturebox/region_overlay.h"
#include "platform/errors.h"

namespace controls {

using platform::Rect;
using platform::RuntimeError;
using platform::ScrollBar;

std::int32_t kvPictureBox::ROI_Add(std::int32_t X, std::int32_t Y, std::int32_t dX, std::int32_t dY) {
    if (X <= 0) X = OffsetX_ > 0 ? 0 : -OffsetX_;
    if (Y <= 0) Y = OffsetY_ > 0 ? 0 : -OffsetY_;
    RegionRecord region = RegionRecord::at(X, Y, dX, dY);
    region.Selected = true;
    touchRegions();
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
    regions_.remove(Index + 1);
    touch(removed);
    Refresh();
}

void kvPictureBox::ROI_Move(std::int16_t Index, std::int32_t& X, std::int32_t& Y, std::int32_t& dX,
                            std::int32_t& dY) {
    if (Index < 1) return;
    RegionRecord& region = regions_.at(Index);
    fitMove(buffer_.picture(), region, X, Y, dX, dY);
    const RegionRecord before = region;
    region = RegionRecord::at(X, Y, dX, dY);
    region.Selected = before.Selected;
    touch(before);
    scrollAlong(before, region);
    Refresh();
}

void kvPictureBox::scrollAlong(const RegionRecord& from, const RegionRecord& to) {
    const auto inView = [](std::int32_t start, std::int32_t end, std::int32_t offset, int view) {
        return std::int64_t{start} + offset >= 0 && std::int64_t{end} + offset <= view;
    };
    if (inView(to.Left, to.Right, OffsetX_, viewWidth()) && inView(to.Top, to.Bottom, OffsetY_, viewHeight()))
        return;
    const auto scroll = [](ScrollBar& bar, std::int64_t way) {
        if (bar.enabled())
            bar.setValue(static_cast<int>(std::clamp<std::int64_t>(bar.value() + way, 0, bar.maximum())));
    };
    scroll(HScroll1, std::int64_t{to.Left} - from.Left);
    scroll(VScroll1, std::int64_t{to.Top} - from.Top);
}

void kvPictureBox::ROI_Select(std::int32_t Index) {
    RegionRecord& region = regions_.at(Index);
    touchRegions();
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
    if (!showROIs_) return;
    for (RegionRecord& region : regions_) bringInto(buffer_.picture(), region);
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

void kvPictureBox::raiseROIselect(std::int32_t index) const {
    if (!ROIselect) return;
    const RegionRecord& region = regions_.at(index);
    std::int32_t X = region.Left;
    std::int32_t Y = region.Top;
    std::int32_t dX = region.dX();
    std::int32_t dY = region.dY();
    ROIselect(index, X, Y, dX, dY);
}

}  // namespace controls
