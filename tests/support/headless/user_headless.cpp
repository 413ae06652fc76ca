#include <stdexcept>
#include <utility>

#include "platform/headless/basic_windows.h"
#include "platform/headless/desk.h"
#include "platform/headless/event.h"
#include "platform/headless/toolbar_window.h"
#include "platform/headless/user_control_window.h"
#include "tests/support/user.h"

namespace user {

using namespace platform;
using headless::Desk;
using headless::raise;

namespace {

/// The window behind a control that a person can act on.
template <class Window>
Window& reach(const Control& control) {
    if (!reachable(control)) throw std::logic_error("nobody can reach " + control.name());
    return static_cast<Window&>(control.native());
}

/// The same, after the click or key press that gives it the focus.
template <class Window>
Window& focus(const Control& control) {
    Window& window = reach<Window>(control);
    Desk::instance().setFocus(&window);
    return reach<Window>(control);  // who lost the focus may have changed it
}

void require(bool possible, const char* what) {
    if (!possible) throw std::logic_error(what);
}

Toolbar::Button pressable(Toolbar& toolbar, const std::string& key) {
    auto& window = reach<headless::ToolbarWindow>(toolbar);
    const int index = toolbar.indexOf(key);
    require(index > 0 && window.at(index).enabled, "no such button, or it is disabled");
    return window.at(index).button;
}

/// A drag of the thumb, or clicks that move a bar by `change` each.
void move(Control& bar, int change, int count) {
    auto& window = focus<headless::RangeWindow>(bar);
    for (int i = 0; i < std::abs(count); ++i) window.set(window.value + (count < 0 ? -change : change));
}

Picture pictureOf(const Surface& surface) {
    Picture picture{surface.size(), {}};
    for (int y = 0; y < picture.size.height; ++y)
        picture.pixels.insert(picture.pixels.end(), surface.row(y), surface.row(y) + picture.size.width);
    return picture;
}

}  // namespace

bool reachable(const Control& control) {
    return control.native().usable() && Desk::instance().takesInput(control.native());
}

void press(Button& button) {
    focus<headless::ButtonWindow>(button);
    raise(button.onClick);
}

void check(CheckBox& box, bool on) {
    auto& window = focus<headless::CheckBoxWindow>(box);
    if (window.checked == on) return;
    window.checked = on;
    raise(box.onClick);
}

void type(TextBox& box, const std::string& text) {
    auto& window = focus<headless::TextBoxWindow>(box);
    require(window.style == TextBox::Style::edit, "the text box is read only");
    window.typed(text);
}

void type(ComboBox& box, const std::string& text) {
    auto& window = focus<headless::ComboBoxWindow>(box);
    require(window.style == ComboBox::Style::editable, "the combo box takes no text");
    window.typed(text);
}

void commit(TextBox& box) {
    focus<headless::TextBoxWindow>(box).entered();
}

void choose(ComboBox& box, int index) {
    auto& window = focus<headless::ComboBoxWindow>(box);
    headless::checkIndex(index, 0, box.count() - 1);
    window.choose(index);
}

void selectTab(TabStrip& tabs, int index) {
    auto& window = reach<headless::TabStripWindow>(tabs);
    headless::checkIndex(index, 1, tabs.count());
    if (std::exchange(window.selected, index) != index) raise(tabs.onClick);
}

void scroll(ScrollBar& bar, int value) {
    reach<headless::ScrollBarWindow>(bar).draggedTo(value);
}

void step(ScrollBar& bar, int count) {
    move(bar, bar.smallChange(), count);
}

void page(ScrollBar& bar, int count) {
    move(bar, bar.largeChange(), count);
}

void slide(Slider& slider, int value) {
    focus<headless::SliderWindow>(slider).draggedTo(value);
}

void press(Toolbar& toolbar, const std::string& key) {
    raise(toolbar.onButtonClick, pressable(toolbar, key));
}

void chooseMenu(Toolbar& toolbar, const std::string& parentKey, const std::string& entryKey) {
    const Toolbar::Button parent = pressable(toolbar, parentKey);
    for (const Toolbar::MenuEntry& entry : parent.menu)
        if (entry.key == entryKey) return raise(toolbar.onMenuClick, parent, entry);
    throw std::logic_error("no such menu entry: " + entryKey);
}

void mouseDown(UserControl& control, MouseButton button, int shift, Point point) {
    reach<headless::UserControlWindow>(control).mouseDown(button, shift, point);
}

void mouseMove(UserControl& control, MouseButton button, int shift, Point point) {
    reach<headless::UserControlWindow>(control);
    raise(control.onMouseMove, button, shift, point);
}

void mouseUp(UserControl& control, MouseButton button, int shift, Point point) {
    reach<headless::UserControlWindow>(control).mouseUp(button, shift, point);
}

void wheel(UserControl& control, int notches, int shift, Point point) {
    reach<headless::UserControlWindow>(control);
    raise(control.onWheel, notches, shift, point);
}

void key(UserControl& control, int key, int shift) {
    focus<headless::UserControlWindow>(control).form()->keyDown(key, shift);
}

void key(Form& form, int key, int shift) {
    reach<headless::FormWindow>(form).keyDown(key, shift);
}

std::vector<std::string> mnemonics(const Control& control) {
    return control.native().mnemonics();
}

void takeCapture(UserControl& control) {
    if (Desk::instance().capture() == &control.native()) Desk::instance().setCapture(nullptr);
}

void resize(Form& form, Size client) {
    reach<headless::FormWindow>(form).resizeByUser(client);
}

bool close(Form& form) {
    send(form, headless::closeMessage, 0, 0);
    return !form.loaded();
}

void drop(Form& form, const std::vector<std::string>& paths) {
    if (static_cast<headless::FormWindow&>(form.native()).open()) raise(form.onFilesDropped, paths);
}

void send(Form& form, std::uint32_t message, std::uintptr_t wParam, std::intptr_t lParam) {
    static_cast<headless::FormWindow&>(form.native()).dispatch(message, wParam, lParam);
}

void pump() {
    Desk::instance().pump();
}

bool pumpUntil(const std::function<bool()>& condition, int milliseconds) {
    const auto end = Desk::instance().now() + milliseconds;
    do {
        pump();
        if (condition()) return true;
    } while (Desk::instance().tickNext(end));
    Desk::instance().setNow(end);
    return condition();
}

void tick(Timer& timer) {
    if (timer.native().ticking()) Desk::instance().tick(timer.native());
}

ModalUser::ModalUser(std::function<void(Form&)> act) {
    require(!Desk::instance().modalUser, "there is one person only");
    Desk::instance().modalUser = std::move(act);
}

ModalUser::~ModalUser() {
    Desk::instance().modalUser = nullptr;
}

std::vector<Control*> childrenOf(const Control& control) {
    std::vector<Control*> controls;
    for (const Control::Native* child : control.native().children) controls.push_back(child->control);
    return controls;
}

Picture screen(UserControl& control) {
    require(control.native().seen(), "the control is not in view");
    control.update();
    return pictureOf(static_cast<headless::UserControlWindow&>(control.native()).screen());
}

Picture printed(UserControl& control) {
    const Rect bounds = control.bounds();
    Surface surface({bounds.width(), bounds.height()});
    Canvas canvas(surface);
    raise(control.onPaint, canvas);
    return pictureOf(surface);
}

}  // namespace user
