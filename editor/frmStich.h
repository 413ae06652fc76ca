#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/buttonlist/kvButtonList.h"
#include "controls/picturebox/kvPictureBox.h"
#include "editor/file_list_box.h"
#include "editor/journal.h"
#include "editor/open_set.h"
#include "editor/set_file.h"
#include "editor/set_io.h"
#include "platform/background_task.h"
#include "platform/basic_controls.h"
#include "platform/canvas.h"
#include "platform/form.h"
#include "platform/list_view.h"
#include "platform/registry.h"
#include "platform/splitter_bar.h"
#include "platform/timer.h"
#include "platform/toolbar.h"
#include "shell/editor_window.h"
#include "shell/environment.h"
#include "shell/frmError.h"
#include "shell/frmSave.h"
#include "shell/settings.h"

namespace editor {

struct Reading;

/// The editor's window. Each task of the user has a source file of its own: opening, switching and saving
/// sets (sets.cpp, load_set.cpp, close.cpp), making one from files (create_set.cpp), its classes
/// (classes.cpp) and regions (regions.cpp), labelling (assign.cpp), browsing (browse.cpp) and the keys that
/// work everywhere (keys.cpp).
///
/// The set itself is one OpenSet. `lvCItems` and `ListView2` show the same rows of it, so they cannot get
/// out of step; the region rectangles are the picture control's. Rows count from 1 everywhere here.
class frmStich : public shell::EditorWindow, private shell::RegionSource {
  public:
    explicit frmStich(const shell::Environment& environment);
    ~frmStich() override;

    // Start-up and closing ------------------------------------------------------------------------------
    platform::Form& window() override { return form; }
    platform::Toolbar& pictureToolbar() override { return Toolbar1; }
    void toolbarReady() override;
    void ReadProp() override;
    void WriteProp();
    void offerWholePicture() override;
    void enableGrab(bool available) override { btnGrab.setEnabled(available); }
    void useDirectories(const shell::Directories& directories) override;
    void browse(const std::string& directory) override;
    void TabStrip1_Click() override;

    // Sets ----------------------------------------------------------------------------------------------
    /// Lists the sets directory; with `fill` every name also goes into the chooser.
    void SearchSets(bool fill) override;
    void cboSets_Change() override;
    void clearSetName() override;
    void offerLeftSets() override;
    /// Opens a set file, takes what was open before out of the window, and answers how the missing-files
    /// dialog was left (0 when nothing was missing), or 3 when the set was not opened; what was open then
    /// still is.
    std::int16_t LoadFile(const std::string& path) override;
    std::int16_t CheckItems();
    /// Saves the set under a name, after all questions; true when it was written.
    bool SaveSetAs(const std::string& name);
    static std::string CheckPath(const std::string& path);
    static bool FileExists(const std::string& file);

    // Classes -------------------------------------------------------------------------------------------
    void btnCNew_Click() override;
    void btnCDel_Click();
    void btnCRename_Click();
    void btnCStd_Click();
    void SetStdClass(bool assignAll) override;

    // Regions -------------------------------------------------------------------------------------------
    void btnROINew_Click();
    void btnROIDel_Click();
    void btnROIRename_Click();
    void cboROI_Click();

    // Samples -------------------------------------------------------------------------------------------
    void btn_Click();
    void btn_A_Click();
    void btnR_Click();
    void btnRA_Click();
    void chkDouble_Click();

    // Labelling and browsing ----------------------------------------------------------------------------
    void kvButtonList1_Click(std::int16_t classIndex);
    void lvCItems_ItemClick(int row);
    void ListView2_ItemClick(int row);
    void GoToItem(int row);
    /// The full path of a row of `ListView2`.
    std::string ItemPath(int row) const { return set_.samplePath(row); }
    /// The row of `ListView2` with this path, -1 when there is none or duplicates are allowed.
    int FindItemByPath(const std::string& path) const;
    void NumberItems();
    void SetItemCount(int count);
    void SetPicSize(int width, int height, int planes, int bitsPerPixel);
    int ShowInfoLine();
    void EnableToolbar1(bool enable);
    void Slider1_Change() override;
    void Timer2_Tick();

