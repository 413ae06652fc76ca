#include "controls/picturebox/region_list.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "platform/errors.h"

namespace controls {

using platform::RuntimeError;

namespace {

std::int32_t narrow(std::int64_t value) {
    if (value < std::numeric_limits<std::int32_t>::min() || value > std::numeric_limits<std::int32_t>::max())
        throw RuntimeError(platform::error::overflow, "Überlauf bei den Maßen eines Bereiches.");
    return static_cast<std::int32_t>(value);
}

void bringInto(std::int32_t limit, std::int32_t newEnd, std::int32_t& start, std::int32_t& end) {
    if (end <= limit) return;
    const std::int64_t extent = std::int64_t{end} - start;
    end = newEnd;
    start = static_cast<std::int32_t>(std::max<std::int64_t>(0, newEnd - extent));
}

}  // namespace

std::int32_t RegionRecord::edge(std::int32_t start, std::int32_t extent) {
    return narrow(std::int64_t{start} + extent);
}

std::int32_t RegionRecord::distance(std::int32_t start, std::int32_t end) {
    return narrow(std::int64_t{end} - start);
}

RegionRecord RegionRecord::at(std::int32_t X, std::int32_t Y, std::int32_t dX, std::int32_t dY) {
    return {X, Y, edge(X, dX), edge(Y, dY)};
}

void RegionRecord::putInOrder() {
    if (Right < Left) std::swap(Left, Right);
    if (Bottom < Top) std::swap(Top, Bottom);
}

void bringInto(platform::Size picture, RegionRecord& region) {
    bringInto(picture.width, picture.height, region.Left, region.Right);
    bringInto(picture.height, picture.height, region.Top, region.Bottom);
}

void fitMove(platform::Size picture, const RegionRecord& region, std::int32_t& X, std::int32_t& Y,
             std::int32_t& dX, std::int32_t& dY) {
    const auto fitStart = [](std::int32_t limit, std::int32_t& start, std::int32_t extent) {
        if (std::int64_t{start} + extent > limit) start = narrow(std::int64_t{limit} - extent);
        start = std::max(start, 0);
    };
    if (region.Left != X) fitStart(picture.width, X, dX);
    if (region.Top != Y) fitStart(picture.height, Y, dY);
    const std::int32_t right = RegionRecord::edge(X, dX);
    const std::int32_t bottom = RegionRecord::edge(Y, dY);
    if (region.Right != right && right > picture.width) dX = narrow(std::int64_t{picture.width} - X);
    if (region.Bottom > bottom && bottom > picture.height) dY = narrow(std::int64_t{picture.height} - Y);
}

RegionRecord& RegionList::at(int index) {
    return const_cast<RegionRecord&>(std::as_const(*this).at(index));
}

const RegionRecord& RegionList::at(int index) const {
    if (index < 0 || index > count())
        throw RuntimeError(platform::error::subscriptOutOfRange, "Diesen Bereich gibt es nicht.");
    return regions_[static_cast<std::size_t>(index)];
}

int RegionList::add(const RegionRecord& region) {
    regions_.push_back(region);
    return count();
}

void RegionList::remove(int index) {
    if (!has(index))
        throw RuntimeError(platform::error::subscriptOutOfRange, "Diesen Bereich gibt es nicht.");
    regions_.erase(regions_.begin() + index);
    SelectedIndex = std::min(SelectedIndex, count());
}

void RegionList::clear() {
    regions_.resize(1);
    SelectedIndex = CurrentIndex = 0;
}

void RegionList::unselectAll() {
    for (RegionRecord& region : *this) region.Selected = false;
}

int RegionList::firstSelected() const {
    const auto found = std::find_if(begin(), end(), [](const RegionRecord& r) { return r.Selected; });
    return found == end() ? 0 : static_cast<int>(found - begin()) + 1;
}

int RegionList::lastSelected() const {
    int index = count();
    while (index > 0 && !at(index).Selected) --index;
    return index;
}

}  // namespace controls
