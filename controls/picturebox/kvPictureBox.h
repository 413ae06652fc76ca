#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "controls/picturebox/drag_state.h"
#include "controls/picturebox/picture_buffer.h"
#include "controls/picturebox/picture_store.h"
#include "controls/picturebox/region_list.h"
#include "controls/picturebox/view_geometry.h"
#include "controls/property_bag.h"
#include "platform/basic_controls.h"
#include "platform/user_control.h"

namespace controls {

/// Shows one picture file, at 1:1 with scroll bars (centred when it is smaller than the view) or stretched to
/// the control with its aspect ratio kept, and over it the regions of interest, in 1:1 mode only.
///
/// There the mouse picks regions, moves and sizes them, and beside them pulls a picture that is larger than
/// the view; Esc takes a drag back. With the focus the arrow keys move the selected region, with Shift they
/// size it.
///
/// Mind the index bases, which hosts rely on: regions count from 1 in ROI_Add, ROI_Move, ROI_Select, ROI,
/// ROIselect and regionRect (0 for none), but from 0 in ROI_Remove, GetSelectedROI and ROImove.
class kvPictureBox : public platform::UserControl {
  public:
    kvPictureBox(platform::Container& parent, const std::string& name);

    // --- The picture.

    /// Always none: the picture is kept in a form of its own.
    PictureObject Picture() const { return nullptr; }
    /// Puts a picture, or none, at the top left of the buffer. Seen with the next paint, and only where a
    /// loaded picture has its place.
    void Picture(const PictureObject& picture);

    /// Loads and shows a file; pending window messages are handled before. The name asked for last is not
    /// loaded again (case counts): then only the regions are brought into the picture and all is repainted.
    /// ".jpg" and ".bmp", in small letters, are asked for their size; a file of any other ending is shown in
    /// the size of the one before.
    ///
    /// A file that gives no size, or has no room in memory, leaves the old picture with its size on the
    /// screen. One that gives its size but cannot be decoded shows an empty place of that size and leaves the
    /// regions alone. Neither raises LoadPicture; FileName is the new name all the same, and `onLoadFailed`
    /// tells.
    ///
    /// When another picture is asked for while the messages are handled, that one stays.
    ///
    /// All that is asked of the disk is asked beside the window, which waits for it by `waitFor`. One that
    /// was given up leaves the old picture on the screen like one that gives no size, and is loaded when it
    /// is asked for again. One that is asked for during the wait comes when that has ended.
    void LoadPic(std::string FileName);
    /// The files that LoadPic will probably be asked for next, the likeliest first. They are decoded beside
    /// the window, as far as there is room, and LoadPic then has them at once; a file that has changed since
    /// is decoded anew. A wrong guess costs nothing.
    void Expect(std::vector<std::string> FileNames);
    /// What of it is still expected; a file that could not be decoded is not.
    const std::vector<std::string>& Expected() const { return store_.expected(); }
    /// To be called now and then while it answers true: begins with the next of the expected files when the
    /// one before is ready.
    bool FetchOn() { return store_.fetchOn(); }

    /// The name asked for last. Setting it stores it and loads nothing.
    std::string FileName() const { return fileName_; }
    void FileName(const std::string& FileName);

    /// True while the picture on the screen is not the file asked for.
    bool Failed() const { return !failure_.empty(); }
    /// Whether it has not been seen because the wait for it was given up.
    bool GivenUp() const { return givenUp_; }
    /// Bits per pixel of the file on the screen, as its format counts them; 0 when unknown.
    int pictureDepth() const { return depth_; }

    std::int32_t PicWidth() const { return buffer_.picture().width; }
    std::int32_t PicHeight() const { return buffer_.picture().height; }
    /// Where the picture's top left stands in the control in 1:1 mode: 0 or less when it can be scrolled.
    std::int32_t OffsetX() const { return OffsetX_; }
    std::int32_t OffsetY() const { return OffsetY_; }
    /// The part of the picture that is in view, in picture pixels; in stretch mode all of it.
    platform::Rect seenOfPicture() const;
    const platform::Surface& buffer() const { return buffer_.surface(); }