    /// Class of a sample in a region of the chooser, both as the lists count them; the class from 0.
    std::int16_t ItemClasses(int row, int region) const { return set_.classOf(row, region); }
    const OpenSet& set() const { return set_; }
    bool unchanged() const { return set_.unchanged(); }
    Journal& journal() { return journal_; }

    // Controls, in the order of the Tab key --------------------------------------------------------------
    platform::Form form;
    platform::Label lblSets;
    platform::ComboBox cboSets;
    platform::Button btnSave, btnGrab, btnOK, btnAbbr;
    platform::TabStrip TabStrip1;

    platform::Panel fraFiles;
    platform::Label lblPath;
    platform::TextBox txtPath;
    platform::Button btnPath;
    platform::ListView ListView1;
    platform::Button btn, btn_A, btnR, btnRA;
    platform::ListView ListView2;
    platform::CheckBox chkDouble;
    platform::TextBox txtPicCount;

    platform::Panel fraClasses;
    platform::ListView lvCClasses;
    platform::Button btnCNew, btnCDel, btnCRename, btnCStd;
    platform::Label lblCDescription;
    platform::TextBox txtCDescription;
    platform::Label lblStdClass;
    platform::ComboBox cboStdClass;

    platform::Panel fraROIs;
    platform::ListView lvROIs;
    platform::Button btnROINew, btnROIDel, btnROIRename;
    platform::Label lblROIDescription;
    platform::TextBox txtROIDescription;
    platform::Label lblROICaption, lblX;
    platform::TextBox txtX;
    platform::Label lblY;
    platform::TextBox txtY;
    platform::Label lblDX;
    platform::TextBox txtDX;
    platform::Label lblDY;
    platform::TextBox txtDY;

    platform::SplitterBar kvBar3;
    platform::Label lblROI;
    platform::ComboBox cboROI;
    platform::ListView lvCItems;

    platform::SplitterBar kvBar2;
    platform::Toolbar Toolbar1;
    platform::Label txtTime;
    platform::Slider Slider1;
    controls::kvPictureBox kvPictureBox1;
    controls::kvButtonList kvButtonList1;
    platform::Label lblHint;
    platform::TextBox txtInfo, txtSize;
    platform::CheckBox chkStretch;

    platform::Panel fraWait;
    platform::Label lblWait;
    platform::ProgressBar kvProgressBar1;
    platform::Button btnWait;

    FileListBox Datei1;
    platform::Timer Timer1, Timer2, Timer3, Timer4;
    platform::Subclassing kvSubClassing1;

  private:
    void connect();
    void connectLists();
    void connectSourceList();
    void connectSampleLists();
    void watchShift(platform::ListView& list);
    std::string classText(int row) const;
    void connectPicture();
    void Form_Initialize();
    void Form_Resize();
    bool Form_KeyDown(int code, int shift, platform::KeyUse focus);
    bool controlKey(int code, int shift);
    void turnPage(int by);
    bool pressClassButton(int button);
    bool toggleShow(platform::KeyUse focus);
    void showManual();
    bool Form_QueryUnload();
    void Form_Unload();
    void Timer1_Tick();
    void layOut();
    void layOutWait(platform::Rect area);
    void layOutTopRow(int left, int right);
    void layOutLeft(platform::Rect area);
    void layOutFiles(int width, int height);
    void layOutClasses(int width, int height);
    void layOutROIs(int width, int height);
    void layOutRight(platform::Rect area);
    int classButtonsWidth(int available) const;
    void makeIcons();
    void sizeLimits(std::intptr_t window, std::uint32_t message, std::uintptr_t wParam, std::intptr_t& lParam,
                    std::int16_t& handled);
    shell::EditorSettings settings() const;

