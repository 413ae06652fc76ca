// Regions cut out of large pictures by the shipped script, against what cannot be saved: decoding every
// picture once and writing the files.
#include <array>
#include <cstdio>
#include <cstdlib>

#include "benchmarks/window/measure.h"
#include "kernel/script_kernel.h"
#include "platform/files.h"
#include "platform/picture.h"
#include "tests/support/pictures.h"

namespace measure {

namespace {

using platform::Colour;
using platform::Rect;
using platform::Size;

constexpr Size size{1920, 1080};
constexpr int distinctFiles =
    20;  // as many photos as there are; shown in turn, so the kernel never sees one twice in a row
constexpr std::array regions{Rect::at(100, 50, 400, 300), Rect::at(900, 400, 640, 480),
                             Rect::at(1800, 1000, 200, 200)};  // the last one leaves the picture

/// Soft surfaces with a little noise, as cameras see them.
Colour surfaceColour(int number, int column, int row) {
    const auto x = static_cast<Colour>(column), y = static_cast<Colour>(row), n = static_cast<Colour>(number);
    const Colour noise = (x * 73856093 ^ y * 19349663 ^ n * 83492791) >> 13;
    const Colour light = (x + n * 90) % 1920 / 12 + y / 16 + noise % 8;
    return light << 16 | (light * 3 / 4) << 8 | light / 2;
}

/// Cuts all regions out of a picture with the kernel.
class Kernel {
  public:
    explicit Kernel(std::string target) : target_(std::move(target)) {}

    void cut(const std::string& file) {
        for (std::size_t i = 0; i < regions.size(); ++i) {
            const Rect& region = regions[i];
            parameters_.set("Parameter0", "0", "Rfile://" + file);
            parameters_.set("Parameter1", "0", std::to_string(region.left));
            parameters_.set("Parameter1", "1", std::to_string(region.top));
            parameters_.set("Parameter1", "4", std::to_string(region.width()));
            parameters_.set("Parameter1", "5", std::to_string(region.height()));
            parameters_.set("Parameter2", "0", "Wfile://" + targetOf(i));
            if (!kernel_->run(script_, parameters_)) std::abort();  // the reason is on the screen
        }
    }
    std::string targetOf(std::size_t region) const { return target_ + std::to_string(region) + ".bmp"; }

  private:
    std::string target_;
    const std::string script_ = platform::files::fullPath(STICH_SOURCE_DIR "/res/Scripts/Extract.kvr");
    kernel::Parameters parameters_;
    std::unique_ptr<kernel::ScriptKernel> kernel_ = kernel::builtInKernel([](const std::string& line) {
        if (line.starts_with("Fehler")) std::fprintf(stderr, "%s\n", line.c_str());
    });
};

/// Decodes the picture and writes files as long as the kernel's, as safely as it does.
class DecodeAndWrite {
  public:
    DecodeAndWrite(std::string target, const Kernel& kernel) : target_(std::move(target)) {
        for (std::size_t i = 0; i < regions.size(); ++i)
            contents_.push_back(platform::files::read(kernel.targetOf(i)));
    }
    void cut(const std::string& file) {
        platform::decodePicture(file, surface_, Rect::at(0, 0, size.width, size.height));
        for (std::size_t i = 0; i < contents_.size(); ++i)
            platform::files::replace(target_ + std::to_string(i) + ".bmp", contents_[i]);
    }

  private:
    std::string target_;
    std::vector<std::string> contents_;
    platform::Surface surface_{size};
};

void measureKind(const char* kind, const std::string& folder, const std::vector<std::string>& files,
                 int pictures) {
    Kernel kernel(folder + "\\cut");
    kernel.cut(files.back());
    DecodeAndWrite floor(folder + "\\floor", kernel);
    std::vector<double> cutTimes, floorTimes;
    for (int i = 0; i < pictures; ++i) {
        const std::string& file = files[static_cast<std::size_t>(i) % files.size()];
        const auto measureFloor = [&] { floorTimes.push_back(milliseconds([&] { floor.cut(file); })); };
        if (i % 2 == 0) measureFloor();  // who comes second finds the file in the cache
        cutTimes.push_back(milliseconds([&] { kernel.cut(file); }));
        if (i % 2 == 1) measureFloor();
    }
    const Floor decodingAndWriting =
        report({.name = std::string("floor: decode a ") + kind + " of 1920 x 1080 and write 3 files",
                .values = floorTimes});
    report({.name = std::string("cut 3 regions out of a ") + kind + " of 1920 x 1080",
            .values = cutTimes,
            .floor = decodingAndWriting,
            .note = std::to_string(pictures) + " pictures, " + std::to_string(files.size()) + " distinct"});
}

}  // namespace

void cutting(const std::string& folder) {
    const std::string place = folder + "\\cutting";
    platform::files::createDirectories(place);
    std::vector<std::string> photos, bitmaps;
    for (int i = 0; i < distinctFiles; ++i) {
        photos.push_back(folder + "\\photos\\" + std::to_string(i) + ".jpg");
        bitmaps.push_back(place + "\\" + std::to_string(i) + ".bmp");
        platform::files::replace(bitmaps.back(), support::trueColourBitmap(size, [i](int x, int y) {
                                     return surfaceColour(i, x, y);
                                 }));
    }
    measureKind("JPEG", place, photos, 300);
    measureKind("bitmap", place, bitmaps, 200);
}

}  // namespace measure
