// What the random user does.
#include <algorithm>
#include <numeric>

#include "platform/application.h"
#include "platform/text.h"
#include "random_user.h"

namespace {

namespace keyCode = platform::keyCode;
namespace message = platform::message;

constexpr int mostSamples = 12, mostClasses = 6, mostRegions = 3;

const char* const classNames[] = {"gut", "GUT", "Riß", "Pore", " \"R&D\" ", "a=b;[c]", "Ωmega", "Klasse2"};
const char* const texts[] = {"", "zweite", " mit Rand ", "\"Zitat\"", "[x];=", "Ω"};
const char* const numbers[] = {"0", "2", "-5", "7", "99999999999", "x", ""};
const char* const setNames[] = {"A", "b", "C", "Neu", "Ärger", "", "was?", "Ende."};
const char* const players[] = {"btnFR", "btnR", "btnF", "btnFF", "btnLoop", "btnStop", "btnPath"};
constexpr int movingKeys[] = {keyCode::up, keyCode::down, keyCode::left, keyCode::right};

struct Step {
    int weight;  // its share of all steps
    const char* name;
    void (*act)(Person& p, editor::frmStich& w);
};

const Step steps[] = {
    // Samples
    {3, "browse", [](auto& p, auto& w) { p.press(w.btnPath); }},
    {6, "click a source file", [](auto& p, auto& w) { p.click(w.ListView1); }},
    {2, "sort",
     [](auto& p, auto& w) { p.turnTo(w.ListView1), user::clickColumn(w.ListView1, 1 + p.below(3)); }},
    {4, "add", [](auto& p, auto& w) { p.press(w.btn); }},
    {2, "add all", [](auto& p, auto& w) { p.press(w.btn_A); }},
    {2, "add by double click", [](auto& p, auto& w) { p.click(w.ListView1, true); }},
    {6, "click a sample", [](auto& p, auto& w) { p.click(w.ListView2); }},
    {2, "key in the samples", [](auto& p, auto& w) { p.strike(w.ListView2, p.pick(movingKeys)); }},
    {3, "remove", [](auto& p, auto& w) { p.press(w.btnR); }},
    {1, "remove by key", [](auto& p, auto& w) { p.strike(w.ListView2, keyCode::del); }},
    {1, "remove all", [](auto& p, auto& w) { p.press(w.btnRA); }},
    {3, "duplicates", [](auto& p, auto& w) { p.turnTo(w.btnRA), user::check(w.chkDouble, p.below(2) == 0); }},
    // Classes
    {5, "new class", [](auto& p, auto&) { p.newClass(); }},
    {6, "click a class", [](auto& p, auto& w) { p.click(w.lvCClasses); }},
    {3, "rename a class", [](auto& p, auto& w) { p.press(w.btnCRename); }},
    {2, "rename a class by key", [](auto& p, auto& w) { p.strike(w.lvCClasses, keyCode::f2); }},
    {2, "rename a class by double click", [](auto& p, auto& w) { p.click(w.lvCClasses, true); }},
    {3, "delete a class", [](auto& p, auto&) { p.deleteClass(false); }},
    {3, "delete a class by key", [](auto& p, auto&) { p.deleteClass(true); }},
    {4, "describe a class", [](auto& p, auto& w) { p.type(w.txtCDescription, p.pick(texts)); }},
    {4, "make it the standard class", [](auto& p, auto&) { p.makeStandard(); }},
    {3, "choose the standard class", [](auto& p, auto& w) { p.choose(w.cboStdClass); }},
    // Regions
    {2, "new region", [](auto& p, auto&) { p.newRegion(); }},
    {4, "click a region", [](auto& p, auto& w) { p.click(w.lvROIs); }},
    {1, "rename a region", [](auto& p, auto& w) { p.press(w.btnROIRename); }},
    {1, "rename a region by key", [](auto& p, auto& w) { p.strike(w.lvROIs, keyCode::f2); }},
    {1, "rename a region by double click", [](auto& p, auto& w) { p.click(w.lvROIs, true); }},
    {1, "delete a region", [](auto& p, auto&) { p.deleteRegion(false); }},
    {1, "delete a region by key", [](auto& p, auto&) { p.deleteRegion(true); }},
    {3, "describe a region", [](auto& p, auto& w) { p.type(w.txtROIDescription, p.pick(texts)); }},
    {1, "type X", [](auto& p, auto& w) { p.type(w.txtX, p.pick(numbers)); }},
    {1, "type dY", [](auto& p, auto& w) { p.type(w.txtDY, p.pick(numbers)); }},
    {4, "drag in the picture", [](auto& p, auto&) { p.drag(); }},
    {2, "key in the picture",
     [](auto& p, auto& w) { user::key(w.kvPictureBox1, p.pick(movingKeys), p.below(2)); }},
    {6, "choose a region", [](auto& p, auto& w) { p.choose(w.cboROI); }},
    // Labelling
    {15, "press a class", [](auto& p, auto&) { p.pressAClass(); }},
    {8, "click an item", [](auto& p, auto& w) { p.click(w.lvCItems); }},
    {3, "key in the items", [](auto& p, auto& w) { p.strike(w.lvCItems, p.pick(movingKeys)); }},
    {6, "player",
     [](auto& p, auto& w) {
         const std::string key = p.pick(players);
         if (w.Toolbar1.enabled(w.Toolbar1.indexOf(key))) user::press(w.Toolbar1, key);
     }},
    {3, "tick", [](auto&, auto& w) { user::tick(w.Timer2); }},
    {1, "stretch", [](auto& p, auto& w) { user::check(w.chkStretch, p.below(2) == 0); }},
    // Sets
    {2, "type a name", [](auto& p, auto& w) { user::type(w.cboSets, p.pick(setNames)); }},
    {3, "save", [](auto& p, auto& w) { user::press(w.btnSave), p.saved.reset(); }},  // to be read again
    {4, "choose a set", [](auto& p, auto&) { p.chooseSet(); }},
    {1, "move a picture", [](auto& p, auto&) { p.movePicture(); }},
    {1, "close", [](auto& p, auto&) { p.close(); }},
};

const Step emptied{0, "remove all, as there are many", [](auto& p, auto& w) { p.press(w.btnRA); }};

const Step& stepAt(int place) {
    const Step* step = steps;
    while (place >= step->weight) place -= (step++)->weight;
    return *step;
}

}  // namespace

