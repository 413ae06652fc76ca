// The keys that work wherever the focus is. A control in which text is typed keeps what can be typed, a
// button its Space, and a list the keys that move in it.
#include <optional>

#include "editor/frmStich.h"
#include "editor/mListView.h"
#include "platform/application.h"
#include "platform/dialogs.h"
#include "shell/data_directory.h"

namespace editor {

namespace {

using platform::KeyUse;
namespace key = platform::keyCode;
namespace application = platform::application;

/// The class button that a digit stands for, from 0.
std::optional<int> buttonOf(int code) {
    const bool isNumpad = code >= key::numpad0 && code <= key::numpad0 + 9;
    const int digit = code - (isNumpad ? key::numpad0 : '0');
    if (digit < 0 || digit > 9) return std::nullopt;
    return digit == 0 ? 9 : digit - 1;
}

/// The button of the player bar that leads to the same picture.
const char* stepOf(int code) {
    switch (code) {
        case key::pageUp:
            return "btnR";
        case key::pageDown:
            return "btnF";
        case key::home:
            return "btnFR";
        case key::end:
            return "btnFF";
        default:
            return nullptr;
    }
}

bool keepsSteps(KeyUse focus) {
    return focus == KeyUse::reading || focus == KeyUse::rows || focus == KeyUse::range;
}

/// A key that is held down repeats steps, but nothing that is done once.
bool isHeld() {
    const auto press = application::currentPress();
    return press && press->kind == application::Press::Kind::held;
}

}  // namespace

bool frmStich::Form_KeyDown(int code, int shift, KeyUse focus) {
    if (isBusy()) return false;
    if ((shift & platform::shiftKey::control) != 0) return controlKey(code, shift);
    if (shift != 0) return false;
    if (code == key::f1) {
        if (!isHeld()) showManual();
        return true;
    }
    if (focus == KeyUse::text) return false;
    if (const auto button = buttonOf(code)) return pressClassButton(*button);
    if (code == key::space) return toggleShow(focus);
    if (code == key::up || code == key::left) return kvButtonList1.MoveFocus(-1);
    if (code == key::down || code == key::right) return kvButtonList1.MoveFocus(1);
    const char* step = stepOf(code);
    // Rows of the item list are pictures: there a step is one, too.
    if (step == nullptr || (keepsSteps(focus) && !lvCItems.focused())) return false;
    Toolbar1_ButtonClick(step);
    return true;
}

bool frmStich::controlKey(int code, int shift) {
    const bool withShift = shift == (platform::shiftKey::control | platform::shiftKey::shift);
    if (code == key::tab) {
        turnPage(withShift ? -1 : 1);
        return true;
    }
    if (shift != platform::shiftKey::control) return false;
    if (code == 'S') {
        if (!isHeld() && btnSave.enabled()) btnSave_Click();
        return true;
    }
    if (code != key::pageUp && code != key::pageDown) return false;
    kvButtonList1.ScrollPages(code == key::pageUp ? -1 : 1);
    return true;
}

void frmStich::turnPage(int by) {
    const int count = TabStrip1.count();
    TabStrip1.select((TabStrip1.selected() - 1 + by + count) % count + 1);
    TabStrip1.focus();  // from there the Tab key goes into the page
    TabStrip1_Click();
}

// Where no item is current, as while a file of the source folder is looked at, there is nothing to label, and
// lists look for names that begin with the digit.
bool frmStich::pressClassButton(int button) {
    if (mListView::GetSelectedIndex(lvCItems) == 0) return false;
    kvButtonList1.PressShown(button);
    return true;
}

// Where one row at most is chosen it is so already; elsewhere Space chooses.
bool frmStich::toggleShow(KeyUse focus) {
    const bool chooses = ListView1.focused() || ListView2.focused();
    if (focus == KeyUse::press || chooses) return false;
    if (!isHeld() && lvCItems.count() > 0) runShow(!showRuns_);
    return true;
}

void frmStich::showManual() {
    const std::string file = shell::programFile(environment_, "Anleitung.html");
    if (FileExists(file)) return application::open(file);
    say("Die Anleitung wurde nicht gefunden:\r\n" + file, platform::message::exclamation);
}

}  // namespace editor
