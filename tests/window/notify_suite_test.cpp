// The real program saves a set while other programs of the suite are running, of which one is in the middle
// of something long.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "platform/files.h"
#include "program.h"

namespace {

using testing::Each;

class NotifySuite : public testing::Test {
  protected:
    using Forms = std::vector<HWND>;

    static HWND find(const wchar_t* windowClass, const wchar_t* title) {
        HWND form = nullptr;
        EXPECT_TRUE(waitFor([&] {
            form = ::FindWindowW(windowClass, title);
            return form != nullptr && ::GetPropW(form, L"ready") != nullptr;
        }));
        return form;
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
        for (const HWND form : all_) ::RemovePropW(form, L"told");
        for (int saves = 1; saves <= 5; ++saves) {
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
    Forms listening_{find(L"ThunderRT6FormDC", L"compiled"), find(L"ThunderFormDC", L"developed")};
    Forms hanging_{find(L"ThunderRT6FormDC", L"hangs 1"), find(L"ThunderFormDC", L"hangs 2"),
                   find(L"ThunderFormDC", L"hangs 3")};
    Forms apart_{find(L"ThunderRT6FormDC", L"silent"), find(L"ThunderFormDC", L"silent"),
                 find(L"ThunderForm", L"stranger")};
    Forms all_;
};

TEST_F(NotifySuite, TellsThoseThatAnswerOnceASaveAndDoesNotWaitForTheOthers) {
    for (const Forms& forms : {listening_, hanging_, apart_})
        all_.insert(all_.end(), forms.begin(), forms.end());
    Forms taking = listening_;
    taking.insert(taking.end(), hanging_.begin(), hanging_.end());
    ASSERT_TRUE(stich_.opens());
    stich_.choose("cboSets", 0);
    ASSERT_TRUE(stich_.shows("Bild 1.bmp"));
    ASSERT_NO_FATAL_FAILURE(expectTold(taking));

    for (const HWND form : hanging_) {
        ::PostMessageW(form, WM_APP, 0, 0);
        ASSERT_TRUE(waitFor([&] { return ::GetPropW(form, L"hangs") != nullptr; }));
    }
    ASSERT_NO_FATAL_FAILURE(expectTold(listening_));
    for (const HWND form : hanging_) {
        EXPECT_NE(::RemovePropW(form, L"hangs"), nullptr) << "the editor waited until it was over";
        ::SendMessageW(form, WM_NULL, 0, 0);  // answered when it has woken up
    }
    EXPECT_THAT(told(hanging_), Each(0));
    EXPECT_THAT(told(apart_), Each(0));
    const auto counts = told(all_);
    stich_.close();
    ASSERT_TRUE(stich_.answer("Änderungen speichern?", IDNO));
    EXPECT_EQ(stich_.exitCode(), 0);
    EXPECT_EQ(told(all_), counts) << "a save that was given up tells nobody";
}

}  // namespace
