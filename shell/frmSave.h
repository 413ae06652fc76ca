#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>

#include "kernel/script_kernel.h"
#include "platform/background_task.h"
#include "platform/basic_controls.h"
#include "platform/form.h"
#include "platform/icon_image.h"
#include "shell/cut_out_names.h"
#include "shell/environment.h"

namespace shell {

/// What the extraction asks of the editor's window. Regions count from 1.
class RegionSource {
  public:
    virtual ~RegionSource() = default;
    virtual int itemCount() const = 0;
    virtual int regionCount() const = 0;
    /// Full path of the picture that is shown.
    virtual std::string pictureFile() const = 0;
    /// The current region, 0 when there is none.
    virtual std::int32_t regionState() const = 0;
    /// X, Y, dX and dY of the region as the window shows them, in picture pixels.
    virtual std::array<std::string, 4> regionDetails() const = 0;
    virtual std::string regionName() const = 0;
    /// Whether the file is one of the set's pictures.
    virtual bool isPicture(const std::string& file) const = 0;
    virtual void selectRegion(int index) = 0;
    virtual void showFirstPicture() = 0;
    virtual void showNextPicture() = 0;
};

/// The extraction dialog: has regions cut out of pictures into new bitmap files by a script.
class frmSave {
  public:
    /// What is cut out.
    static constexpr std::int16_t currentRegion = 0;  ///< of the picture that is shown; no dialog
    static constexpr std::int16_t allRegions = 1;     ///< of the picture that is shown
    static constexpr std::int16_t allRegionsOfAllPictures = 2;

    frmSave(platform::Form& owner, RegionSource& source, const Environment& environment,
            std::string targetDirectory);
    ~frmSave();

    /// Cuts out and returns when it is done or was stopped; files that were written by then stay.
    void SaveROI(std::int16_t mode);
    /// Waits for what the window shows next until it has ended: true; or until the dialog was cancelled:
    /// false.
    bool waitFor(platform::BackgroundTask& task) const;
    /// How many regions could not be cut out in the last run, and the line that says why the first could not;
    /// empty when a kernel of the suite ran, which reports in `txtOut` only.
    int failures() const { return failures_; }
    const std::string& firstFailure() const { return firstFailure_; }
    /// Why the suite's kernel could not be used; empty when there is none, or it could.
    const std::string& kernelNotice() const { return kernelNotice_; }
    /// The file that was to be written last; empty when there was nothing to cut out.
    const std::string& lastTarget() const { return lastTarget_; }

    platform::Form form;
    platform::Label lblROIName;
    platform::ProgressBar kvProgressBar1;
    platform::TextBox txtOut;
    platform::Button btnCancel;

  private:
    void Form_Activate();
    bool Form_QueryUnload();
    void Form_Resize();
    void run();
    void cutOutPicture(int regions);
    void cutOut(int region);
    void report(const std::string& line);
    void failed();
    bool targetCanBeWritten();
    std::string scriptPath() const;

    RegionSource& source_;
    const Environment& environment_;
    std::string targetDirectory_;
    CutOutNames names_;
    std::unique_ptr<kernel::ScriptKernel> kernel_;
    std::string lastLine_;
    std::string kernelNotice_;
    std::string firstFailure_;
    std::string lastTarget_;
    int failures_ = 0;
    std::int16_t mode_ = currentRegion;
    bool cancelled_ = false;
    bool busy_ = false;
    bool due_ = false;  // the dialog is on its way to the screen, where it begins
};

}  // namespace shell
