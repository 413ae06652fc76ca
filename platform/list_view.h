#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/control.h"
#include "platform/icon_image.h"

namespace platform {

/// Bits of the Shift argument of mouse and key events.
namespace shiftKey {
inline constexpr int shift = 1;
inline constexpr int control = 2;
inline constexpr int alt = 4;
}  // namespace shiftKey

enum class MouseButton { none = 0, left = 1, right = 2, middle = 4 };

/// A list with columns that shows rows which its owner keeps: it asks for the text of what is on the
/// screen and holds nothing but the selection. Rows and columns count from 1, sub-items from 1, and
/// sub-item 0 is the row's own text in column 1.
class ListView : public Control {
  public:
    enum class Align { left, right, centre };
    struct Column {
        std::string title;
        int chars;   ///< width at first, in average characters
        Align align = Align::left;
    };
    struct Options {
        bool multiSelect = false;
        bool editLabels = false;
    };

    ListView(Container& parent, const std::string& name, const std::vector<Column>& columns, Options options);

    /// The owner's rows. `icon` answers an index into the icons, or -1.
    std::function<std::string(int row, int subItem)> cell;
    std::function<int(int row)> icon;
    /// Images of `metricsOf().iconSize` pixels each.
    void setIcons(const std::vector<IconImage>& icons);

    int count() const;
    /// Tells the list how many rows there are now, and repaints it. The rows up to the smaller count keep
    /// their selection; an owner that removed rows in the middle sets it anew.
    void setCount(int rows);

    bool selected(int row) const;
    void select(int row, bool on = true);   ///< leaves the other rows as they are; single selection: instead of them
    int selectedCount() const;
    int firstSelected() const;              ///< 0 when none is
    int nextSelected(int after) const;      ///< the first selected row behind `after`, 0 when there is none
    void selectAll();
    void unselectAll();
    /// Selects this row alone, gives it the list's focus mark and scrolls it into view. Costs the same
    /// however many rows there are.
    void selectOnly(int row);
    /// The row with the list's focus mark, 0 when there is none.
    int focusRow() const;
    void ensureVisible(int row);

    void redraw(int row);
    void redrawAll();

    /// Selects this row alone and opens its text for editing; nothing happens while the list cannot be seen.
    void editLabel(int row);
    /// Takes over a text that is being edited, as Enter does. False when the owner refused it and it is edited
    /// on.
    bool endEdit();
    /// The row at a point of the list's client area, 0 when there is none.
    int hitTest(Point point) const;
    int columnCount() const;

    /// Column widths and order as one line of text; a text that does not fit the list changes nothing. One
    /// from a time when the list had fewer columns fits: those that came at the end stay as they are.
    std::string layout() const;
    void setLayout(const std::string& layout);
    /// At first the columns stand in the order of their numbers; this one goes to that place from the left.
    void moveColumn(int column, int place);

    /// The user chose a row, by mouse or key; a click on a row that is selected already counts too.
    std::function<void(int row)> onItemClick;
    std::function<void()> onSelectionChange;   ///< by the user
    std::function<void(int row)> onDoubleClick;
    std::function<void(int column)> onColumnClick;
    std::function<void(MouseButton, int shift, Point)> onMouseDown;
    std::function<void(MouseButton, int shift, Point)> onMouseUp;
    std::function<void(int key, int shift)> onKeyDown;   ///< key codes as Windows numbers them
    std::function<void(int key, int shift)> onKeyUp;
    /// A new text was given (an abandoned edit raises nothing). The owner takes it over and answers true,
    /// or false: the row keeps its old text.
    std::function<bool(int row, const std::string& text)> onLabelEdited;
};

namespace keyCode {
inline constexpr int tab = 9;
inline constexpr int enter = 13;
inline constexpr int escape = 27;
inline constexpr int space = 32;
inline constexpr int pageUp = 33;
inline constexpr int pageDown = 34;
inline constexpr int end = 35;
inline constexpr int home = 36;
inline constexpr int left = 37;
inline constexpr int up = 38;
inline constexpr int right = 39;
inline constexpr int down = 40;
inline constexpr int del = 46;
inline constexpr int numpad0 = 96;   ///< the other digits follow
inline constexpr int f1 = 112;
inline constexpr int f2 = 113;
}  // namespace keyCode

}  // namespace platform
