#include "shell/frmSave.h"

#include <algorithm>

#include "platform/application.h"
#include "platform/errors.h"
#include "platform/files.h"
#include "platform/flagged.h"
#include "platform/metrics.h"
#include "platform/path.h"
#include "platform/registry.h"
#include "shell/data_directory.h"

namespace shell {

namespace {

namespace files = platform::files;

// What the script reads them by.
constexpr const char* pictureParameter = "Parameter0";
constexpr const char* rectangleParameter = "Parameter1";
constexpr const char* targetParameter = "Parameter2";
constexpr std::array<const char*, 4> rectangleElements{"0", "1", "4", "5"};  // X, Y, dX, dY
constexpr const char* readFile = "Rfile://";
constexpr const char* writeFile = "Wfile://";
constexpr const char* section = "Save";
constexpr const char* windowKey = "Window";
constexpr int lookEvery = 30;  // milliseconds; whether it was cancelled
constexpr const char* probeName = "~Ausschnitt.tmp";
constexpr std::size_t probeSize = 65536;  // an empty file finds a place on a full disk, too

}  // namespace

frmSave::frmSave(platform::Form& owner, RegionSource& source, const Environment& environment,
                 std::string targetDirectory)
    : form("frmSave", "Bereiche speichern", {.clientSize = {560, 260}, .dialog = true, .owner = &owner}),
      lblROIName(form, "lblROIName", {}, platform::Label::Style::plain),
      kvProgressBar1(form, "kvProgressBar1"),
      txtOut(form, "txtOut", platform::TextBox::Style::output),
      btnCancel(form, "btnCancel", "&Abbrechen"),
      source_(source),
      environment_(environment),
      targetDirectory_(std::move(targetDirectory)),
      names_([&source](const std::string& file) { return source.isPicture(file); }) {
    form.setMinimumSize({300, 200});
    form.onActivate = [this] { Form_Activate(); };
    form.onQueryUnload = [this] { return Form_QueryUnload(); };
    form.onResize = [this] { Form_Resize(); };
    btnCancel.onClick = [this] { cancelled_ = true; };
    kvProgressBar1.setAccessibleName("Fortschritt");
    txtOut.setAccessibleName("Meldungen");
    Form_Resize();
    kernel_ = kernel::makeKernel(environment.programDirectory, txtOut,
                                 [this](const std::string& line) { report(line); });
    kernelNotice_ = lastLine_;
}

frmSave::~frmSave() {
    form.unload();
}

void frmSave::Form_Resize() {
    using platform::Rect;
    const auto m = platform::metricsOf(form);
    const auto [width, height] = form.clientSize();
    const int margin = m.px(8);
    const int buttonHeight = m.lineHeight + m.px(10);
    const int barTop = margin + m.lineHeight + m.px(5);
    const int outTop = barTop + m.px(16) + m.px(8);
    const int buttonTop = height - margin - buttonHeight;
    lblROIName.move(Rect::at(margin, margin, width - 2 * margin, m.lineHeight));
    kvProgressBar1.move(Rect::at(margin, barTop, width - 2 * margin, m.px(16)));
    txtOut.move({margin, outTop, width - margin, buttonTop - m.px(8)});
    btnCancel.move(Rect::at(width - margin - m.px(90), buttonTop, m.px(90), buttonHeight));
}

void frmSave::SaveROI(std::int16_t mode) {
    mode_ = mode;
    if (mode == currentRegion) {
        const platform::application::WaitCursor wait;
        run();
        return;
    }
    due_ = true;
    platform::Registry registry(environment_.registryRoot);
    form.setPlacement(registry.read(section, windowKey).value_or(""));
    form.showModal();
    due_ = false;
    registry.write(section, windowKey, form.placement());
}

// It begins when it can be seen. What is thrown still ends it.
void frmSave::Form_Activate() {
    if (!due_ || busy_) return;
    due_ = false;
    platform::application::post(form, [this] {
        platform::application::guard([this] { run(); });
        form.hide();
    });
}

// It ends in good order first.
bool frmSave::Form_QueryUnload() {
    if (busy_) cancelled_ = true;
    return !busy_;
}

bool frmSave::waitFor(platform::BackgroundTask& task) const {
    while (!cancelled_ && !task.wait(lookEvery)) platform::application::doEvents();
    return !cancelled_;
}

std::string frmSave::scriptPath() const {
    return programFile(environment_, extractionScript);
}

void frmSave::run() {
    if (!files::fileExists(scriptPath())) return;
    const platform::Flagged busy(busy_);
    cancelled_ = false;
    const bool allPictures = mode_ == allRegionsOfAllPictures;
    const int pictures = allPictures ? source_.itemCount() : 1;
    const int regions = mode_ == currentRegion ? 1 : source_.regionCount();
    kvProgressBar1.setMaximum(pictures * regions);
    kvProgressBar1.setValue(0);
    if (pictures * regions == 0 || (mode_ == currentRegion && source_.regionState() == 0)) return;
    if (!targetCanBeWritten()) return failed();
    if (allPictures) source_.showFirstPicture();
    for (int picture = 1; picture <= pictures && !cancelled_; ++picture) {
        cutOutPicture(regions);
        if (allPictures && !cancelled_) source_.showNextPicture();
    }
}

void frmSave::cutOutPicture(int regions) {
    for (int region = 1; region <= regions && !cancelled_; ++region) {
        if (mode_ != currentRegion) source_.selectRegion(region);
        cutOut(mode_ == currentRegion ? source_.regionState() : region);
        if (mode_ != currentRegion) platform::application::doEvents();
    }
}

void frmSave::cutOut(int region) {
    const std::string name = source_.regionName();
    const std::string picture = source_.pictureFile();
    kvProgressBar1.setValue(kvProgressBar1.value() + 1);
    lblROIName.setCaption(name);

    kernel::Parameters parameters;
    parameters.set(pictureParameter, "0", readFile + picture);
    const auto details = source_.regionDetails();
    for (std::size_t i = 0; i < details.size(); ++i)
        parameters.set(rectangleParameter, rectangleElements[i], details[i]);
    lastTarget_ = names_.pathOf(targetDirectory_, picture, region, name);
    parameters.set(targetParameter, "0", writeFile + lastTarget_);
    if (kernel_->run(scriptPath(), parameters)) return;
    failed();
    // A drive that is gone or full would fail for each of the thousands that follow.
    if (!targetCanBeWritten()) cancelled_ = true;
}

void frmSave::failed() {
    if (failures_++ == 0) firstFailure_ = lastLine_;
}

void frmSave::report(const std::string& line) {
    lastLine_ = line;
    txtOut.append(line);
}

bool frmSave::targetCanBeWritten() {
    if (targetDirectory_.empty()) {
        report("Es ist kein Zielverzeichnis gewählt.");
        return false;
    }
    try {
        files::createDirectories(targetDirectory_);
        std::string probe = platform::path::join(targetDirectory_, probeName);
        // One of that size is what is left of a probe that could not be removed.
        while (files::exists(probe) && files::version(probe).value_or(files::Version{}).size != probeSize)
            probe += '~';
        files::replace(probe, std::string(probeSize, '~'));
        files::remove(probe);
        return true;
    } catch (const platform::RuntimeError& failure) {
        report(failure.description());
        return false;
    }
}

}  // namespace shell
