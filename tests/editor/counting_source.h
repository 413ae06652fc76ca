#pragma once

#include <functional>
#include <string>

#include "shell/frmSave.h"

/// Four times one picture, with three regions each; it does something when a region is chosen.
struct CountingSource : shell::RegionSource {
    int itemCount() const override { return 4; }
    int regionCount() const override { return 3; }
    std::string pictureFile() const override { return picture; }
    std::int32_t regionState() const override { return region; }
    std::array<std::string, 4> regionDetails() const override { return {"0", "0", "2", "2"}; }
    std::string regionName() const override { return "Bereich" + std::to_string(region); }
    bool isPicture(const std::string&) const override { return false; }
    void selectRegion(int index) override { region = index, ++selected, act(); }
    void showFirstPicture() override { steps += "F"; }
    void showNextPicture() override { steps += "n"; }

    std::string picture, steps;
    int region = 0, selected = 0;
    std::function<void()> act;
};
