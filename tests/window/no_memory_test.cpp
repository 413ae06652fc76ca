// Pictures for which there is no memory.
#include <gmock/gmock.h>

#include <cstddef>
#include <cstdlib>
#include <limits>
#include <new>

#include "platform/errors.h"
#include "platform/picture.h"
#include "platform/win32/handle.h"
#include "tests/editor/editor_fixture.h"
#include "tests/support/error_of.h"
#include "tests/support/pictures.h"

namespace {

/// The program gets no more than that in one piece.
std::size_t mostInOnePiece = std::numeric_limits<std::size_t>::max();

}  // namespace

// In the place of the library's own, in this test program. Not inlined: the compiler would take them for a
// mismatched pair.
[[gnu::noinline]] void* operator new(std::size_t bytes) {
    void* const block = bytes > mostInOnePiece ? nullptr : std::malloc(bytes);
    if (block == nullptr) throw std::bad_alloc();
    return block;
}
[[gnu::noinline]] void operator delete(void* block) noexcept {
    std::free(block);
}
[[gnu::noinline]] void operator delete(void* block, std::size_t) noexcept {
    std::free(block);
}

namespace {

using platform::Size;
using testing::HasSubstr;

class NoMemory : public EditorTest {
  protected:
    ~NoMemory() override { mostInOnePiece = std::numeric_limits<std::size_t>::max(); }
};

TEST_F(NoMemory, APictureIsToldAndTheNextIsShown) {
    makeSet("Probe", {.pictures = 5});
    const std::string large = folder.write("Picture\\Probe\\bild3.bmp",
                                           support::trueColourBitmap({2000, 1000}, support::distinctColour));
    start();
    openByChooser("Probe");
    auto& w = window();
    mostInOnePiece = std::size_t{4} << 20;
    pressClass(1);  // the next one is not among those that are decoded already
    pressClass(1);
    EXPECT_THAT(w.lblHint.caption(), HasSubstr("bild3.bmp: "));
    EXPECT_THAT(w.lblHint.caption(), HasSubstr("der Arbeitsspeicher reicht nicht aus"));
    EXPECT_THAT(support::errorOf([&] { platform::readRaster(large); }).description(),
                HasSubstr("der Arbeitsspeicher reicht nicht aus"))
        << "neither can it be cut out";
    w.GoToItem(4);
    EXPECT_EQ(w.lblHint.caption(), "");
    EXPECT_EQ(w.kvPictureBox1.PicWidth(), 12);
    mostInOnePiece = std::numeric_limits<std::size_t>::max();
    w.GoToItem(3);
    EXPECT_EQ(w.lblHint.caption(), "");
    EXPECT_EQ(w.kvPictureBox1.PicWidth(), 2000);
    EXPECT_EQ(w.ItemClasses(1, 0), 1);
}

TEST_F(NoMemory, TheSystemMakesNoBitmap) {
    // All handles that it gives to one process.
    constexpr std::size_t enough = 100'000;
    std::vector<platform::win32::UniqueBrush> brushes;
    while (brushes.size() < enough) {
        platform::win32::UniqueBrush brush(::CreateSolidBrush(static_cast<COLORREF>(brushes.size())));
        if (!brush) break;
        brushes.push_back(std::move(brush));
    }
    ASSERT_LT(brushes.size(), enough);
    const auto error = support::errorOf([] { platform::Surface surface(Size{100, 50}); });
    EXPECT_EQ(error.number(), platform::error::badPicture);
    EXPECT_THAT(error.description(), HasSubstr("Arbeitsspeicher"));
    brushes.clear();
    EXPECT_EQ(platform::Surface(Size{100, 50}).size(), (Size{100, 50}));
}

}  // namespace
