#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/control.h"

namespace platform {

/// A command button. In captions given as `mnemonic` text "&" underlines the access key that follows it
/// ("&&" is one "&"); `setPlainCaption` shows the text as it is.
class Button : public Control {
  public:
    Button(Container& parent, const std::string& name, const std::string& mnemonic = {});
    std::string caption() const;   ///< as the user reads it
    void setCaption(const std::string& mnemonic);
    void setPlainCaption(const std::string& text);
    /// The key by which the form has the button pressed: told at its left edge. Empty for none.
    void setKeyHint(const std::string& key);
    std::string keyHint() const;
    /// 0x00BBGGRR, or 0x80000000 + the number of a system colour. The system's themes may paint over it.
    void setBackColour(std::uint32_t colour);
    std::uint32_t backColour() const;   ///< 0x8000000F (button face) at first
    std::function<void()> onClick;
};

/// A line of text (access keys as for buttons: they lead to the control made next). Too long a text ends
/// in an ellipsis.
class Label : public Control {
  public:
    enum class Style { mnemonic, plain, wrapped };   ///< wrapped: plain, over several lines
    Label(Container& parent, const std::string& name, const std::string& text = {},
          Style style = Style::mnemonic);
    std::string caption() const;   ///< as the user reads it
    void setCaption(const std::string& text);
};

class TextBox : public Control {
  public:
    enum class Style { edit, readOnly, output };   ///< output: read only, several lines, scrolls
    TextBox(Container& parent, const std::string& name, Style style = Style::edit);
    std::string text() const;
    /// Raises nothing. Line breaks of a one-line box become blanks.
    void setText(const std::string& text);
    /// For output: a line more at the end, which comes into view. Raises nothing.
    void append(const std::string& line);
    std::function<void()> onChange;      ///< after each change by the user
    std::function<void()> onCommit;      ///< Enter, or the focus left after a change
};

class CheckBox : public Control {
  public:
    CheckBox(Container& parent, const std::string& name, const std::string& mnemonic);
    bool checked() const;
    void setChecked(bool checked);   ///< raises nothing
    std::function<void()> onClick;   ///< the box has its new state already
};

/// A chooser with a drop-down list; the editable kind takes any text as well. Entries count from 0.
class ComboBox : public Control {
  public:
    enum class Style { editable, list };
    ComboBox(Container& parent, const std::string& name, Style style);

    int count() const;
    std::string item(int index) const;
    void add(const std::string& text);
    void add(const std::vector<std::string>& texts);   ///< in one step on the screen
    void insert(int index, const std::string& text);
    void replace(int index, const std::string& text);  ///< the selection stays; raises nothing
    void remove(int index);
    void clear();

    int listIndex() const;   ///< -1 when no entry is chosen
    /// Choosing another entry raises `onClick`, by the program as by the user. -1 chooses none and raises
    /// nothing.
    void setListIndex(int index);

    std::string text() const;
    void setText(const std::string& text);   ///< editable ones only; raises nothing, chooses no entry

    void setDropDownWidth(int pixels);
    int dropDownWidth() const;

    std::function<void()> onClick;    ///< an entry was chosen
    std::function<void()> onChange;   ///< the user typed
};

/// A strip of tabs. Tabs count from 1.
class TabStrip : public Control {
  public:
    TabStrip(Container& parent, const std::string& name, const std::vector<std::string>& mnemonics);
    int count() const;
    std::string tab(int index) const;   ///< as the user reads it
    int selected() const;
    void select(int index);   ///< raises nothing
    /// Where a page has its place, in the parent's client area.
    Rect pageArea() const;
    std::function<void()> onClick;
};

/// Scroll bar of its own. Its value keeps within [minimum, maximum]. Unlike the other controls it raises
/// `onChange` whenever the value becomes another one, by whatever cause; while the thumb is dragged it
/// raises `onScroll` instead.
class ScrollBar : public Control {
  public:
    enum class Direction { horizontal, vertical };
    ScrollBar(Container& parent, const std::string& name, Direction direction);
    int value() const;
    void setValue(int value);
    int minimum() const;
    int maximum() const;
    void setRange(int minimum, int maximum);
    int smallChange() const;
    int largeChange() const;
    void setSmallChange(int change);
    /// A page, by which the bar also sizes its thumb; the whole range can be reached all the same.
    void setLargeChange(int change);
    std::function<void()> onChange;
    std::function<void()> onScroll;
};

/// How much of something has been done, from 0 to a maximum.
class ProgressBar : public Control {
  public:
    ProgressBar(Container& parent, const std::string& name);
    int value() const;
    void setValue(int value);   ///< kept within 0 and the maximum
    int maximum() const;
    void setMaximum(int maximum);   ///< 100 at first; at least 1
    bool marquee() const;
    void setMarquee(bool on);   ///< a piece runs along instead of the value: nobody knows how far it is
};

/// A slider. Like the scroll bar it raises `onChange` for every new value, by whatever cause.
class Slider : public Control {
  public:
    Slider(Container& parent, const std::string& name);
    int value() const;
    void setValue(int value);
    int minimum() const;
    int maximum() const;
    void setRange(int minimum, int maximum, int smallChange, int largeChange);
    std::function<void()> onChange;
    std::function<void()> onScroll;   ///< while the thumb is dragged
};

}  // namespace platform
