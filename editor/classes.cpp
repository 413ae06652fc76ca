// The classes: their list, their names and descriptions, and the standard class. The class buttons and the
// chooser of the standard class show the same classes in the same order.
#include "editor/frmStich.h"
#include "editor/mListView.h"
#include "model/set_file_names.h"
#include "platform/dialogs.h"

namespace editor {

namespace {

namespace message = platform::message;

}  // namespace

bool frmStich::refuseName(platform::ListView& list, int row) {
    say("Bezeichnung ist bereits vorhanden.\r\nBitte geben Sie eine eindeutige Bezeichnung ein!",
        message::critical);
    list.editLabel(row);
    return false;
}

void frmStich::editName(platform::ListView& list) {
    const int row = mListView::GetSelectedIndex(list);
    if (row == 0) return;
    list.focus();
    list.editLabel(row);
}

bool frmStich::confirmDeletion(const std::string& name) {
    return say("Soll \"" + name + "\" wirklich gelöscht werden?", message::yesNo | message::question) ==
           message::yes;
}

void frmStich::showClasses() {
    selectedClass_ = 0;
    mListView::UnselectAll(lvCClasses);
    lvCClasses.setCount(set_.classCount());
    std::vector<std::string> names;
    for (int row = 1; row <= set_.classCount(); ++row) names.push_back(set_.classRow(row).name);
    cboStdClass.clear();
    cboStdClass.add(names);
    kvButtonList1.SetAll(names);
    showStandardClass();
    txtCDescription.setText("");
    enableClassButtons();
    if (set_.classCount() > 0) {  // what is typed as a description is one of a class
        lvCClasses.selectOnly(1);
        lvCClasses_ItemClick(1);
    }
    layOut();
}

void frmStich::enableClassButtons() {
    btnCDel.setEnabled(set_.classCount() >= 2);
    txtCDescription.setEnabled(set_.classCount() >= 1);
}

// Choosing in the list by the program must not run the chooser's own handling.
void frmStich::showStandardClass() {
    suppressChooser_ = true;
    cboStdClass.setListIndex(set_.standardClass() < cboStdClass.count() ? set_.standardClass() : -1);
    suppressChooser_ = false;
}

void frmStich::btnCNew_Click() {
    int number = set_.classCount() + 1;
    while (set_.findClass(model::set_file::defaultClassName(number)) != 0) ++number;
    const std::string name = model::set_file::defaultClassName(number);

    set_.addClass(name);
    const int row = set_.classCount();
    lvCClasses.setCount(row);
    kvButtonList1.Add(name, "", "");
    cboStdClass.add(name);
    if (row == 1) {  // it is the standard class, and that of all samples
        showStandardClass();
        lvCItems.redrawAll();
    }
    enableClassButtons();
    layOut();

    lvCClasses.selectOnly(row);
    lvCClasses_ItemClick(row);
    editName(lvCClasses);
}

void frmStich::btnCRename_Click() {
    editName(lvCClasses);
}

bool frmStich::lvCClasses_AfterLabelEdit(int row, const std::string& text) {
    if (text.empty()) return false;
    if (set_.findClass(text, row) != 0) return refuseName(lvCClasses, row);
    set_.renameClass(row, text);
    cboStdClass.replace(row - 1, text);
    kvButtonList1.Rename(static_cast<std::int16_t>(row - 1), text);
    lvCItems.redrawAll();
    layOut();
    return true;
}

void frmStich::lvCClasses_KeyDown(int key) {
    const int row = mListView::GetSelectedIndex(lvCClasses);
    if (row == 0) return;
    if (key == platform::keyCode::f2) btnCRename_Click();
    const bool deletes = key == platform::keyCode::del && btnCDel.enabled();
    if (deletes && confirmDeletion(set_.classRow(row).name)) btnCDel_Click();
}

void frmStich::btnCDel_Click() {
    const int row = mListView::GetSelectedIndex(lvCClasses);
    if (row == 0) return;
    const int last = set_.classCount();
    int standard = set_.standardClass();
    if ((standard == row - 1 && row == last) || standard == last - 1 || last == 2) standard = 0;

    set_.removeClass(row, standard);
    kvButtonList1.Remove(static_cast<std::int16_t>(row - 1));
    cboStdClass.remove(row - 1);
    lvCClasses.setCount(set_.classCount());
    enableClassButtons();
    showStandardClass();

    const int next = row == last ? row - 1 : row;
    mListView::UnselectAll(lvCClasses);
    if (next > 0) lvCClasses.selectOnly(next);
    lvCClasses_ItemClick(next);
    layOut();
    cboROI_Click();
}

void frmStich::btnCStd_Click() {
    const int row = mListView::GetSelectedIndex(lvCClasses);
    if (row == 0) return;
    if (lvCItems.count() == 0) {
        SetStdClass(true);
        return;
    }
    const int answer = say(
        "Soll gleichzeitig allen Stichprobenelementen \"" + set_.classRow(row).name + "\" zugewiesen werden?",
        message::yesNoCancel | message::question | message::defaultButton2);
    if (answer != message::cancel) SetStdClass(answer == message::yes);
}

void frmStich::SetStdClass(bool assignAll) {
    const int row = mListView::GetSelectedIndex(lvCClasses);
    if (row == 0) return;
    set_.setStandardClass(row - 1);
    lvCClasses.redrawAll();
    showStandardClass();
    if (!assignAll) return;
    if (cboROI.listIndex() >= 0) set_.assignAll(cboROI.listIndex(), static_cast<std::int16_t>(row - 1));
    cboROI_Click();
}

void frmStich::cboStdClass_Click() {
    if (suppressChooser_) return;
    lvCClasses.selectOnly(cboStdClass.listIndex() + 1);
    lvCClasses_ItemClick(cboStdClass.listIndex() + 1);
    SetStdClass(false);
}

void frmStich::lvCClasses_ItemClick(int row) {
    selectedClass_ = row;
    txtCDescription.setText(row == 0 ? "" : set_.classRow(row).description);
}

// How many samples carry the class in the region that is chosen.
std::string frmStich::samplesText(int row) const {
    const int region = cboROI.listIndex();
    return region < 0 ? std::string()
                      : std::to_string(set_.samplesOf(static_cast<std::int16_t>(row - 1), region));
}

// One label more and one less. A page that is not seen asks anew when it comes to the screen.
void frmStich::showCounts(std::int16_t before, std::int16_t now) {
    if (before == now || !fraClasses.visible()) return;
    for (const int index : {before, now})
        if (index < lvCClasses.count()) lvCClasses.redraw(index + 1);
}

void frmStich::describeClass() {
    if (selectedClass_ == 0) return;
    set_.describeClass(selectedClass_, txtCDescription.text());
    lvCClasses.redraw(selectedClass_);
}

}  // namespace editor
