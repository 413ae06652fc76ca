// The regions: their list and names, the chooser that says whose classes are shown, and what the picture
// control reports of them. Row k of the list is entry k of the chooser; entry 0 is the whole picture.
#include <algorithm>
#include <initializer_list>

#include "editor/frmStich.h"
#include "editor/mListView.h"
#include "editor/region_placement.h"
#include "model/set_file_names.h"
#include "platform/dialogs.h"
#include "platform/text.h"

namespace editor {

std::vector<RegionRect> frmStich::rectangles() const {
    std::vector<RegionRect> result;
    for (int row = 1; row <= set_.regionCount(); ++row) {
        const auto r = kvPictureBox1.regionRect(row);
        result.push_back({r.left, r.top, r.width(), r.height()});
    }
    return result;
}

void frmStich::showRegions() {
    mListView::UnselectAll(lvROIs);
    lvROIs.setCount(set_.regionCount());
    std::vector<std::string> names{std::string(model::set_file::wholePicture)};
    for (int row = 1; row <= set_.regionCount(); ++row) names.push_back(set_.regionRow(row).name);
    cboROI.clear();
    cboROI.add(names);
    cboROI.setListIndex(0);
}

void frmStich::cboROI_Click() {
    if (cboROI.listIndex() < 0) return;
    kvPictureBox1.ROI_Select(cboROI.listIndex());
}

void frmStich::kvPictureBox1_ROIselect(std::int32_t index, std::int32_t X, std::int32_t Y, std::int32_t dX,
                                       std::int32_t dY) {
    showRegion(index);
    if (index > 0) {
        showGeometry(X, Y, dX, dY);
        if (!lvROIs.selected(index)) lvROIs.selectOnly(index);
    } else {
        mListView::UnselectAll(lvROIs);
    }
    // A press in the picture may leave other regions marked there: choosing this one unmarks them.
    cboROI.setListIndex(index);
    lvCItems.redrawAll();
    lvCClasses.redrawAll();  // it counts the classes of this region
    ShowInfoLine();
    EnableToolbar1(set_.sampleCount() > 0);
}

void frmStich::showRegion(int row) {
    selectedRegion_ = row;
    for (platform::Control* control : std::initializer_list<platform::Control*>{
             &txtROIDescription, &btnROIDel, &btnROIRename, &txtX, &txtY, &txtDX, &txtDY}) {
        control->setEnabled(row > 0);
    }
    txtROIDescription.setText(row > 0 ? set_.regionRow(row).description : "");
    lblROICaption.setCaption("Bereich: " + (row > 0 ? set_.regionRow(row).name : "(kein)"));
    if (row > 0) return;
    for (platform::TextBox* box : {&txtX, &txtY, &txtDX, &txtDY}) box->setText("");
}

void frmStich::showGeometry(std::int32_t X, std::int32_t Y, std::int32_t dX, std::int32_t dY) {
    txtX.setText(std::to_string(X));
    txtY.setText(std::to_string(Y));
    txtDX.setText(std::to_string(dX));
    txtDY.setText(std::to_string(dY));
}

void frmStich::regionChanged(std::int32_t X, std::int32_t Y, std::int32_t dX, std::int32_t dY) {
    set_.regionMoved();
    showGeometry(X, Y, dX, dY);
}

// A picture smaller than those before it moves regions for all of them; that is not to happen unnoticed.
void frmStich::regionsBroughtIn() {
    set_.regionMoved();
    if (selectedRegion_ == 0) return;
    const auto now = kvPictureBox1.regionRect(selectedRegion_);
    showGeometry(now.left, now.top, now.width(), now.height());
}

bool frmStich::endEdits() {
    moveRegion();
    const bool named = lvCClasses.endEdit();
    return lvROIs.endEdit() && named;
}

// A number that was typed moves the region; what is none, or no size, is put back.
void frmStich::moveRegion() {
    if (selectedRegion_ == 0) return;
    const auto before = kvPictureBox1.regionRect(selectedRegion_);
    const auto read = [](const platform::TextBox& box) { return platform::text::parseInt32(box.text()); };
    const auto x = read(txtX), y = read(txtY), width = read(txtDX), height = read(txtDY);
    const bool isSame =
        x == before.left && y == before.top && width == before.width() && height == before.height();
    if (isSame) return;
    const bool fits = x && y && width && height && *width > 0 && *height > 0 && kvPictureBox1.PicWidth() > 0;
    if (!fits) return showGeometry(before.left, before.top, before.width(), before.height());

    std::int32_t X = *x, Y = *y, dX = *width, dY = *height;
    if (dX != before.width()) dX = std::min(dX, kvPictureBox1.PicWidth());
    // Beyond the lower edge the control would let it grow.
    if (dY != before.height()) dY = std::min(dY, std::max(1, kvPictureBox1.PicHeight() - before.top));
    kvPictureBox1.ROI_Move(static_cast<std::int16_t>(selectedRegion_), X, Y, dX, dY);
    const auto now = kvPictureBox1.regionRect(selectedRegion_);
    if (now != before) set_.regionMoved();
    showGeometry(now.left, now.top, now.width(), now.height());
}

void frmStich::btnROINew_Click() {
    if (set_.sampleCount() == 0) {
        say("Sie haben keine Stichprobenelemente festgelegt.\r\n"
            "Bitte wechseln Sie zur Registrierkarte \"" +
                TabStrip1.tab(1) + "\".",
            platform::message::exclamation);
        return;
    }
    int number = set_.regionCount() + 1;
    while (set_.findRegion(model::set_file::defaultRegionName(number)) != 0) ++number;
    const std::string name = model::set_file::defaultRegionName(number);

    // Regions are seen and drawn at full size only.
    if (chkStretch.checked()) {
        chkStretch.setChecked(false);
        kvPictureBox1.Stretch(false);
    }
    const auto place = newRegion({kvPictureBox1.PicWidth(), kvPictureBox1.PicHeight()},
                                 kvPictureBox1.seenOfPicture(), rectangles());
    set_.addRegion(name);
    lvROIs.setCount(set_.regionCount());
    cboROI.add(name);
    kvPictureBox1.ROI_Add(place.X, place.Y, place.dX, place.dY);
    editName(lvROIs);
}

void frmStich::btnROIDel_Click() {
    const int row = mListView::GetSelectedIndex(lvROIs);
    if (row == 0) return;
    const bool isLast = row == set_.regionCount();
    set_.removeRegion(row);
    kvPictureBox1.ROI_Remove(static_cast<std::int16_t>(row - 1));
    lvROIs.setCount(set_.regionCount());
    cboROI.remove(row);
    kvPictureBox1.ROI_Select(isLast ? row - 1 : row);
}

void frmStich::btnROIRename_Click() {
    editName(lvROIs);
}

bool frmStich::lvROIs_AfterLabelEdit(int row, const std::string& text) {
    if (text.empty()) return false;
    if (set_.findRegion(text, row) != 0) return refuseName(lvROIs, row);
    set_.renameRegion(row, text);
    cboROI.replace(row, text);
    showRegion(selectedRegion_);
    ShowInfoLine();
    return true;
}

void frmStich::lvROIs_KeyDown(int key) {
    const int row = mListView::GetSelectedIndex(lvROIs);
    if (row == 0) return;
    if (key == platform::keyCode::f2) btnROIRename_Click();
    if (key == platform::keyCode::del && confirmDeletion(set_.regionRow(row).name)) btnROIDel_Click();
}

void frmStich::describeRegion() {
    if (selectedRegion_ == 0) return;
    set_.describeRegion(selectedRegion_, txtROIDescription.text());
    lvROIs.redraw(selectedRegion_);
}

}  // namespace editor
