#pragma once

#include <cstdint>
#include <string>

#include "platform/form.h"
#include "platform/toolbar.h"
#include "shell/data_directory.h"

namespace shell {

/// What start-up asks of the editor's window, in the order in which it asks.
class EditorWindow {
  public:
    virtual ~EditorWindow() = default;

    virtual platform::Form& window() = 0;
    virtual platform::Toolbar& pictureToolbar() = 0;
    /// The toolbar has its buttons: they get their images and their place.
    virtual void toolbarReady() = 0;

    /// Takes over what was stored; what could not be used is told to the user once.
    virtual void ReadProp() = 0;
    virtual void TabStrip1_Click() = 0;
    virtual void btnCNew_Click() = 0;
    virtual void SetStdClass(bool assignAll) = 0;
    virtual void Slider1_Change() = 0;

    /// The region chooser offers the whole picture, which is chosen.
    virtual void offerWholePicture() = 0;
    virtual void enableGrab(bool available) = 0;
    virtual void useDirectories(const Directories& directories) = 0;
    virtual void SearchSets(bool fill) = 0;
    virtual void browse(const std::string& directory) = 0;

    /// Opens a set; 3 when it was not opened.
    virtual std::int16_t LoadFile(const std::string& path) = 0;
    virtual void cboSets_Change() = 0;
    virtual void clearSetName() = 0;
    /// No set was opened: offers what was not saved of sets that have no file.
    virtual void offerLeftSets() = 0;
};

/// LoadFile's answer for a set that was not opened, be it that it could not be read or that the user gave
/// up over missing files.
inline constexpr std::int16_t notOpened = 3;

}  // namespace shell