void Person::step() {
    static const int weights = std::accumulate(std::begin(steps), std::end(steps), 0,
                                               [](int sum, const Step& step) { return sum + step.weight; });
    const bool many = window().set().sampleCount() > mostSamples;
    const Step& chosen = many ? emptied : stepAt(below(weights));
    const std::string_view name = chosen.name;
    removes = name.starts_with("remove") || name == "duplicates";
    note(chosen.name);
    chosen.act(*this, window());
    nameIfAsked(window().lvCClasses);
    nameIfAsked(window().lvROIs);
}

void Person::turnTo(const platform::Control& control) {
    for (int page = 1; page <= 3 && !user::reachable(control); ++page)
        user::selectTab(window().TabStrip1, page);
}

void Person::click(platform::ListView& list, bool twice) {
    turnTo(list);
    const int shifts[] = {0, 0, 0, platform::shiftKey::shift, platform::shiftKey::control};
    const int row = below(list.count() + 1);
    note("  row " + std::to_string(row));
    if (twice)
        user::doubleClickRow(list, row);
    else
        user::clickRow(list, row, pick(shifts));
}

void Person::strike(platform::ListView& list, int key) {
    turnTo(list);
    if (user::editing(list)) user::abandonEdit(list);
    user::key(list, key);
}

void Person::press(platform::Button& button) {
    turnTo(button);
    if (user::reachable(button)) user::press(button);
}

void Person::type(platform::TextBox& box, const std::string& text) {
    turnTo(box);
    if (!user::reachable(box)) return;
    user::type(box, text);
    user::commit(box);
}

void Person::choose(platform::ComboBox& box) {
    turnTo(box);
    if (box.count() > 0) user::choose(box, below(box.count()));
}

// Finishes it, perhaps by a name that is refused, gives it up, or lets it be and does something else.
void Person::nameIfAsked(platform::ListView& list) {
    while (user::editing(list) && below(4) > 0) {
        if (below(4) == 0) return user::abandonEdit(list);
        const int row = list.firstSelected();
        const std::string before = user::shown(list, row, 0);
        user::finishEdit(list, pick(classNames));
        note("  \"" + before + "\" becomes \"" + user::shown(list, row, 0) + "\"");
        if (&list == &window().lvCClasses) relabel(before, user::shown(list, row, 0));
    }
}

void Person::newClass() {
    auto& w = window();
    if (w.set().classCount() >= mostClasses) return;
    press(w.btnCNew);
    if (w.set().classCount() == 1) relabel("", w.set().classRow(1).name);
}

void Person::deleteClass(bool byKey) {
    auto& w = window();
    const int row = w.lvCClasses.firstSelected();
    const int before = w.set().classCount();
    const std::string name = row > 0 ? w.set().classRow(row).name : "";
    byKey ? strike(w.lvCClasses, keyCode::del) : press(w.btnCDel);
    if (w.set().classCount() < before) relabel(name, w.set().classRow(w.set().standardClass() + 1).name);
}

