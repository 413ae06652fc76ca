#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "controls/picturebox/kvPictureBox.h"
#include "platform/form.h"
#include "platform/metrics.h"
#include "tests/support/pictures.h"
#include "tests/support/temp_folder.h"
#include "tests/support/user.h"

/// A picture box on a window, with a view of 200 x 100, and what it reported.
class PictureBoxTest : public testing::Test {
  protected:
    PictureBoxTest() {
        form.show();
        resizeView({200, 100});
        box.LoadPicture = [this](int& width, int& height, int& planes, int& bits) {
            loaded.push_back({width, height, planes, bits});
        };
        box.onLoadFailed = [this](const std::string& reason) { failures.push_back(reason); };
    }

    void resizeView(platform::Size view) {
        const platform::Metrics metrics = platform::metricsOf(box);
        box.move(platform::Rect::at(10, 10, view.width + metrics.vScrollWidth,
                                    view.height + metrics.hScrollHeight));
    }

    std::string bitmap(const std::string& name, platform::Size size,
                       const support::Pattern& pattern = support::distinctColour) {
        return folder.write(name, support::trueColourBitmap(size, pattern));
    }
    static support::Pattern plain(platform::Colour colour) {
        return [colour](int, int) { return colour; };
    }

    platform::Colour buffered(int x, int y) const { return box.buffer().row(y)[x] & 0xFFFFFF; }
    platform::Point offset() const { return {box.OffsetX(), box.OffsetY()}; }
    platform::Size picture() const { return {box.PicWidth(), box.PicHeight()}; }

    platform::Form form{"frmPicture", "Bild", {}};
    platform::Button neighbour{form, "btnOne"};  // has the focus at first
    controls::kvPictureBox box{form, "kvPictureBox1"};
    platform::ScrollBar& hScroll = user::find<platform::ScrollBar>(form, "HScroll1");
    platform::ScrollBar& vScroll = user::find<platform::ScrollBar>(form, "VScroll1");
    platform::Colour background = platform::systemColour(platform::SystemColour::buttonFace);
    support::TempFolder folder;
    std::vector<std::vector<int>> loaded;  ///< arguments of each LoadPicture
    std::vector<std::string> failures;
};