    void cboSets_Click();
    /// Waits until the task has ended: true; or until the user gives up: false. What the task threw comes
    /// out here. Meanwhile nothing else can be done with the window.
    bool waitFor(const std::string& what, platform::BackgroundTask& task);
    bool waitForPicture(platform::BackgroundTask& task);
    void showWaiting(bool waiting);
    bool isBusy() const;
    void leaveMissingFiles();
    void btnSave_Click();
    void btnGrab_Click();
    void btnOK_Click();
    void btnAbbr_Click();
    int say(const std::string& text, int codes);
    bool leaveSet(const std::string& name);
    /// What is found in the sets directory: the names of the sets, and the version of a file that is to be
    /// written there.
    struct Target {
        std::vector<std::string> names;
        std::optional<platform::files::Version> version;
    };
    bool checkName(const std::string& name);
    std::optional<Target> lookAtSets(const std::string& target);
    std::optional<Target> lookAtTarget(const std::string& name);
    bool openInstead(const std::string& file);
    void chooseSet(int index);
    void putChooserBack();
    bool mayReplace(const std::string& name, const Target& target);
    bool write(const std::string& file);
    int listedSet(const std::string& name) const;
    std::string setFile(const std::string& name) const;
    void offerSaved(const std::string& name);
    void widenSetList();

    /// False when the user gave up; what `read` threw comes out here.
    bool readBeside(const std::shared_ptr<Reading>& reading, const std::function<void(Reading&)>& read);
    std::int16_t accept(Reading& reading);
    bool lookForPictures(const PictureFiles& files);
    void showFirstMeanwhile();
    void putPictureBack(const std::string& file);
    void takeOver(OpenSet set, const std::vector<RegionRect>& rectangles);
    std::vector<RegionRect> rectangles() const;
    void showFirstItem();
    void tellStray(int count);
    void dropMissing(const std::vector<shell::frmError::Missing>& missing);
    void removeAllRegions();
    void listMissing(const std::vector<int>& rows);

    void Timer4_Tick();
    std::unique_ptr<JournalFile> offered(const std::function<bool(const SetFile&)>& isMeant);
    std::unique_ptr<JournalFile> offeredFor(const std::string& file);
    /// As LoadFile; empty when what was left cannot be understood.
    std::optional<std::int16_t> restore(std::unique_ptr<JournalFile> left);
    void setAside(JournalFile& left);

    void showClasses();
    std::string samplesText(int row) const;
    void showCounts(std::int16_t before, std::int16_t now);
    void describeClass();
    void lvCClasses_ItemClick(int row);
    bool lvCClasses_AfterLabelEdit(int row, const std::string& text);
    void lvCClasses_KeyDown(int key);
    void cboStdClass_Click();
    void showStandardClass();
    void enableClassButtons();
    bool refuseName(platform::ListView& list, int row);
    void editName(platform::ListView& list);
    bool confirmDeletion(const std::string& name);

    void showRegions();
    void showRegion(int row);
    bool lvROIs_AfterLabelEdit(int row, const std::string& text);
    void lvROIs_KeyDown(int key);
    void describeRegion();
    void moveRegion();
    /// Names and numbers that are being typed count. False while a name is refused.
    bool endEdits();
    void regionsBroughtIn();
    void regionChanged(std::int32_t X, std::int32_t Y, std::int32_t dX, std::int32_t dY);
    void showGeometry(std::int32_t X, std::int32_t Y, std::int32_t dX, std::int32_t dY);
    void kvPictureBox1_ROIselect(std::int32_t index, std::int32_t X, std::int32_t Y, std::int32_t dX,
                                 std::int32_t dY);

    void Datei1_PathChange();
    void btnPath_Click();
    bool readFolder(const std::string& folder);  ///< false when the user gave up
    void showSourceFiles();
    void ListView1_ItemClick(int row);
    void ListView1_ColumnClick(int column);
    void arrangeSourceFiles(const std::vector<int>& order);
    void browseChosen(const std::string& folder);
    struct SampleFile {
        std::string_view directory, name;
    };
    void addSamples(std::size_t count, const std::function<SampleFile(std::size_t)>& file);
    void removeSamples(const std::vector<int>& rows);

