#pragma once

#include <array>
#include <string>
#include <utility>
#include <vector>

#include "platform/registry.h"

namespace shell {

/// What the editor keeps between runs, as the window uses it.
struct EditorSettings {
    int interval = 0;       ///< of the slide show, milliseconds
    std::string pathROI;    ///< directory for cut-outs
    std::string saveSatus;  ///< key of the save command that the toolbar's button stands for
    int bar2 = 0;           ///< splitter positions, pixels at 96 dots per inch
    int bar3 = 0;
    std::string window;  ///< where it stands (platform::Form::placement)
    int stretch = 0;     ///< 1 when pictures are fitted into their view
    /// Layouts of ListView1, ListView2, lvROIs, lvCClasses and lvCItems, in this order.
    std::array<std::string, 5> lists;
};

/// Reads what was stored over `settings`, which holds the defaults; a value that is missing leaves its
/// default. A number that is none leaves it too, and is told in the result: a German line for each.
std::vector<std::string> ReadProp(platform::Registry& registry, EditorSettings& settings);

/// Keys of one section with their texts, in the order in which they are stored.
using Values = std::vector<std::pair<std::string, std::string>>;
/// Stores them. A value that the system refuses does not keep the others out; RuntimeError, at the end, with
/// the first refusal.
void writeValues(platform::Registry& registry, const std::string& section, const Values& values);

/// Stores all of it, as `writeValues` does.
void WriteProp(platform::Registry& registry, const EditorSettings& settings);

}  // namespace shell