    // --- How it is shown.

    bool Stretch() const { return stretch_; }
    void Stretch(bool Stretch);
    /// A grip in the corner between the scroll bars; seen with the next paint.
    bool SizeGrip() const { return sizeGrip_; }
    void SizeGrip(bool SizeGrip);
    /// Paints the regions anew and brings the control's picture on the screen up to date.
    void Refresh();
    /// Removes all regions. The picture stays.
    void Clear();

    // --- The regions, in picture pixels. An index of a region that is not there is RuntimeError
    // subscriptOutOfRange, an edge beyond 32 bits is RuntimeError overflow.

    /// Adds a region, selects it, raises ROIselect and returns its index. X of 0 or less becomes the left
    /// edge of what is seen of the picture, Y its top edge.
    std::int32_t ROI_Add(std::int32_t X, std::int32_t Y, std::int32_t dX, std::int32_t dY);
    /// Adds a region with exactly that rectangle, as a file has it: not selected, and no event.
    void ROI_Load(std::int32_t X, std::int32_t Y, std::int32_t dX, std::int32_t dY);
    void ROI_Clear();
    void ROI_Remove(std::int16_t Index);  ///< counts from 0
    /// Gives the region another rectangle, fitted into the picture; the arguments are then the fitted ones.
    /// Scrolls along when the new place is not wholly in view. Nothing for an index below 1. No event.
    void ROI_Move(std::int16_t Index, std::int32_t& X, std::int32_t& Y, std::int32_t& dX, std::int32_t& dY);
    /// Makes the region the current and the only selected one and raises ROIselect. 0 selects none.
    void ROI_Select(std::int32_t Index);
    /// The first selected region, counted from 0; -1 when none is selected.
    std::int32_t GetSelectedROI() const { return regions_.firstSelected() - 1; }
    platform::Rect regionRect(std::int32_t Index) const;

    /// The current region. Setting takes 0 to count + 1; anything else is RuntimeError indexOutOfBounds.
    std::int32_t ROI() const { return regions_.CurrentIndex; }
    void ROI(std::int32_t Index);
    /// The current region's rectangle. Setting X or Y moves that edge only, so the size changes, too; nothing
    /// is painted.
    std::int32_t X() const { return current().Left; }
    std::int32_t Y() const { return current().Top; }
    std::int32_t dX() const { return current().dX(); }
    std::int32_t dY() const { return current().dY(); }
    void X(std::int32_t X) { current().Left = X; }
    void Y(std::int32_t Y) { current().Top = Y; }
    void dX(std::int32_t dX) { current().Right = RegionRecord::edge(current().Left, dX); }
    void dY(std::int32_t dY) { current().Bottom = RegionRecord::edge(current().Top, dY); }

    /// Whether mouse and keys may move and size regions.
    bool AllowROImove() const { return allowROImove_; }
    void AllowROImove(bool AllowROImove);
    /// Whether regions are seen and can be picked.
    bool ShowROIs() const { return showROIs_; }
    void ShowROIs(bool ShowROIs);

    // --- Persistent properties.

    /// FileName and Stretch are only stored: nothing is loaded, and the scroll bars stay as they are until
    /// Stretch is set the next time.
    void ReadProperties(const PropertyBag& bag);
    void WriteProperties(PropertyBag& bag) const;
    PropertyChanged onPropertyChanged;

    /// Waits for a picture: true when the task has ended, false when it was given up. What the task threw
    /// comes out there. Without it there is a wait until the end, in which nothing else happens.
    std::function<bool(platform::BackgroundTask& task)> waitFor;

    // --- Events. Arguments are the handler's to change; the control does not look at them again.

