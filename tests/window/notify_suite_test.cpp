// The real program saves a set while other programs of the suite are running, some of them busy for long.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "platform/files.h"
#include "platform/win32/handle.h"
#include "platform/win32/wide.h"
#include "program.h"

namespace {

using testing::Each;

class NotifySuite : public testing::Test {
  protected:
    using Forms = std::vector<HWND>;

    /// Adds the forms of that kind, of which there are so many.
    static void find(const wchar_t* windowClass, const wchar_t* title, std::size_t count, Forms& forms) {
        const std::size_t all = forms.size() + count;
        EXPECT_TRUE(waitFor([&] {
            HWND form = nullptr;
            while ((form = ::FindWindowExW(nullptr, form, windowClass, title)) != nullptr) {
                const bool isNew = std::find(forms.begin(), forms.end(), form) == forms.end();
                if (isNew && ::GetPropW(form, L"ready") != nullptr) forms.push_back(form);
            }
            return forms.size() >= all;
        }));
    }
    static std::vector<INT_PTR> told(const Forms& forms) {
        std::vector<INT_PTR> counts;
        for (const HWND form : forms) counts.push_back(reinterpret_cast<INT_PTR>(::GetPropW(form, L"told")));
        return counts;
    }

    void save() {
        stich_.press("btnSave");
        ASSERT_TRUE(stich_.answer("Vorhandene Datei überschreiben?", IDOK));
        stich_.press("btnSave");
        ASSERT_NE(stich_.waitForWindow(L"#32770"), nullptr) << "nothing is asked before the save is over";
    }
    /// On a busy machine an answer may be late; another save gives it another chance.
    void expectTold(const Forms& forms) {
        for (const HWND form : forms) ::RemovePropW(form, L"told");
        for (int saves = 1; saves <= 3; ++saves) {
            ASSERT_NO_FATAL_FAILURE(save());
            const auto counts = told(forms);
            ASSERT_THAT(counts, Each(testing::Le(saves))) << "once a save";
            ASSERT_TRUE(stich_.answer("Vorhandene Datei überschreiben?", IDCANCEL));
            if (std::find(counts.begin(), counts.end(), 0) == counts.end()) return;
        }
        ADD_FAILURE() << "never told: " << testing::PrintToString(told(forms));
    }

    ProgramFolder folder_{1, {16, 12}, {"gut"}};
    Program suite_{platform::files::fullPath(SUITE_PROGRAM_EXE)};
    Program stich_{folder_.program()};
    Forms listening_, busy_, apart_;
};

TEST_F(NotifySuite, TellsThoseThatAnswerOnceASaveAndDoesNotWaitForTheOthers) {
    find(L"ThunderRT6FormDC", L"compiled", 1, listening_);
    find(L"ThunderFormDC", L"developed", 1, listening_);
    for (const wchar_t* windowClass : {L"ThunderRT6FormDC", L"ThunderFormDC"}) {
        find(windowClass, L"busy", 5, busy_);
        find(windowClass, L"silent", 1, apart_);
    }
    find(L"ThunderForm", L"stranger", 1, apart_);
    ASSERT_FALSE(HasFailure()) << "the other programs are not all there";
    ASSERT_TRUE(stich_.opens());
    stich_.choose("cboSets", 0);
    ASSERT_TRUE(stich_.shows("Bild 1.bmp"));
    ASSERT_NO_FATAL_FAILURE(expectTold(busy_)) << "as long as they answer";

    for (const HWND form : busy_) {
        ::SetPropW(form, L"hangs", form);
        ::RemovePropW(form, L"told");
    }
    ASSERT_NO_FATAL_FAILURE(expectTold(listening_));
    for (const HWND form : busy_) {
        EXPECT_NE(::RemovePropW(form, L"hangs"), nullptr) << "the editor waited for them";
        ::SendMessageW(form, WM_NULL, 0, 0);  // answered when it has woken up
    }
    EXPECT_THAT(told(busy_), Each(0));
    EXPECT_THAT(told(apart_), Each(0));
    const auto counts = told(listening_);
    {
        const platform::win32::UniqueHandle held(::CreateFileW(
            platform::wide(folder_.setFile()).c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
        stich_.press("btnSave");
        ASSERT_TRUE(stich_.answer("Vorhandene Datei überschreiben?", IDOK));
        ASSERT_TRUE(stich_.answer("konnte nicht gespeichert werden", IDOK));
    }
    stich_.close();
    ASSERT_TRUE(stich_.answer("Änderungen speichern?", IDNO));
    EXPECT_EQ(stich_.exitCode(), 0);
    EXPECT_EQ(told(listening_), counts) << "a save that failed or was given up tells nobody";
}

}  // namespace
