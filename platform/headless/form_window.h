#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "platform/form.h"
#include "platform/headless/window.h"

namespace platform {

struct Subclassing::Native {
    headless::FormWindow* form;  ///< null when it is gone
    std::set<std::uint32_t> watched;
    Subclassing* subclassing;
};

namespace headless {

// A monitor and a window border as they are usual at 96 dots per inch.
inline constexpr Size monitor{1920, 1080};
inline constexpr Size border{16, 39};
inline constexpr std::uint32_t closeMessage = 16;

struct FormWindow : Control::Native {
    FormWindow(std::string formName, std::string formCaption, Form::Options wanted);
    ~FormWindow() override;

    Form& form() const { return static_cast<Form&>(*control); }
    bool open() const override { return enabled && modalAbove == 0; }
    Size clientSize() const override;
    void resized() override;

    void setVisible(bool on) override { on ? show() : hide(); }
    void show();
    void hide();  ///< with what it did to its owner
    void blockOwner();
    /// A key goes to the form, and unless that takes it to what has the focus.
    void keyDown(int key, int shift);
    bool unload();
    /// As the user does it by the border: the limits hold.
    void resizeByUser(Size client);
    /// A message from outside, through the subclassings first.
    void dispatch(std::uint32_t message, std::uintptr_t wParam, std::intptr_t lParam);

    std::string caption;
    FormWindow* owner;
    Size minimum;
    int modalAbove = 0;  ///< forms shown modally over this one
    bool loaded = true;
    bool unloading = false;
    bool blocksOwner = false;
    Native* lastFocus = nullptr;                     ///< gets the focus when the form is activated
    std::vector<Subclassing::Native*> subclassings;  ///< the last one sees a message first
};

}  // namespace headless
}  // namespace platform
