// Where the real program's window stands when it is started again.
#include <gtest/gtest.h>

#include "platform/registry.h"
#include "program.h"

namespace {

/// The window of a program that is started; what `act` does with it happens before it is closed again.
RECT started(const ProgramFolder& folder, const std::function<void(HWND)>& act = {}) {
    Program stich(folder.program());
    EXPECT_TRUE(stich.opens());
    RECT bounds{};
    ::GetWindowRect(stich.window(), &bounds);
    if (act) act(stich.window());
    stich.close();
    EXPECT_EQ(stich.exitCode(), 0);
    return bounds;
}

bool isOnScreen(const RECT& r) {
    const RECT screen{0, 0, ::GetSystemMetrics(SM_CXSCREEN), ::GetSystemMetrics(SM_CYSCREEN)};
    RECT seen{};
    return ::IntersectRect(&seen, &r, &screen) && ::EqualRect(&seen, &r);
}

TEST(Placement, TheWindowComesBackWhereItWasOnAScreenThatIsThere) {
    const ProgramFolder folder(1, {40, 30}, {"gut"});
    constexpr RECT wanted{60, 40, 860, 640};
    started(folder, [&](HWND window) {
        ::SetWindowPos(window, nullptr, wanted.left, wanted.top, wanted.right - wanted.left,
                       wanted.bottom - wanted.top, SWP_NOZORDER);
        ::ShowWindow(window, SW_MAXIMIZE);
    });
    started(folder, [&](HWND window) {
        EXPECT_TRUE(::IsZoomed(window));
        ::ShowWindow(window, SW_RESTORE);
        ::ShowWindow(window, SW_MINIMIZE);
    });
    const RECT again =
        started(folder, [](HWND window) { EXPECT_FALSE(::IsZoomed(window) || ::IsIconic(window)); });
    EXPECT_TRUE(::EqualRect(&again, &wanted));

    platform::Registry settings("Software\\Veltor2");
    settings.write("Stich", "Window", "9000 -9000 800 600 96 1");
    started(folder, [](HWND window) {
        EXPECT_TRUE(::IsZoomed(window)) << "its monitor is gone";
        ::ShowWindow(window, SW_RESTORE);
        RECT restored{};
        ::GetWindowRect(window, &restored);
        EXPECT_TRUE(isOnScreen(restored));
        EXPECT_EQ(restored.right - restored.left, 800);
    });
    for (const char* elsewhere : {"9000 -9000 800 600 96 0", "900 700 5000 5000 96 0", "Unfug"}) {
        settings.write("Stich", "Window", elsewhere);
        EXPECT_TRUE(isOnScreen(started(folder))) << elsewhere;
    }
}

}  // namespace
