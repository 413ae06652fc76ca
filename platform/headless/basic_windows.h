#pragma once

#include <string>
#include <vector>

#include "platform/basic_controls.h"
#include "platform/headless/window.h"

/// The basic controls in memory. Their functions named by what a user does raise what that raises.
namespace platform::headless {

struct ButtonWindow : Control::Native {
    using Native::Native;
    KeyUse keyUse() const override { return KeyUse::press; }
    std::vector<std::string> mnemonics() const override { return {mnemonic}; }
    void key(int key, int shift) override;

    std::string mnemonic;
    std::string keyHint;
    std::uint32_t backColour = 0x8000000F;
};

struct LabelWindow : Control::Native {
    using Native::Native;
    std::vector<std::string> mnemonics() const override;

    std::string text;
    Label::Style style = Label::Style::mnemonic;
};

struct TextBoxWindow : Control::Native {
    using Native::Native;
    void focusLost() override;
    KeyUse keyUse() const override;
    void key(int key, int shift) override;
    void typed(const std::string& newText);
    void entered();
    /// As the box can hold it.
    std::string held(const std::string& given) const;

    std::string text;
    TextBox::Style style = TextBox::Style::edit;
    bool changed = false;  ///< by the user, since the last commit
};

struct CheckBoxWindow : Control::Native {
    using Native::Native;
    KeyUse keyUse() const override { return KeyUse::press; }
    std::vector<std::string> mnemonics() const override { return {mnemonic}; }
    void key(int key, int shift) override;

    std::string mnemonic;
    bool checked = false;
};

struct ComboBoxWindow : Control::Native {
    using Native::Native;
    void choose(int index);
    void typed(const std::string& newText);
    KeyUse keyUse() const override;
    void key(int key, int shift) override;

    ComboBox::Style style = ComboBox::Style::list;
    std::vector<std::string> items;
    int chosen = -1;
    std::string text;  ///< of an editable one
    int dropDownWidth = 0;
};

struct TabStripWindow : Control::Native {
    using Native::Native;
    std::vector<std::string> mnemonics() const override { return tabs; }

    std::vector<std::string> tabs;  ///< with their access keys
    int selected = 1;
};

/// A value within a range, as the scroll bar and the slider have one.
struct RangeWindow : Control::Native {
    using Native::Native;
    virtual void changed() const = 0;
    virtual void scrolled() const = 0;
    int within(int wanted) const;
    /// Raises `changed` when that makes a difference.
    void set(int wanted);
    void setRange(int least, int most);

    int value = 0;
    int minimum = 0;
    int maximum = 100;
    int smallChange = 1;
    int largeChange = 10;
};

struct ScrollBarWindow : RangeWindow {
    using RangeWindow::RangeWindow;
    void changed() const override;
    void scrolled() const override;
    void draggedTo(int wanted);  ///< and let go
};

struct SliderWindow : RangeWindow {
    using RangeWindow::RangeWindow;
    KeyUse keyUse() const override { return KeyUse::range; }
    void changed() const override;
    void scrolled() const override;
    void draggedTo(int wanted);
};

struct ProgressBarWindow : Control::Native {
    using Native::Native;
    int value = 0;
    int maximum = 100;
    bool marquee = false;
};

}  // namespace platform::headless
