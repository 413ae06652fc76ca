#include "editor/frmStich.h"

#include <cstring>

#include "editor/startup.h"
#include "model/set_file_names.h"
#include "platform/application.h"
#include "platform/dialogs.h"
#include "platform/metrics.h"

namespace editor {

namespace {

using platform::ComboBox;
using platform::Label;
using platform::ListView;
using platform::SplitterBar;
using platform::TextBox;

constexpr platform::Size minimumTrackSize{640, 400};
constexpr auto rightAligned = ListView::Align::right;

// The slide show's interval, milliseconds.
constexpr int shortestInterval = 100;
constexpr int longestInterval = 10000;
constexpr int intervalStep = 100;
constexpr int intervalPage = 1000;
constexpr int firstInterval = 1000;

constexpr int keepEvery = 2000;     // milliseconds between two looks at what is not saved
constexpr int readAheadEvery = 20;  // milliseconds between two looks at what is decoded meanwhile

}  // namespace

std::unique_ptr<shell::EditorWindow> makeWindow(const shell::Environment& environment) {
    return std::make_unique<frmStich>(environment);
}

frmStich::frmStich(const shell::Environment& environment)
    : form("frmStich", "Stichprobe", {.clientSize = {1100, 700}}),
      lblSets(form, "lblSets", "Stich&probe:"),
      cboSets(form, "cboSets", ComboBox::Style::editable),
      btnSave(form, "btnSave", "&Speichern"),
      btnGrab(form, "btnGrab", "&Grab"),
      btnOK(form, "btnOK", "&OK"),
      btnAbbr(form, "btnAbbr", "&Abbrechen"),
      TabStrip1(form, "TabStrip1", {"Sti&chprobe anlegen", "&Klassen", "&Bereiche"}),
      fraFiles(form, "fraFiles"),
      lblPath(fraFiles, "lblPath", "&Quellverzeichnis:"),
      txtPath(fraFiles, "txtPath", TextBox::Style::readOnly),
      btnPath(fraFiles, "btnPath", "..."),
      ListView1(fraFiles, "ListView1", {{"Name", 14}, {"Größe", 8, rightAligned}, {"Datum", 15}},
                {.multiSelect = true}),
      btn(fraFiles, "btn", ">"),
      btn_A(fraFiles, "btn_A", ">>"),
      btnR(fraFiles, "btnR", "<"),
      btnRA(fraFiles, "btnRA", "<<"),
      ListView2(fraFiles, "ListView2", {{"Name", 14}, {"Verzeichnis", 8}}, {.multiSelect = true}),
      chkDouble(fraFiles, "chkDouble", "gleiche Datei &mehrfach"),
      txtPicCount(fraFiles, "txtPicCount", TextBox::Style::readOnly),
      fraClasses(form, "fraClasses"),
      lvCClasses(fraClasses, "lvCClasses",
                 {{"Name", 11},
                  {"Nr.", 3, rightAligned},
                  {"Standard", 8},
                  {"Beschreibung", 11},
                  {"Anzahl", 6, rightAligned}},
                 {.editLabels = true}),
      btnCNew(fraClasses, "btnCNew", "&Neu"),
      btnCDel(fraClasses, "btnCDel", "&Löschen"),
      btnCRename(fraClasses, "btnCRename", "&Umbenennen"),
      btnCStd(fraClasses, "btnCStd", "S&tandard"),
      lblCDescription(fraClasses, "lblCDescription", "B&eschreibung:"),
      txtCDescription(fraClasses, "txtCDescription"),
      lblStdClass(fraClasses, "lblStdClass", "Stan&dardklasse:"),
      cboStdClass(fraClasses, "cboStdClass", ComboBox::Style::list),
      fraROIs(form, "fraROIs"),
      lvROIs(fraROIs, "lvROIs", {{"Name", 18}, {"Beschreibung", 23}}, {.editLabels = true}),
      btnROINew(fraROIs, "btnROINew", "&Neu"),
      btnROIDel(fraROIs, "btnROIDel", "&Löschen"),
      btnROIRename(fraROIs, "btnROIRename", "&Umbenennen"),
      lblROIDescription(fraROIs, "lblROIDescription", "B&eschreibung:"),
      txtROIDescription(fraROIs, "txtROIDescription"),
      lblROICaption(fraROIs, "lblROICaption", {}, Label::Style::plain),
      lblX(fraROIs, "lblX", "&X:"),
      txtX(fraROIs, "txtX"),
      lblY(fraROIs, "lblY", "&Y:"),
      txtY(fraROIs, "txtY"),
      lblDX(fraROIs, "lblDX", "&dX:"),
      txtDX(fraROIs, "txtDX"),
      lblDY(fraROIs, "lblDY", "dY (&H):"),
      txtDY(fraROIs, "txtDY"),
      kvBar3(form, "kvBar3", SplitterBar::Direction::horizontal),
      lblROI(form, "lblROI", "Be&reich:"),
      cboROI(form, "cboROI", ComboBox::Style::list),
      lvCItems(form, "lvCItems",
               {{"Element", 20}, {"Klasse", 13}, {"Verzeichnis", 14}, {"Nr.", 6, rightAligned}}, {}),
      kvBar2(form, "kvBar2", SplitterBar::Direction::vertical),
      Toolbar1(form, "Toolbar1"),
      txtTime(form, "txtTime", {}, Label::Style::plain),
      Slider1(form, "Slider1"),
      kvPictureBox1(form, "kvPictureBox1"),
      kvButtonList1(form, "kvButtonList1"),
      lblHint(form, "lblHint", {}, Label::Style::plain),
      txtInfo(form, "txtInfo", TextBox::Style::readOnly),
      txtSize(form, "txtSize", TextBox::Style::readOnly),
      chkStretch(form, "chkStretch", "e&inpassen"),
      fraWait(form, "fraWait"),
      lblWait(fraWait, "lblWait", {}, Label::Style::plain),
      kvProgressBar1(fraWait, "kvProgressBar1"),
      btnWait(fraWait, "btnWait", "Abbrechen"),
      Datei1("*.bmp;*.jpg"),
      Timer1(form),
      Timer2(form),
      Timer3(form),
      Timer4(form),
      kvSubClassing1(form),
      environment_(environment),
      registry_(environment.registryRoot),
      journal_(environment.journalDirectory) {
    constexpr int countColumn = 5;
    lvCClasses.moveColumn(countColumn, 3);  // where it is seen without scrolling
    kvBar2.setPosition(475);
    kvBar3.setPosition(360);
    Slider1.setRange(shortestInterval, longestInterval, intervalStep, intervalPage);
    Slider1.setValue(firstInterval);
    connect();
    connectLists();
    connectPicture();
    Form_Initialize();
}

frmStich::~frmStich() = default;

void frmStich::Form_Initialize() {
    kvSubClassing1.watch(platform::getMinMaxInfoMessage);
    SetPicSize(0, 0, 0, 0);
    SetItemCount(0);
    enableClassButtons();
    showRegion(0);
    lblHint.setVisible(false);
    fraWait.setVisible(false);

    btn.setToolTip("ausgewählte Bilder aufnehmen");
    btn_A.setToolTip("alle Bilder aufnehmen");
    btnR.setToolTip("ausgewählte Bilder entfernen");
    btnRA.setToolTip("alle Bilder entfernen");
    btnPath.setToolTip("Quellverzeichnis wählen");
    btnGrab.setToolTip("Bilder aufnehmen");
    chkStretch.setToolTip("Bild ganz zeigen, so groß wie möglich");
    TabStrip1.setAccessibleName("Seiten");
    Toolbar1.setAccessibleName("Blättern und Ausschneiden");
    ListView1.setAccessibleName("Bilder des Quellverzeichnisses");
    ListView2.setAccessibleName("Bilder der Stichprobe");
    lvCClasses.setAccessibleName("Klassen");
    lvROIs.setAccessibleName("Bereiche");
    lvCItems.setAccessibleName("Elemente und ihre Klassen");
    txtPicCount.setAccessibleName("Anzahl der Elemente");
    Slider1.setAccessibleName("Zeit je Bild");
    kvPictureBox1.setAccessibleName("Bild");
    kvProgressBar1.setAccessibleName("Fortschritt");
    kvButtonList1.ShowDigits(true);
    kvButtonList1.setAccessibleName("Klassen zuweisen");
    txtInfo.setAccessibleName("Bereich und Datei");
    txtSize.setAccessibleName("Größe des Bildes");

    Timer1.setInterval(50);
    Timer1.setEnabled(true);
    Timer4.setInterval(environment_.journalDirectory.empty() ? 0 : keepEvery);
    Timer4.setEnabled(true);
}

void frmStich::connect() {
    form.onResize = [this] { Form_Resize(); };
    form.onKeyDown = [this](int code, int shift, auto focus) { return Form_KeyDown(code, shift, focus); };
    form.onQueryUnload = [this] { return Form_QueryUnload(); };
    form.onUnload = [this] { Form_Unload(); };
    form.onFilesDropped = [this](const auto& paths) { filesDropped(paths); };
    kvSubClassing1.onMessage = [this](auto window, auto message, auto wParam, auto& lParam, auto& handled) {
        sizeLimits(window, message, wParam, lParam, handled);
    };
    Timer1.onTick = [this] { Timer1_Tick(); };
    Timer4.onTick = [this] { Timer4_Tick(); };
    kvBar2.onMove = [this] { layOut(); };
    kvBar3.onMove = [this] { layOut(); };

    cboSets.onClick = [this] { cboSets_Click(); };
    cboSets.onChange = [this] { cboSets_Change(); };
    btnSave.onClick = [this] { btnSave_Click(); };
    btnGrab.onClick = [this] { btnGrab_Click(); };
    btnOK.onClick = [this] { btnOK_Click(); };
    btnAbbr.onClick = [this] { btnAbbr_Click(); };
    btnWait.onClick = [this] { waitGivenUp_ = true; };
    TabStrip1.onClick = [this] { TabStrip1_Click(); };

    btnPath.onClick = [this] { btnPath_Click(); };
    Datei1.onPathChange = [this] { Datei1_PathChange(); };
    Datei1.onPatternChange = [this] { Datei1_PathChange(); };
    btn.onClick = [this] { btn_Click(); };
    btn_A.onClick = [this] { btn_A_Click(); };
    btnR.onClick = [this] { btnR_Click(); };
    btnRA.onClick = [this] { btnRA_Click(); };
    chkDouble.onClick = [this] { chkDouble_Click(); };

    btnCNew.onClick = [this] { btnCNew_Click(); };
    btnCDel.onClick = [this] { btnCDel_Click(); };
    btnCRename.onClick = [this] { btnCRename_Click(); };
    btnCStd.onClick = [this] { btnCStd_Click(); };
    cboStdClass.onClick = [this] { cboStdClass_Click(); };
    txtCDescription.onChange = [this] { describeClass(); };

    btnROINew.onClick = [this] { btnROINew_Click(); };
    btnROIDel.onClick = [this] { btnROIDel_Click(); };
    btnROIRename.onClick = [this] { btnROIRename_Click(); };
    txtROIDescription.onChange = [this] { describeRegion(); };
    for (platform::TextBox* box : {&txtX, &txtY, &txtDX, &txtDY}) box->onCommit = [this] { moveRegion(); };
    cboROI.onClick = [this] { cboROI_Click(); };
}

void frmStich::connectPicture() {
    kvButtonList1.Click = [this](std::int16_t& index) { kvButtonList1_Click(index); };
    kvPictureBox1.LoadPicture = [this](std::int32_t& width, std::int32_t& height, std::int32_t& planes,
                                       std::int32_t&) {
        SetPicSize(width, height, planes, kvPictureBox1.pictureDepth());
    };
    kvPictureBox1.ROIselect = [this](std::int32_t& index, std::int32_t& X, std::int32_t& Y, std::int32_t& dX,
                                     std::int32_t& dY) { kvPictureBox1_ROIselect(index, X, Y, dX, dY); };
    kvPictureBox1.ROImove = [this](std::int32_t&, std::int32_t& X, std::int32_t& Y, std::int32_t& dX,
                                   std::int32_t& dY) { regionChanged(X, Y, dX, dY); };
    kvPictureBox1.waitFor = [this](platform::BackgroundTask& task) { return waitForPicture(task); };
    kvPictureBox1.onRegionsBroughtIn = [this] { regionsBroughtIn(); };
    kvPictureBox1.onLoadFailed = [this](const std::string& reason) {
        SetPicSize(0, 0, 0, 0);
        tell(reason);
    };
    chkStretch.onClick = [this] { kvPictureBox1.Stretch(chkStretch.checked()); };

    Toolbar1.onButtonClick = [this](const platform::Toolbar::Button& button) {
        Toolbar1_ButtonClick(button.key);
    };
    Toolbar1.onMenuClick = [this](const auto&, const platform::Toolbar::MenuEntry& entry) {
        Toolbar1_MenuClick(entry);
    };
    Slider1.onChange = [this] { Slider1_Change(); };
    Slider1.onScroll = [this] { Slider1_Change(); };
    Timer2.onTick = [this] { Timer2_Tick(); };
    Timer3.setInterval(readAheadEvery);
    Timer3.onTick = [this] {
        if (!showingItem_) Timer3.setEnabled(kvPictureBox1.FetchOn());
    };
}

void frmStich::Form_Resize() {
    makeIcons();
    layOut();
}

// Some controls know their size only once they are on the screen.
void frmStich::Timer1_Tick() {
    if (++layoutTicks_ <= 2) {
        layOut();
    } else {
        Timer1.setEnabled(false);
    }
}

void frmStich::sizeLimits(std::intptr_t, std::uint32_t message, std::uintptr_t, std::intptr_t& lParam,
                          std::int16_t& handled) {
    if (message != platform::getMinMaxInfoMessage) return;
    platform::SizeLimits limits;
    std::memcpy(&limits, reinterpret_cast<const void*>(lParam), sizeof limits);
    limits.minTrackSize = {minimumTrackSize.width, minimumTrackSize.height};
    std::memcpy(reinterpret_cast<void*>(lParam), &limits, sizeof limits);
    handled = -1;
}

void frmStich::TabStrip1_Click() {
    const int page = TabStrip1.selected();
    fraFiles.setVisible(page == 1);
    fraClasses.setVisible(page == 2);
    fraROIs.setVisible(page == 3);
}

void frmStich::offerWholePicture() {
    cboROI.add(std::string(model::set_file::wholePicture));
    cboROI.setListIndex(0);
}

void frmStich::useDirectories(const shell::Directories& directories) {
    dataDirectory_ = directories.data;
    setsDirectory_ = directories.sets;
    canCutOut_ = FileExists(shell::programFile(environment_, shell::extractionScript));
}

int frmStich::say(const std::string& text, int codes) {
    return platform::showMessage(&form, {text, codes, form.caption()});
}

}  // namespace editor