void Person::makeStandard() {
    auto& w = window();
    const int row = w.lvCClasses.firstSelected();
    answered = message::yes;  // of an empty set nobody asks
    press(w.btnCStd);
    if (row == 0 || answered != message::yes) return;
    const auto region = static_cast<std::size_t>(w.cboROI.listIndex());
    for (Content::Sample& sample : expected) sample.classes[region] = w.set().classRow(row).name;
}

void Person::newRegion() {
    auto& w = window();
    const int before = w.set().regionCount();
    if (before >= mostRegions) return;
    press(w.btnROINew);
    if (w.set().regionCount() == before) return;
    const std::string first = w.set().classCount() > 0 ? w.set().classRow(1).name : "";
    for (Content::Sample& sample : expected) sample.classes.push_back(first);
}

void Person::deleteRegion(bool byKey) {
    auto& w = window();
    const int chosen = w.cboROI.listIndex();
    const int before = w.set().regionCount();
    byKey ? strike(w.lvROIs, keyCode::del) : press(w.btnROIDel);
    if (w.set().regionCount() == before) return;
    for (Content::Sample& sample : expected) sample.classes.erase(sample.classes.begin() + chosen);
}

void Person::drag() {
    auto& picture = window().kvPictureBox1;
    const auto anywhere = [&] {
        return platform::Point{picture.OffsetX() + below(picture.PicWidth() + 4) - 2,
                               picture.OffsetY() + below(picture.PicHeight() + 4) - 2};
    };
    const auto button = below(4) == 0 ? platform::MouseButton::right : platform::MouseButton::left;
    user::mouseDown(picture, button, 0, anywhere());
    for (int moves = below(4); moves > 0; --moves) {
        user::mouseMove(picture, button, 0, anywhere());
        if (below(6) == 0) user::tick(window().Timer2);
        if (below(8) == 0) user::takeCapture(picture);
        if (below(8) == 0) user::key(picture, keyCode::escape);
    }
    user::mouseUp(picture, button, 0, anywhere());
}

// At times so fast that the next picture is chosen already, but not seen: the press then means none.
void Person::pressAClass() {
    auto& w = window();
    if (w.kvButtonList1.count() == 0) return;
    const std::string name = "Command1(" + std::to_string(below(w.kvButtonList1.count())) + ")";
    auto& button = user::find<platform::Button>(w.form, name);
    const auto region = static_cast<std::size_t>(w.cboROI.listIndex());
    note("  " + button.caption() + " for " + std::to_string(current()));
    if (current() == 0 || below(4) > 0) {
        if (current() > 0)
            expected[static_cast<std::size_t>(current() - 1)].classes[region] = button.caption();
        return user::press(button);
    }
    platform::application::post(w.form, [&button] { user::press(button); });
    user::clickRow(w.lvCItems, 1 + below(w.lvCItems.count()));
}

template <class Act>
void Person::leave(bool mayAsk, Act leaving) {
    const bool mustAsk = mayAsk && wouldLose();
    const bool mustNot = window().unchanged();
    asked = false;
    leaving();
    if (mustAsk && !asked) fail("changes were lost without a question");
    if (mustNot && asked) fail("there was nothing to ask");
}

void Person::chooseSet() {
    auto& w = window();
    const int index = below(w.cboSets.count());
    note("  " + w.cboSets.item(index));
    const bool another = !platform::text::equalNoCase(w.cboSets.item(index), w.cboSets.text());
    leave(another, [&] { user::choose(w.cboSets, index); });
    expected = contentOf(w).samples;
}

// Somebody else does, behind the editor's back.
void Person::movePicture() {
    const std::string name = "\\bild" + std::to_string(1 + below(4)) + ".bmp";
    std::string from = folder.file("Picture\\A" + name);
    std::string to = folder.file("Umzug" + name);
    if (below(2) == 0) std::swap(from, to);
    if (!platform::files::fileExists(from) || platform::files::fileExists(to)) return;
    platform::files::replace(to, platform::files::read(from));
    platform::files::remove(from);
}

void Person::close() {
    auto& w = window();
    if (below(4) == 0)
        user::press(w.btnAbbr);
    else
        leave(true, [&] { below(2) == 0 ? user::press(w.btnOK) : static_cast<void>(user::close(w.form)); });
    if (!w.form.loaded()) open(below(2) == 0 ? "A" : "");
}

void Person::open(const std::string& name) {
    note("  starts it with \"" + name + "\"");
    restart(name.empty() ? name : setFile(name));
    if (!window().form.visible()) return open("");  // nobody wanted the set without its pictures
    saved.reset();
    if (!name.empty()) saved = stored(name);
    expected = contentOf(window()).samples;
}
