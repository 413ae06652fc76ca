#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/list_layout.h"
#include "platform/list_view.h"
#include "platform/win32/image_list.h"
#include "platform/win32/native.h"

namespace platform::win32 {

/// A list view whose rows its owner keeps (LVS_OWNERDATA). What the user does is bracketed: the list tells of
/// each row that changes its state, and its owner shall hear once of each click or key, when all is done.
/// Rows count from 1 here as outside; `index` and `row` are the only places that know better.
class ListWindow : public Control::Native {
  public:
    ListWindow(Native* parentWindow, const std::string& controlName,
               const std::vector<ListView::Column>& columns, ListView::Options options);

    Handled handle(const Message& m) override;
    Handled notify(NMHDR& header) override;
    void fontChanged() override;
    long accessibleRole() const override { return win32::role::list; }
    KeyUse keyUse() const override { return send(LVM_GETEDITCONTROL) ? KeyUse::text : KeyUse::rows; }

    int count() const { return static_cast<int>(send(LVM_GETITEMCOUNT)); }
    void setCount(int rows);
    void setIcons(const std::vector<IconImage>& icons);

    bool selected(int row) const;
    void setSelected(int row, bool on);
    int selectedCount() const { return static_cast<int>(send(LVM_GETSELECTEDCOUNT)); }
    int firstSelected() const;
    int nextSelected(int after) const;
    void selectAll();
    void unselectAll();
    void selectOnly(int row);
    int focusRow() const;
    void ensureVisible(int row);
    void bringIntoView(int row);
    void redraw(int row);
    void editLabel(int row);
    bool endEdit();
    int hitTest(Point point) const;

    int columnCount() const { return columnCount_; }
    std::string layout() const;
    void setLayout(const std::string& text);
    void moveColumn(int column, int place);
    HWND header() const;

  private:
    ListView& list() const { return *static_cast<ListView*>(control); }
    static int index(int row) { return row - 1; }
    static int row(LRESULT index) { return static_cast<int>(index) + 1; }
    void insertColumn(int position, const ListView::Column& column);
    ListLayout columns() const;
    void arrange(std::vector<int> order);  ///< columns from the left

    // Messages.
    Handled pressed(const Message& m);
    Handled released(const Message& m);
    Handled keyPressed(const Message& m);
    Handled typed(const Message& m);
    Handled resized(const Message& m);
    void keyReleased(int key, int shift);
    Handled editPosted(const Message& m);
    Handled stateSet(const Message& m);
    Handled wheelTurned(int distance, int shift, Point onScreen);
    LRESULT follow(const Message& m);
    void raiseMouseUp(MouseButton button, int shift, Point point);
    bool selectsAll(int key, int shift) const;
    int stepTarget(int key, int shift) const;
    void step(int target);
    bool choosesFirst(MouseButton button, int shift, int target);

    // Notifications.
    void supplyCell(NMLVDISPINFOW& info);
    Handled findRow(NMLVFINDITEMW& search);
    void rowChanged(NMLISTVIEW& change);
    void rangeChanged(NMLVODSTATECHANGE& change);
    void clicked(NMITEMACTIVATE& click);
    void doubleClicked(NMITEMACTIVATE& click);
    void columnClicked(NMLISTVIEW& click);
    Handled labelEdited(NMLVDISPINFOW& info);
    Handled draw(NMLVCUSTOMDRAW& drawing);

    void selectionChanged(int row);
    void setState(int index, UINT state, UINT mask);
    bool deselectFew(int but);
    void markOnly(int row);

    ListView::Options options_;
    UniqueImageList icons_;
    int noIcon_ = I_IMAGENONE;  // an empty picture at the end of the icons
    int columnCount_;
    int laidOutFor_;        // resolution of the column widths
    int userAction_ = 0;    // brackets around what the user does
    bool changed_ = false;  // the selection, since the outermost bracket began
    bool endingEdit_ = false;
    bool editPosted_ = false;             // as the text was refused
    int wheelRest_ = 0;                   // of the way sideways, that was less than a pixel
    std::optional<MouseButton> pressed_;  // whose release was not told yet
    std::optional<Point> swallowedRelease_;
};

}  // namespace platform::win32
