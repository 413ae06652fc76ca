// What always holds in the editor's window, whatever was done with it.
#include <algorithm>

#include "platform/path.h"
#include "platform/text.h"
#include "random_user.h"

namespace {

using editor::frmStich;
using editor::OpenSet;

/// Remembers the first rule that was broken.
class Rules {
  public:
    void hold(bool does, const char* rule) {
        if (!does && broken_ == nullptr) broken_ = rule;
    }
    bool broken() const { return broken_ != nullptr; }
    std::string text() const { return broken_ == nullptr ? std::string() : broken_; }

  private:
    const char* broken_ = nullptr;
};

std::string className(const OpenSet& set, int row, int region) {
    const int index = set.classOf(row, region);
    return index < set.classCount() ? set.classRow(index + 1).name : std::string();
}

void sampleRules(frmStich& w, Rules& rules) {
    const OpenSet& set = w.set();
    const int count = set.sampleCount();
    rules.hold(w.ListView2.count() == count && w.lvCItems.count() == count,
               "the item lists are equally long");
    if (rules.broken()) return;
    for (int row = 1; row <= count; ++row) {
        const std::string name = user::shown(w.lvCItems, row, 0);
        rules.hold(name == user::shown(w.ListView2, row, 0) && name == set.sampleName(row),
                   "the item lists show the samples in their order");
        const std::string directory = user::shown(w.lvCItems, row, 2);
        rules.hold(directory == user::shown(w.ListView2, row, 1) && directory == set.sampleDirectory(row),
                   "the item lists show the same directory");
        rules.hold(user::shown(w.lvCItems, row, 3) == std::to_string(row), "items are numbered");
        rules.hold(user::shown(w.lvCItems, row, 1) == className(set, row, w.cboROI.listIndex()),
                   "the item list shows the class in the chosen region");
        for (int region = 0; region <= set.regionCount(); ++region) {
            const int index = set.classOf(row, region);
            rules.hold(index >= 0 && index < std::max(1, set.classCount()), "every label is a class");
        }
    }
    const int current = w.lvCItems.firstSelected();
    rules.hold(current == 0 || platform::text::equalNoCase(w.kvPictureBox1.FileName(), w.ItemPath(current)),
               "the picture that is seen is the one a class button labels");
    rules.hold(w.txtPicCount.text() == std::to_string(count) + " Elemente", "the samples are counted");
    rules.hold(w.chkDouble.checked() == set.doubleSelection(),
               "the box shows whether duplicates are allowed");
}

void playerRules(frmStich& w, Rules& rules) {
    const bool on = w.set().sampleCount() > 0;
    const auto enabled = [&](const char* key) { return w.Toolbar1.enabled(w.Toolbar1.indexOf(key)); };
    for (const char* key : {"btnFR", "btnR", "btnF", "btnFF"})
        rules.hold(enabled(key) == on, "one can step through the pictures when there are any");
    rules.hold(enabled("btnStop") == w.Timer2.enabled(), "a show that runs can be stopped");
    rules.hold(enabled("btnLoop") == (on && !w.Timer2.enabled()), "a show that does not run can be started");
}

void countRules(frmStich& w, Rules& rules) {
    const OpenSet& set = w.set();
    for (int region = 0; region <= set.regionCount(); ++region) {
        std::vector<int> counted(static_cast<std::size_t>(set.classCount()));
        for (int row = 1; row <= set.sampleCount(); ++row)
            if (set.classOf(row, region) < set.classCount())
                ++counted[static_cast<std::size_t>(set.classOf(row, region))];
        for (int row = 1; row <= set.classCount(); ++row) {
            const int count = counted[static_cast<std::size_t>(row - 1)];
            rules.hold(set.samplesOf(static_cast<std::int16_t>(row - 1), region) == count,
                       "the samples of each class are counted");
            rules.hold(
                region != w.cboROI.listIndex() || user::shown(w.lvCClasses, row, 4) == std::to_string(count),
                "the class list shows the numbers in the chosen region");
        }
    }
}

void classRules(frmStich& w, Rules& rules) {
    const OpenSet& set = w.set();
    const int count = set.classCount();
    rules.hold(
        w.lvCClasses.count() == count && w.cboStdClass.count() == count && w.kvButtonList1.count() == count,
        "class list, class buttons and chooser are equally long");
    if (rules.broken()) return;
    for (int row = 1; row <= count; ++row) {
        const std::string& name = set.classRow(row).name;
        rules.hold(user::shown(w.lvCClasses, row, 0) == name && w.cboStdClass.item(row - 1) == name &&
                       w.kvButtonList1.item(row - 1).Caption == name,
                   "class list, class buttons and chooser show the same classes");
        rules.hold(user::shown(w.lvCClasses, row, 1) == std::to_string(row), "classes are numbered");
        rules.hold(user::shown(w.lvCClasses, row, 2) == (row - 1 == set.standardClass() ? "Standard" : ""),
                   "the standard class is marked");
        rules.hold(set.findClass(name, row) == 0, "every class has a name of its own");
    }
    countRules(w, rules);
    rules.hold(set.standardClass() >= 0 && set.standardClass() < std::max(1, count),
               "the standard class is a class");
    rules.hold(w.cboStdClass.listIndex() == (count == 0 ? -1 : set.standardClass()),
               "the chooser shows the standard class");
    rules.hold(w.btnCDel.enabled() == (count >= 2), "the last class cannot be deleted");
    rules.hold(w.txtCDescription.enabled() == (count >= 1), "a class can be described");
    const int selected = w.lvCClasses.firstSelected();
    rules.hold(selected == 0 || w.txtCDescription.text() == set.classRow(selected).description,
               "the description is that of the selected class");
}

void chosenRegionRules(frmStich& w, int chosen, Rules& rules) {
    const OpenSet& set = w.set();
    const int listed = w.lvROIs.firstSelected();
    rules.hold(listed == 0 || listed == chosen, "the region list marks no other region than the chosen one");
    rules.hold(w.kvPictureBox1.GetSelectedROI() + 1 == chosen, "the picture shows the chosen region");
    rules.hold(w.btnROIDel.enabled() == (chosen > 0) && w.btnROIRename.enabled() == (chosen > 0) &&
                   w.txtROIDescription.enabled() == (chosen > 0),
               "only a region can be deleted, renamed and described");
    const bool any = chosen > 0;
    const std::string name = any ? set.regionRow(chosen).name : "(gesamtes Bild)";
    rules.hold(w.txtROIDescription.text() == (any ? set.regionRow(chosen).description : ""),
               "the description is that of the chosen region");
    const platform::Rect r = any ? w.kvPictureBox1.regionRect(chosen) : platform::Rect{};
    const auto number = [&](int value) { return any ? std::to_string(value) : std::string(); };
    rules.hold(w.txtX.text() == number(r.left) && w.txtY.text() == number(r.top) &&
                   w.txtDX.text() == number(r.width()) && w.txtDY.text() == number(r.height()),
               "the numbers are those of the region in the picture");
    const int current = w.lvCItems.firstSelected();
    const std::string file =
        current > 0 ? set.sampleName(current) : platform::path::fileName(w.kvPictureBox1.FileName());
    rules.hold(platform::text::equalNoCase(w.txtInfo.text(), "Bereich: " + name + "   Datei: " + file),
               "the line under the picture tells region and file");
}

void regionRules(frmStich& w, Rules& rules) {
    const OpenSet& set = w.set();
    rules.hold(w.lvROIs.count() == set.regionCount() && w.cboROI.count() == set.regionCount() + 1,
               "region list and chooser are equally long");
    if (rules.broken()) return;
    for (int row = 1; row <= set.regionCount(); ++row) {
        const std::string& name = set.regionRow(row).name;
        rules.hold(user::shown(w.lvROIs, row, 0) == name && w.cboROI.item(row) == name,
                   "region list and chooser show the same regions");
        rules.hold(user::shown(w.lvROIs, row, 1) == set.regionRow(row).description, "regions are described");
    }
    const int chosen = w.cboROI.listIndex();
    rules.hold(w.cboROI.item(0) == "(gesamtes Bild)" && chosen >= 0, "the whole picture can be chosen");
    if (!rules.broken()) chosenRegionRules(w, chosen, rules);
}

}  // namespace

