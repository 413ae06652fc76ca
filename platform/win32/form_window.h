#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/form.h"
#include "platform/metrics.h"
#include "platform/timer.h"
#include "platform/win32/container_window.h"
#include "platform/window_placement.h"

namespace platform {

struct Subclassing::Native {
    win32::FormWindow* form;  ///< null when it is gone
    std::set<std::uint32_t> watched;
    Subclassing* subclassing;
};

struct Timer::Native {
    bool ticking() const;
    void restart();

    win32::FormWindow* form;  ///< null when it is gone
    Timer* timer;
    int interval = 0;
    bool enabled = false;
};

namespace win32 {

/// A top-level window, with what belongs to all the controls in it: font, sizes, tool tips, timers and
/// actions that were posted.
class FormWindow : public ContainerWindow {
  public:
    FormWindow(const std::string& formName, const std::string& caption, const Form::Options& wanted);
    ~FormWindow() override;

    Handled handle(const Message& m) override;
    void setVisible(bool on) override;
    void setEnabled(bool on) override;

    void setIcon(const IconImage& image);
    void show();
    void hide();
    void showModal();
    bool unload();
    bool loaded() const { return loaded_; }
    bool isDialog() const { return options_.dialog; }
    /// Whether the form takes the key away from the control that has the focus.
    bool takesKey(int key, KeyUse focus);
    /// The form that is shown modally above all others, or null.
    static FormWindow* topModal();

    std::string placement() const;
    void setPlacement(const std::string& text);
    void setMinimumSize(Size size) { minimum_ = size; }

    HFONT windowFont() const { return font_.get(); }
    const Font& windowFontName() const { return fontName_; }
    int resolution() const { return dpi_; }
    const Metrics& metrics();

    void relayToToolTips(const MSG& mouse) const;
    void setToolTip(const Native& target, const std::string& text);
    /// It gets the focus when the window is shown.
    void focusLater(const Native& target) { focusAtActivation_ = target.keyWindow(); }
    void post(std::function<void()> action);

    std::vector<Subclassing::Native*> subclassings;
    std::vector<Timer::Native*> timers;

  private:
    Form& owner() const { return *static_cast<Form*>(control); }
    FormWindow* ownerWindow() const;
    bool hooked(Message& m);

    void resized(WPARAM kind, Size size);
    void limitSize(MINMAXINFO& limits);
    Handled closeRequested();
    void activated(bool active, bool minimised);
    Handled focused();
    Handled ticked(UINT_PTR id);
    Handled runPosted();
    Handled resolutionChanged(int dpi, const RECT& suggested);
    void settingsChanged();
    void coloursChanged();
    Handled sessionEndAsked();
    Handled sessionEnded(bool ends);
    Handled choosePointer(HWND below, int hit);
    Handled filesDropped(HDROP dropped);

    void sizeFor(Size clientAt96);
    void placeOnMonitor(Rect wanted);
    void takeStoredSize();
    void centreOverOwner();
    void renewFont();
    void blockOwner();
    void releaseOwner();

    Form::Options options_;
    bool loaded_ = true;
    bool unloading_ = false;
    bool placed_ = false;                      // by the program
    bool maximise_ = false;                    // when it is shown
    std::optional<WindowPlacement> arriving_;  // where it was put, until it is on the screen
    bool blocksOwner_ = false;
    int modalAbove_ = 0;  // dialogs that keep it from input
    Size minimum_{};
    int dpi_ = 96;
    Font fontName_;
    UniqueFont font_;
    UniqueIcon icon_;
    std::optional<Metrics> metrics_;  // until the font changes
    HWND toolTips_ = nullptr;         // owned by the window, and gone with it
    HWND focusAtActivation_ = nullptr;
    std::deque<std::function<void()>> posted_;
};

}  // namespace win32
}  // namespace platform
