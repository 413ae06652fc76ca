// The whole labelling step: a class button is pressed with the mouse, the label stands in the lists and the
// next picture is on the screen. Each picture is looked at for a while before, as people do.
#include <cstdlib>
#include <random>
#include <stdexcept>

#include "benchmarks/window/editor.h"
#include "benchmarks/window/measure.h"
#include "benchmarks/window/process.h"
#include "platform/files.h"
#include "platform/path.h"
#include "platform/picture.h"
#include "platform/win32/native.h"
#include "tests/support/user.h"

namespace measure {

namespace {

constexpr int pictures = 60;
constexpr int look = 300;  // milliseconds
constexpr int jumps = 20;

struct Kind {
    const char* folder;  // below `labelling`; its files are 0, 1, ... with the ending
    const char* ending;
    const char* name;
    platform::Size size;
    double nextPicture;  // target without read-ahead, 0: none
    double mostMemory;   // MB
};
constexpr Kind kinds[] = {{"a", ".jpg", "JPEG 1920 x 1080", {1920, 1080}, 33, 80},
                          {"b", ".jpg", "JPEG 4000 x 3000", {4000, 3000}, 200, 200},
                          {"c", ".bmp", "BMP 1280 x 1024", {1280, 1024}, 0, 0}};

std::vector<std::string> filesOf(const std::string& folder, const Kind& kind) {
    std::vector<std::string> result;
    for (int i = 0; i < pictures; ++i)
        result.push_back(folder + "\\labelling\\" + kind.folder + "\\" + std::to_string(i) + kind.ending);
    return result;
}

/// A press and a release of the left button in the middle of it, as they come from the mouse.
void click(const platform::Button& button) {
    const HWND window = button.native().window;
    RECT area{};
    ::GetClientRect(window, &area);
    const auto at = MAKELPARAM(static_cast<WORD>(area.right / 2), static_cast<WORD>(area.bottom / 2));
    ::PostMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, at);
    ::PostMessageW(window, WM_LBUTTONUP, 0, at);
}

void lookAtIt() {
    user::pumpUntil([] { return false; }, look);
}

void expectShown(const editor::frmStich& window, const std::string& file) {
    const auto& box = window.kvPictureBox1;
    if (box.Failed() || platform::path::fileName(box.FileName()) != platform::path::fileName(file))
        throw std::runtime_error("not shown: " + file);
}

std::vector<double> decodeOnly(const std::vector<std::string>& files, platform::Size size) {
    platform::Surface surface(size);
    std::vector<double> times;
    for (const std::string& file : files)
        times.push_back(milliseconds([&] {
            platform::decodePicture(file, surface, platform::Rect::at(0, 0, size.width, size.height));
        }));
    return times;
}

std::vector<double> labelAll(editor::frmStich& window, const std::vector<std::string>& files) {
    auto& button = user::find<platform::Button>(window.form, "Command1(1)");
    std::vector<double> times;
    for (std::size_t next = 1; next < files.size(); ++next) {
        lookAtIt();
        times.push_back(milliseconds([&] {
            click(button);
            user::pump();
            window.form.update();
        }));
        expectShown(window, files[next]);
        if (window.ItemClasses(static_cast<int>(next), 0) != 1) throw std::runtime_error("not labelled");
    }
    return times;
}

/// To pictures that nobody could expect, without a look at any.
std::vector<double> jumpAbout(editor::frmStich& window, const std::vector<std::string>& files) {
    std::mt19937 random(1);
    const auto count = static_cast<int>(files.size());
    std::vector<double> times;
    for (int i = 0, row = 1; i < jumps; ++i) {
        row = (row + 4 + static_cast<int>(random() % static_cast<unsigned>(count - 8))) % count +
              1;  // never a neighbour
        times.push_back(milliseconds([&] {
            window.GoToItem(row);
            window.form.update();
        }));
        expectShown(window, files[static_cast<std::size_t>(row - 1)]);
    }
    return times;
}

}  // namespace

void labelKind(const std::string& folder, const std::string& wanted) {
    for (const Kind& kind : kinds) {
        if (wanted != kind.folder) continue;
        const std::string name = kind.name;
        const auto files = filesOf(folder, kind);
        const std::string set = writeSet(folder, std::string("label") + kind.folder, files, 3);
        std::vector<double> steps, still;
        double peak = 0;
        {
            Editor editor(folder);
            ::ShowWindow(editor.window.form.native().window, SW_MAXIMIZE);
            editor.window.LoadFile(set);
            steps = labelAll(editor.window, files);
            peak = memoryPeak();
            still = jumpAbout(editor.window, files);
        }
        const Floor floor =
            report({.name = "floor: decode only, " + name, .values = decodeOnly(files, kind.size)});
        report({.name = "labelling step after a look of 0.3 s, " + name,
                .values = steps,
                .target = {.median = 12, .p95 = 20},
                .floor = floor});
        report({.name = "next picture that was not expected, " + name,
                .values = still,
                .target = {.median = kind.nextPicture},
                .floor = floor});
        report({.name = "peak memory of labelling, " + name,
                .values = {peak},
                .target = {.median = kind.mostMemory},
                .unit = "MB"});
    }
}

void labelling(const std::string& folder) {
    for (const Kind& kind : kinds) Child({folder, "labelling", kind.folder}).wait();
}

}  // namespace measure
