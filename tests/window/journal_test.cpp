// The real program is killed in the middle of the work and started again.
#include <gtest/gtest.h>

#include "platform/files.h"
#include "platform/path.h"
#include "program.h"

namespace {

constexpr int pictures = 30;
const char* const offer = "Probe.kvs\" vom ";

class KilledProgram : public testing::Test {
  protected:
    /// Presses classes in turn, beginning with the second one, and waits for the picture after each.
    static void labelSome(const Program& stich, int first, int last) {
        for (int number = first; number <= last; ++number) {
            stich.press(number % 2 != 0 ? "Command1(1)" : "Command1(0)");
            ASSERT_TRUE(stich.shows(ProgramFolder::picture(number + 1)));
        }
    }
    /// As many as were labelled are there, in that order, and no other one.
    static int labelled(const Program& stich) {
        const auto classes = stich.column("lvCItems", 1);
        int last = 0;
        for (int number = 1; number <= pictures; ++number)
            if (classes.at(static_cast<std::size_t>(number - 1)) == "Riß") last = number;
        for (int number = 1; number <= last; ++number)
            EXPECT_EQ(classes[static_cast<std::size_t>(number - 1)], number % 2 != 0 ? "Riß" : "gut")
                << number;
        return last;
    }
    std::uint64_t logSize() const {
        const std::string place = folder_.file("Stich\\Journal");
        if (!platform::files::directoryExists(place)) return 0;
        std::uint64_t size = 0;
        for (const auto& entry : platform::files::list(place))
            if (platform::path::extension(entry.name) == ".log")
                size = std::max(size, platform::files::version(platform::path::join(place, entry.name))
                                          .value_or(platform::files::Version{})
                                          .size);
        return size;
    }
    ProgramFolder folder_{pictures, {16, 12}, {"gut", "Riß"}};
};

TEST_F(KilledProgram, LosesNoLabelThatIsOlderThanAFewSeconds) {
    {
        Program stich(folder_.program(), {folder_.setFile()});
        ASSERT_TRUE(stich.opens());
        ASSERT_TRUE(stich.shows(ProgramFolder::picture(1)));
        labelSome(stich, 1, 5);
        std::uint64_t before = 0;
        ASSERT_TRUE(waitFor([&] { return (before = logSize()) > 0; })) << "a copy";
        ::Sleep(3000);
        before = logSize();
        labelSome(stich, 6, 11);
        ASSERT_TRUE(waitFor([&] { return logSize() > before; })) << "labels behind it";
        ::Sleep(3000);
        labelSome(stich, 12, 13);

        const Program other(folder_.program(), {folder_.setFile()});
        ASSERT_NE(other.waitForWindow(L"frmStich"), nullptr) << "the journal of one that runs is not offered";
        stich.kill();
    }
    int cameBack = 0;
    {
        Program stich(folder_.program(), {folder_.setFile()});
        ASSERT_TRUE(stich.answer(offer, IDYES));
        ASSERT_TRUE(stich.opens());
        ASSERT_TRUE(stich.shows(ProgramFolder::picture(1)));
        cameBack = labelled(stich);
        EXPECT_GE(cameBack, 11);
        stich.kill();  // at once
    }
    {
        Program stich(folder_.program(), {folder_.setFile()});
        ASSERT_TRUE(stich.answer(offer, IDYES));
        ASSERT_TRUE(stich.opens());
        ASSERT_TRUE(stich.shows(ProgramFolder::picture(1)));
        EXPECT_EQ(labelled(stich), cameBack);
        stich.typeInto("cboSets", "Probe");
        stich.press("btnSave");
        ASSERT_TRUE(stich.answer("bereits vorhanden", IDOK));
        stich.press("btnOK");
        EXPECT_EQ(stich.exitCode(), 0);
    }
    EXPECT_EQ(logSize(), 0u);
    const Program again(folder_.program(), {folder_.setFile()});
    EXPECT_NE(again.waitForWindow(L"frmStich"), nullptr) << "and no question";
}

}  // namespace
