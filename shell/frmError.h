#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/basic_controls.h"
#include "platform/form.h"
#include "platform/list_view.h"
#include "platform/registry.h"
#include "shell/environment.h"

namespace shell {

/// The missing-files dialog: lists the pictures of a set that are not where the set says, and lets the user
/// point to the directory where they lie now, take them out of the set, or give up.
class frmError {
  public:
    /// How it was left.
    static constexpr std::int32_t closed = 0;       ///< not by a button
    static constexpr std::int32_t cancelled = 3;    ///< the set is not taken as loaded
    static constexpr std::int32_t foundAll = 13;    ///< every missing file was found elsewhere
    static constexpr std::int32_t removeRest = 46;  ///< the files still listed are to go

    struct Missing {
        int position;      ///< row of the editor's file list, from 1
        std::string path;  ///< where the file was expected
    };

    frmError(platform::Form& owner, platform::Registry& registry, const Environment& environment);
    ~frmError();

    std::int32_t ExitState() const { return exitState_; }
    void ExitState(std::int32_t state) { exitState_ = state; }

    void add(int position, std::string path) { missing_.push_back({position, std::move(path)}); }
    /// The files that are still missing, in the order of their rows.
    const std::vector<Missing>& missing() const { return missing_; }

    /// Shows it over the editor until one of its buttons or its close box was pressed.
    void showModal();

    /// A missing file lies in another directory: the editor's row `position` gets it.
    std::function<void(int position, const std::string& directory)> onFound;

    platform::Form form;
    platform::Label lblTop;
    platform::ListView ListView1;
    platform::Label lblQuestion;
    platform::Button btnSearch;
    platform::Button btnDel;
    platform::Button btnAbbr;

    platform::Panel fraWait;
    platform::Label lblWait;
    platform::ProgressBar kvProgressBar1;
    platform::Button btnWait;

  private:
    void Form_Load();
    void Form_Unload();
    void Form_Resize();
    void layOutWait(platform::Rect area, int buttonHeight);
    void btnSearch_Click();
    void btnDel_Click();
    void btnAbbr_Click();
    std::int32_t SearchDirectory();
    bool readNames(const std::string& directory, std::vector<std::string>& names);
    void showWaiting(bool waiting);
    void leave(std::int32_t state);

    platform::Registry& registry_;
    const Environment& environment_;
    std::vector<Missing> missing_;
    std::int32_t exitState_ = closed;
    bool givenUp_ = false;  // what is waited for
};

}  // namespace shell