Content contentOf(const OpenSet& set, const std::vector<editor::RegionRect>& rectangles) {
    Content content;
    content.standardClass = set.standardClass();
    content.doubleSelection = set.doubleSelection();
    for (int row = 1; row <= set.classCount(); ++row)
        content.classes.push_back(set.classRow(row).name + '\n' + set.classRow(row).description);
    for (int row = 1; row <= set.regionCount(); ++row) {
        std::string text = set.regionRow(row).name + '\n' + set.regionRow(row).description;
        const auto& r = rectangles.at(static_cast<std::size_t>(row - 1));
        for (const int number : {r.X, r.Y, r.dX, r.dY}) text += '\n' + std::to_string(number);
        content.regions.push_back(std::move(text));
    }
    for (int row = 1; row <= set.sampleCount(); ++row) {
        content.samples.push_back({set.samplePath(row), {}});
        for (int region = 0; region <= set.regionCount(); ++region)
            content.samples.back().classes.push_back(className(set, row, region));
    }
    return content;
}

Content contentOf(const frmStich& window) {
    std::vector<editor::RegionRect> rectangles;
    for (int row = 1; row <= window.set().regionCount(); ++row) {
        const auto r = window.kvPictureBox1.regionRect(row);
        rectangles.push_back({r.left, r.top, r.width(), r.height()});
    }
    return contentOf(window.set(), rectangles);
}

std::string brokenRule(frmStich& window) {
    Rules rules;
    sampleRules(window, rules);
    playerRules(window, rules);
    classRules(window, rules);
    regionRules(window, rules);
    return rules.text();
}
