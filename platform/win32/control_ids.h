#pragma once

#include <string_view>

/// Every child control has a fixed number, by which screen readers, scripts and tests find it. A control
/// whose name is not listed cannot be made. Numbers stay when a control goes; new ones come at the end.
namespace platform::win32 {

struct ControlId {
    std::string_view name;
    int id;
};

inline constexpr ControlId controlIds[] = {
    // the editor's frame
    {"lblSets", 1000},
    {"cboSets", 1001},
    {"btnSave", 1002},
    {"btnGrab", 1003},
    {"btnOK", 1004},
    {"btnAbbr", 1005},
    {"TabStrip1", 1006},
    {"kvBar2", 1007},
    {"kvBar3", 1008},
    {"lblHint", 1009},
    {"fraWait", 1010},
    {"lblWait", 1011},
    {"btnWait", 1012},
    // the page of files
    {"fraFiles", 1100},
    {"lblPath", 1101},
    {"txtPath", 1102},
    {"btnPath", 1103},
    {"ListView1", 1104},
    {"btn", 1105},
    {"btn_A", 1107},
    {"btnR", 1108},
    {"btnRA", 1109},
    {"ListView2", 1110},
    {"chkDouble", 1111},
    {"txtPicCount", 1112},
    // the page of classes
    {"fraClasses", 1200},
    {"lvCClasses", 1201},
    {"btnCNew", 1202},
    {"btnCDel", 1203},
    {"btnCRename", 1204},
    {"btnCStd", 1205},
    {"lblCDescription", 1206},
    {"txtCDescription", 1207},
    {"lblStdClass", 1208},
    {"cboStdClass", 1209},
    // the page of regions
    {"fraROIs", 1300},
    {"lvROIs", 1301},
    {"btnROINew", 1302},
    {"btnROIDel", 1303},
    {"btnROIRename", 1304},
    {"lblROIDescription", 1305},
    {"txtROIDescription", 1306},
    {"lblROICaption", 1307},
    {"lblX", 1308},
    {"txtX", 1309},
    {"lblY", 1310},
    {"txtY", 1311},
    {"lblDX", 1312},
    {"txtDX", 1313},
    {"lblDY", 1314},
    {"txtDY", 1315},
    // items, picture and class buttons
    {"lblROI", 1400},
    {"cboROI", 1401},
    {"lblItems", 1402},
    {"lvCItems", 1403},
    {"Toolbar1", 1404},
    {"txtTime", 1405},
    {"Slider1", 1406},
    {"kvPictureBox1", 1407},
    {"HScroll1", 1408},
    {"VScroll1", 1409},
    {"kvButtonList1", 1410},
    {"txtInfo", 1411},
    {"txtSize", 1412},
    {"chkStretch", 1413},
    // dialogs
    {"lblTop", 1500},
    {"lblQuestion", 1501},
    {"btnSearch", 1502},
    {"btnDel", 1503},
    {"lblROIName", 1504},
    {"kvProgressBar1", 1505},
    {"txtOut", 1506},
    {"btnCancel", 1507},
};

/// A column of buttons counts its slots: "Command1(3)".
struct ControlSeries {
    std::string_view name;
    int firstId;
    int count;
};

inline constexpr ControlSeries controlSeries[] = {{"Command1", 2000, 1000}};

int controlId(std::string_view name);

/// What answers for a name that is not listed; throws std::logic_error unless another program, whose
/// controls have names of their own, puts in something else. Returns the one before.
using UnlistedControl = int (*)(std::string_view name);
UnlistedControl setUnlistedControl(UnlistedControl answer);

}  // namespace platform::win32