    using RegionEvent = std::function<void(std::int32_t& Index, std::int32_t& X, std::int32_t& Y,
                                           std::int32_t& dX, std::int32_t& dY)>;
    std::function<void()> Click;
    RegionEvent ROImove;    ///< counts from 0; with each step while the user moves or sizes a region
    RegionEvent ROIselect;  ///< counts from 1; 0 when the user presses a button beside all regions
    /// A new file is on the screen. The last two are the words that an information header of a Windows bitmap
    /// has there; of other files they mean nothing.
    std::function<void(std::int32_t& Width, std::int32_t& Height, std::int32_t& Planes,
                       std::int32_t& BitCount)>
        LoadPicture;
    /// Why the file asked for is not on the screen, in German. Told again when the same file is asked for
    /// again.
    std::function<void(const std::string& reason)> onLoadFailed;
    /// Regions had to be moved into the picture that is shown now.
    std::function<void()> onRegionsBroughtIn;

  private:
    // kvPictureBox.cpp
    void layOut();
    void layOut(const AxisView& axis, platform::ScrollBar& bar);
    void scrolled();
    void scrollTo(platform::Point wanted);
    void wheel(int notches, int shift);
    void repaint();
    void changed(std::string_view key) const;

    // painting.cpp
    void paint(platform::Canvas& canvas) const;
    void paintStretched(platform::Canvas& canvas) const;
    void paintOneToOne(platform::Canvas& canvas) const;
    void paintFocus(platform::Canvas& canvas) const;

    // loading.cpp
    /// The file whose picture the buffer holds.
    struct ShownFile {
        std::string fileName;
        platform::files::Version version;
        PictureFacts facts;
    };
    void loadFile();
    std::optional<LoadedPicture> bring();  ///< none when it was given up
    void put(ReadyPicture& picture);
    void loaded(ShownFile file);
    void failed(const std::string& reason);

    // regions.cpp
    RegionRecord& current();
    const RegionRecord& current() const;
    void bringRegionsIn();
    void setEdges(int index, RegionRecord edges);
    void touch(const RegionRecord& region);
    void touchRegions();
    void scrollAlong(const RegionRecord& from, const RegionRecord& to);
    void raise(const RegionEvent& event, int region, std::int32_t index) const;
    void raiseROIselect(int index) const { raise(ROIselect, index, index); }

    // mouse.cpp
    void mouseDown(platform::MouseButton button, platform::Point at);
    void mouseMove(platform::MouseButton held, platform::Point at);
    bool keyDown(int key, int shift);
    int pick(platform::Point at, int selected, HitCode selectedCode);
    void BeginDrag(int index, HitCode code);
    void endDrag();
    void takeBack();
    void reshape(int index, const RegionRecord& edges);
    bool onView(platform::Point at) const;
    HitCode hit(int index, platform::Point at) const;
    platform::Pointer hoverPointer(platform::Point at) const;

    platform::Rect inner() const;
    int viewWidth() const;
    int viewHeight() const;
    platform::Point offset() const { return {OffsetX_, OffsetY_}; }

    platform::ScrollBar HScroll1;
    platform::ScrollBar VScroll1;
    PictureBuffer buffer_;
    std::optional<ShownFile> shown_;  // empty when the buffer holds something else
    PictureStore store_;
    RegionList regions_;
    DragState drag_;
    std::string fileName_;
    std::string failure_;
    std::uint32_t loads_ = 0;
    bool waiting_ = false;  // for a picture
    bool givenUp_ = false;  // the one asked for last
    int depth_ = 0;
    std::int32_t OffsetX_ = 0;
    std::int32_t OffsetY_ = 0;
    bool stretch_ = false;
    bool sizeGrip_ = false;
    bool allowROImove_ = true;
    bool showROIs_ = true;
    bool settingBars_ = false;
    std::int64_t wheelRest_[2]{};  // upright and sideways
};

}  // namespace controls
