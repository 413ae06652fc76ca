#pragma once

#include <cstdint>
#include <vector>

#include "platform/geometry.h"

namespace controls {

/// Far beyond every picture. Regions may have any edges of 32 bits; where sums of them must not overflow, an
/// edge further away counts as being there.
inline constexpr std::int32_t farAway = 1 << 28;

/// A region of the picture, in picture pixels. Right and Bottom do not belong to it. What the host gives a
/// negative size has Right less than Left or Bottom less than Top.
struct RegionRecord {
    std::int32_t Left = 0;
    std::int32_t Top = 0;
    std::int32_t Right = 0;
    std::int32_t Bottom = 0;
    bool Selected = false;

    friend bool operator==(const RegionRecord&, const RegionRecord&) = default;

    std::int32_t dX() const { return distance(Left, Right); }
    std::int32_t dY() const { return distance(Top, Bottom); }

    /// Makes a negative size a positive one.
    void putInOrder();

    /// RuntimeError overflow when an edge does not fit into 32 bits.
    static RegionRecord at(std::int32_t X, std::int32_t Y, std::int32_t dX, std::int32_t dY);
    /// The sum as an edge; RuntimeError overflow.
    static std::int32_t edge(std::int32_t start, std::int32_t extent);

  private:
    static std::int32_t distance(std::int32_t start, std::int32_t end);
};

/// Moves the region into a picture that is smaller than the one it was made for. A region beyond the right
/// edge comes to end at the picture's HEIGHT: sets made so far were made with this rule.
void bringInto(platform::Size picture, RegionRecord& region);

/// Fits a rectangle that the region is to take into the picture. How each edge is fitted depends on whether
/// the region's own edge differs from it; the bottom one is fitted only when the region gets shorter there.
void fitMove(platform::Size picture, const RegionRecord& region, std::int32_t& X, std::int32_t& Y,
             std::int32_t& dX, std::int32_t& dY);

/// The regions with the two indices into them. Indices count from 1; element 0 is scratch space that exists
/// always, also when there is no region.
class RegionList {
  public:
    int count() const { return static_cast<int>(regions_.size()) - 1; }
    bool has(int index) const { return index >= 1 && index <= count(); }

    /// RuntimeError subscriptOutOfRange outside of 0 to count.
    RegionRecord& at(int index);
    const RegionRecord& at(int index) const;

    int add(const RegionRecord& region);  ///< at the end; its index
    void remove(int index);               ///< RuntimeError subscriptOutOfRange
    void clear();                         ///< element 0 stays; both indices become 0
    void unselectAll();
    int firstSelected() const;  ///< 0 for none
    int lastSelected() const;   ///< 0 for none

    auto begin() { return regions_.begin() + 1; }
    auto end() { return regions_.end(); }
    auto begin() const { return regions_.begin() + 1; }
    auto end() const { return regions_.end(); }

    /// The active region, drawn on top: the last one added, or the one that is dragged. 0 for none.
    std::int32_t SelectedIndex = 0;
    /// The region reported as current. May stand one past the end.
    std::int32_t CurrentIndex = 0;

  private:
    std::vector<RegionRecord> regions_{1};
};

}  // namespace controls
