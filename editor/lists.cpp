// What the lists show, and what is heard from them.
#include "editor/frmStich.h"
#include "editor/icons.h"
#include "editor/list_texts.h"
#include "platform/path.h"
#include "platform/text.h"

namespace editor {

namespace {

using platform::ListView;
using platform::MouseButton;
using platform::Point;

enum SourceSubItem { fileName, fileSize, fileDate };
enum ItemSubItem { itemName, itemClass, itemDirectory, itemNumber };
enum ClassSubItem { className, classNumber, standardMark, classDescription, classSamples };

int kindOf(const std::string& name) {
    const bool isBitmap = platform::text::equalNoCase(platform::path::extension(name), ".bmp");
    return isBitmap ? pictureKind::bitmap : pictureKind::jpeg;
}

}  // namespace

void frmStich::connectLists() {
    connectSourceList();
    connectSampleLists();

    lvCClasses.cell = [this](int row, int subItem) -> std::string {
        switch (subItem) {
            case className:
                return set_.classRow(row).name;
            case classNumber:
                return std::to_string(row);
            case standardMark:
                return row - 1 == set_.standardClass() ? "Standard" : "";
            case classDescription:
                return set_.classRow(row).description;
            case classSamples:
                return samplesText(row);
            default:
                return {};
        }
    };
    lvCClasses.onItemClick = [this](int row) { lvCClasses_ItemClick(row); };
    lvCClasses.onDoubleClick = [this](int) { btnCRename_Click(); };
    lvCClasses.onKeyDown = [this](int key, int) { lvCClasses_KeyDown(key); };
    lvCClasses.onLabelEdited = [this](int row, const std::string& text) {
        return lvCClasses_AfterLabelEdit(row, text);
    };

    lvROIs.cell = [this](int row, int subItem) {
        return subItem == 0 ? set_.regionRow(row).name : set_.regionRow(row).description;
    };
    lvROIs.onItemClick = [this](int row) { kvPictureBox1.ROI_Select(row); };
    lvROIs.onDoubleClick = [this](int) { btnROIRename_Click(); };
    lvROIs.onKeyDown = [this](int key, int) { lvROIs_KeyDown(key); };
    lvROIs.onLabelEdited = [this](int row, const std::string& text) {
        return lvROIs_AfterLabelEdit(row, text);
    };
}

void frmStich::connectSourceList() {
    ListView1.cell = [this](int row, int subItem) -> std::string {
        const auto& file = sourceFiles_[static_cast<std::size_t>(row - 1)];
        switch (subItem) {
            case fileName:
                return file.name;
            case fileSize:
                return sizeText(file.size);
            case fileDate:
                return dateText(file.modified);
            default:
                return {};
        }
    };
    ListView1.icon = [this](int row) { return kindOf(sourceFiles_[static_cast<std::size_t>(row - 1)].name); };
    ListView1.onColumnClick = [this](int column) { ListView1_ColumnClick(column); };
    ListView1.onItemClick = [this](int row) { ListView1_ItemClick(row); };
    ListView1.onDoubleClick = [this](int) { btn_Click(); };
    ListView1.onKeyDown = [this](int key, int) {
        if (key == platform::keyCode::enter) btn_Click();
    };
    watchShift(ListView1);
}

void frmStich::connectSampleLists() {
    ListView2.cell = [this](int row, int subItem) {
        return subItem == 0 ? set_.sampleName(row) : set_.sampleDirectory(row);
    };
    ListView2.icon = [this](int row) { return kindOf(set_.sampleName(row)); };
    ListView2.onItemClick = [this](int row) { ListView2_ItemClick(row); };
    ListView2.onKeyDown = [this](int key, int) {
        if (key == platform::keyCode::del) btnR_Click();
    };
    watchShift(ListView2);

    lvCItems.cell = [this](int row, int subItem) -> std::string {
        switch (subItem) {
            case itemName:
                return set_.sampleName(row);
            case itemClass:
                return classText(row);
            case itemDirectory:
                return set_.sampleDirectory(row);
            case itemNumber:
                return std::to_string(row);
            default:
                return {};
        }
    };
    lvCItems.icon = ListView2.icon;
    lvCItems.onItemClick = [this](int row) { lvCItems_ItemClick(row); };
}

std::string frmStich::classText(int row) const {
    const int region = cboROI.listIndex();
    if (region < 0) return {};
    const int classIndex = set_.classOf(row, region);
    return classIndex < set_.classCount() ? set_.classRow(classIndex + 1).name : std::string();
}

// While Shift is held a range is being selected: no picture is loaded for its rows.
void frmStich::watchShift(ListView& list) {
    list.onMouseDown = [this](MouseButton, int shift, Point) { sourceShift_ = shift; };
    list.onMouseUp = [this](MouseButton, int, Point) { sourceShift_ = 0; };
    list.onKeyDown = [this, otherKeys = list.onKeyDown](int key, int shift) {
        sourceShift_ = shift;
        if (otherKeys) otherKeys(key, shift);
    };
    list.onKeyUp = [this](int, int) { sourceShift_ = 0; };
}

}  // namespace editor
