// The regions: their list and names, the chooser that says whose classes are shown, and what the picture
// control reports of them. Row k of the list is entry k of the chooser; entry 0 is the whole picture.
#include "editor/frmStich.h"
#include "editor/mListView.h"
#include "model/set_file_names.h"

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
    if (suppressChooser_ || cboROI.listIndex() < 0) return;
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
    suppressChooser_ = true;
    cboROI.setListIndex(index);
    suppressChooser_ = false;
    lvCItems.redrawAll();
    ShowInfoLine();
    EnableToolbar1(set_.sampleCount() > 0);
}

void frmStich::showRegion(int row) {
    selectedRegion_ = row;
    for (platform::Control* control :
         {static_cast<platform::Control*>(&txtROIDescription), static_cast<platform::Control*>(&btnROIDel),
          static_cast<platform::Control*>(&btnROIRename)}) {
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
