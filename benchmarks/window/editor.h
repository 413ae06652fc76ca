#pragma once

#include <string>

#include "editor/frmStich.h"
#include "shell/mStichMain.h"

/// The editor as it is measured: in its real window, with settings of its own.
namespace measure {

inline constexpr const char* settingsRoot = "Software\\Veltor2 Benchmark";

class Editor {
  public:
    /// On the screen, with the folder as its data directory.
    explicit Editor(const std::string& folder);
    ~Editor();

    shell::Environment environment;
    editor::frmStich window;
};

struct SetShape {
    int samples;
    int classes = 10;
    int regions = 10;         ///< the whole picture is one of them
    bool onePicture = false;  ///< all samples are the first picture: showing the next item decodes nothing
};
/// Writes a set of the pictures p000001.bmp, ... in `pictures`, from the 100,001st on in `pictures2`, below
/// the folder; its path.
std::string writeSet(const std::string& folder, const SetShape& shape);

/// A set of those files.
std::string writeSet(const std::string& folder, const std::string& name,
                     const std::vector<std::string>& files, int classes);

}  // namespace measure
