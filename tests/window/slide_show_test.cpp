// The player bar of the real program, with its timer running.
#include <gtest/gtest.h>

#include <chrono>

#include "platform/registry.h"
#include "program.h"

namespace {

using namespace std::chrono_literals;

// Buttons of the bar; the gaps between them count.
enum Tool { back = 2, last = 4, startShow = 6, stopShow = 7, saveRegions = 10 };

constexpr int pictures = 40;

class SlideShow : public testing::Test {
  protected:
    ProgramFolder folder_{pictures, {16, 12}, {"gut"}};
};

TEST_F(SlideShow, GoesOnOncePerIntervalAndAroundUntilItIsStopped) {
    Program stich(folder_.program(), {folder_.setFile()});
    ASSERT_TRUE(stich.opens());
    ASSERT_TRUE(stich.shows("Bild 1.bmp"));
    stich.slide("Slider1", 100);
    stich.slide("Slider1", 200);
    stich.click("Toolbar1", last);
    ASSERT_TRUE(stich.shows("Bild 40.bmp"));
    stich.click("Toolbar1", back);
    ASSERT_TRUE(stich.shows("Bild 39.bmp"));

    // Ticks that nobody saw are counted by the row that they came to, around the end of the list.
    const auto begin = std::chrono::steady_clock::now();
    stich.click("Toolbar1", startShow);
    int steps = 0;
    ASSERT_TRUE(waitFor([&] {
        const int row = stich.selectedRow("lvCItems");
        if (row > 0) steps = (row - 39 + pictures) % pictures;
        return steps >= 6;
    }));
    const auto elapsed = std::chrono::steady_clock::now() - begin;
    EXPECT_LE(steps, elapsed / 200ms + 2) << "the first one comes at once";
    EXPECT_FALSE(stich.enabled("Toolbar1", startShow));
    EXPECT_TRUE(stich.enabled("Toolbar1", stopShow));

    stich.click("Toolbar1", stopShow);
    ASSERT_TRUE(waitFor([&] { return stich.enabled("Toolbar1", startShow); }));
    EXPECT_FALSE(stich.enabled("Toolbar1", stopShow));
    const int row = stich.selectedRow("lvCItems");
    ::Sleep(900);
    EXPECT_EQ(stich.selectedRow("lvCItems"), row);
    EXPECT_TRUE(stich.shows(ProgramFolder::picture(row)));
}

TEST_F(SlideShow, TheMenuOfTheSaveButtonIsRememberedByItsPicture) {
    folder_.write("Scripts\\Extract.kvr");
    int chosen = 0;
    {
        Program stich(folder_.program(), {folder_.setFile()});
        ASSERT_TRUE(stich.opens());
        ASSERT_TRUE(stich.shows("Bild 1.bmp"));
        const int first = stich.image("Toolbar1", saveRegions);
        stich.click("Toolbar1", saveRegions, Program::ButtonPart::arrow);
        ASSERT_NE(stich.waitForWindow(L"#32768"), nullptr) << "the menu";
        for (const int key : {VK_DOWN, VK_DOWN, VK_DOWN, VK_RETURN})
            ::PostMessageW(stich.window(), WM_KEYDOWN, static_cast<WPARAM>(key), 1);
        ASSERT_TRUE(waitFor([&] { return (chosen = stich.image("Toolbar1", saveRegions)) != first; }));
        stich.close();
        ASSERT_EQ(stich.exitCode(), 0);
    }
    EXPECT_EQ(platform::Registry("Software\\Veltor2").read("Stich", "SaveSatus"), "btnSaveAllROI2");
    Program again(folder_.program());
    ASSERT_TRUE(again.opens());
    EXPECT_EQ(again.image("Toolbar1", saveRegions), chosen);
}

/// The user's decimal sign, as set in the system, for as long as it lives.
class DecimalSign {
  public:
    explicit DecimalSign(const wchar_t* sign) {
        ::GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, before_, 8);
        EXPECT_TRUE(::SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, sign));
    }
    ~DecimalSign() { ::SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, before_); }
    DecimalSign(const DecimalSign&) = delete;
    DecimalSign& operator=(const DecimalSign&) = delete;

  private:
    wchar_t before_[8]{};
};

TEST_F(SlideShow, TheTimeIsWrittenAsTheUserWritesNumbers) {
    const struct {
        const wchar_t* sign;
        const char* atFirst;
        const char* slid;
    } cases[] = {{L",", " 1,0s", " 2,5s"}, {L".", " 1.0s", " 2.5s"}};
    for (const auto& c : cases) {
        const DecimalSign user(c.sign);
        Program stich(folder_.program());
        ASSERT_TRUE(stich.opens());
        const HWND time = stich.control("txtTime");
        EXPECT_EQ(Program::text(time), c.atFirst);
        stich.slide("Slider1", 2500);
        EXPECT_EQ(Program::text(time), c.slid);
    }
}

}  // namespace
