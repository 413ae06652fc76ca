// Any bytes for a script and its parameters: it is refused or runs, and what it writes are parts of what it
// read.
#include <algorithm>

#include "fuzz.h"
#include "kernel/script_run.h"
#include "platform/document_text.h"
#include "platform/errors.h"

namespace {

using platform::Raster;

constexpr platform::Size size{7, 5};

/// Every pixel is another one.
std::shared_ptr<const Raster> picture(int bitsPerPixel) {
    Raster raster{size, bitsPerPixel, {}, {}};
    if (bitsPerPixel == 8) raster.palette.assign(200, 0x123456);
    for (int i = 0; i < size.width * size.height; ++i)
        raster.rows.insert(raster.rows.end(), static_cast<std::size_t>(bitsPerPixel / 8),
                           static_cast<std::uint8_t>(i));
    return std::make_shared<const Raster>(std::move(raster));
}

std::size_t little32(const std::string& content, std::size_t at) {
    std::size_t number = 0;
    for (std::size_t i = 4; i-- > 0;) number = number << 8 | static_cast<unsigned char>(content.at(at + i));
    return number;
}

void checkBitmap(const std::string& content) {
    const std::size_t width = little32(content, 18), height = little32(content, 22);
    require(content.starts_with("BM") && little32(content, 2) == content.size());
    require(width >= 1 && width <= size.width && height >= 1 && height <= size.height);
    const bool indexed = content.at(28) == 8;
    const std::size_t start = little32(content, 10), bytesPerPixel = indexed ? 1 : 3;
    const std::size_t stride = (width * bytesPerPixel + 3) / 4 * 4;
    require(start + stride * height == content.size() && start == 54 + 4U * (indexed ? 200 : 0));
    // From one pixel to the next the number grows by one, from one row to the row above it by a row's width.
    const auto first = static_cast<unsigned char>(content.at(start));
    for (std::size_t y = 0; y < height; ++y)
        for (std::size_t x = 0; x < width; ++x)
            require(static_cast<unsigned char>(content.at(start + y * stride + x * bytesPerPixel)) ==
                    first - y * size.width + x);
}

}  // namespace

/// The script, and name, element and value of each parameter, separated by 0x1F.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t length) {
    std::string_view bytes(reinterpret_cast<const char*>(data), length);
    const auto next = [&] {
        const std::string_view text = bytes.substr(0, bytes.find('\x1F'));
        bytes.remove_prefix(std::min(text.size() + 1, bytes.size()));
        return std::string(text);
    };
    const std::string text = next();
    kernel::Parameters parameters;
    while (!bytes.empty() && parameters.entries().size() < 20) {
        const std::string name = next(), element = next(), value = next();
        parameters.set(name, element, value);
        require(parameters.get(name, element) == value);
    }
    const kernel::Surroundings surroundings{
        [](const std::string& path) { return picture(path.size() % 2 == 0 ? 8 : 24); },
        [](const std::string&, const std::string& content) { checkBitmap(content); },
        [](const std::string& line) { require(!line.empty()); }};
    try {
        kernel::runScript(kernel::parseScript(platform::profile::decoded(text)), parameters, surroundings);
    } catch (const platform::RuntimeError& error) {
        require(!error.description().empty());
    }
    return 0;
}