    void filesDropped(const std::vector<std::string>& paths);
    void tellUnused(const std::string& reason, const std::vector<std::vector<std::string>>& unused);
    void addFiles(const std::vector<std::string>& files);
    void openDropped(const std::string& file);

    void label(int row, std::int16_t classIndex);
    bool pressIsUnseen() const;
    int showChosen();
    bool showItem(int row);
    void expectAround(int row, int before);
    void showPicture(const std::string& path);
    void tell(const std::string& hint);
    void Toolbar1_ButtonClick(const std::string& key);
    void Toolbar1_MenuClick(const platform::Toolbar::MenuEntry& entry);
    void runShow(bool run);
    void chooseCutOutDirectory();

    // Cutting regions out.
    void saveAsTagged();
    void saveRegions(std::int16_t mode);
    void tellCutOuts(const shell::frmSave& dialog, std::int16_t mode);
    int itemCount() const override { return set_.sampleCount(); }
    int regionCount() const override { return set_.regionCount(); }
    std::string pictureFile() const override { return kvPictureBox1.FileName(); }
    std::int32_t regionState() const override { return kvPictureBox1.ROI(); }
    std::array<std::string, 4> regionDetails() const override;
    std::string regionName() const override { return cboROI.text(); }
    bool isPicture(const std::string& file) const override { return set_.findSample(file) != -1; }
    void selectRegion(int index) override { kvPictureBox1.ROI_Select(index); }
    void showFirstPicture() override { Toolbar1_ButtonClick("btnFR"); }
    void showNextPicture() override { Toolbar1_ButtonClick("btnF"); }

    const shell::Environment& environment_;
    platform::Registry registry_;
    OpenSet set_;
    SetFile openFile_;  // of the set that is open
    Journal journal_;   // of what is not saved of it
    std::unique_ptr<shell::frmError> frmError_;
    shell::frmSave* frmSave_ = nullptr;  // while regions are cut out

    std::string dataDirectory_;  // base of the stored picture paths
    std::string setsDirectory_;  // with a backslash at its end
    std::vector<std::string> setNames_;
    std::string openName_;  // of the set that is open; empty while it has none
    std::string setName_;   // as last committed
    int setIndex_ = -1;
    bool suppressChooser_ = false;

    std::string PathROI_;                              // where cut-outs go
    bool canCutOut_ = false;                           // the script that cuts regions out is there
    int selectedClass_ = 0;                            // row of lvCClasses whose description is shown
    int selectedRegion_ = 0;                           // row of lvROIs, 0 for the whole picture
    std::vector<platform::files::Entry> sourceFiles_;  // rows of ListView1, as they are sorted now
    int sourceShift_ = 0;  // Shift argument of the last mouse-down while the button is held
    bool sortDescending_ = false;
    bool endAgreed_ = false;  // the user may be gone without having been asked
    bool accepting_ = false;  // while what set_ holds may still be refused
    bool waiting_ = false;    // for something that goes on beside the window
    bool searching_ = false;  // the pictures of a set that is not accepted yet
    bool waitGivenUp_ = false;
    bool showingItem_ = false;  // while a picture is on its way to the screen
    std::string hint_;          // told last
    std::string shownFile_;     // name of the picture asked for last, as it is spelled
    int shownRow_ = 0;          // the item whose picture is seen, 0 for none
    std::uint32_t seenAt_ = 0;  // when its picture came to the screen, on the clock of the presses
    int browsing_ = 1;          // the direction in which the user steps through the items: 1 or -1
    bool showRuns_ = false;     // the slide show, also while its timer waits for a picture
    int layoutTicks_ = 0;
    /// Of the icons that are in use: their size in pixels, and the colours that they are drawn on.
    struct IconStyle {
        int size = 0;
        platform::Colour barGround = 0, listGround = 0;
        bool operator==(const IconStyle&) const = default;
    } iconStyle_;
};

}  // namespace editor
