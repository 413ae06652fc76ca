// What is on the disk after any single call of the system has failed.
#include "tests/support/faults.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>

#include "platform/files.h"
#include "platform/path.h"
#include "tests/support/error_of.h"
#include "tests/support/temp_folder.h"

namespace {

using namespace platform;
using std::string;
using support::errorOf;
using support::Faults;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::UnorderedElementsAreArray;

std::vector<string> namesIn(const string& directory) {
    std::vector<string> names;
    for (const files::Entry& entry : files::list(directory)) names.push_back(entry.name);
    return names;
}

TEST(Faults, AReplacementIsTheOldFileOrTheNewOneWhicheverCallFails) {
    const string old(1000, 'o'), fresh(3000, 'n');
    const support::TempFolder folder;
    const string file = folder.write("Störung.kvs", old);
    support::withEach(support::failures, 5, [&](const support::Failure& failure, int n, bool& met) {
        files::replace(file, old);
        const auto before = namesIn(folder.path());
        RuntimeError error{0, {}};
        bool harmless = false;
        {
            const Faults faults(failure, n);
            error = errorOf([&] { files::replace(file, fresh); });
            met = faults.met();
            const auto& calls = faults.calls();
            const auto last = static_cast<std::size_t>(n);
            harmless = met && (calls[last - 1] == support::Call::rename ||  // tried again
                               (failure.first == support::Fault::cutShort && calls.size() == last));
        }
        EXPECT_TRUE(!met || error.number() != 0 || harmless) << "a failure that nobody is told of";
        const string content = files::read(file);
        EXPECT_TRUE(content == fresh || (content == old && error.number() == error::fileError));
        if (error.number() != 0) {
            EXPECT_THAT(error.description(), HasSubstr("Störung.kvs\" kann nicht geschrieben werden: "));
        }
        if (!failure.leavesTemporary()) {
            EXPECT_THAT(namesIn(folder.path()), UnorderedElementsAreArray(before));
        }
        const auto left = namesIn(folder.path());
        files::replace(file, fresh);
        EXPECT_EQ(files::read(file), fresh);
        EXPECT_THAT(namesIn(folder.path()), UnorderedElementsAreArray(left));
    });
}

// Whether the system would let the name be taken or not.
TEST(Faults, AWriteProtectedFileStays) {
    const support::TempFolder folder;
    const string file = folder.write("a.kvs", "old");
    const auto place = std::filesystem::temp_directory_path() / path::fileName(folder.path()) / "a.kvs";
    using std::filesystem::perms;
    constexpr perms toWrite = perms::owner_write | perms::group_write | perms::others_write;
    std::filesystem::permissions(place, toWrite, std::filesystem::perm_options::remove);
    EXPECT_EQ(errorOf([&] { files::replace(file, "new"); }).number(), error::fileError);
    EXPECT_EQ(files::read(file), "old");
    EXPECT_THAT(namesIn(folder.path()), ElementsAre("a.kvs"));
    std::filesystem::permissions(place, toWrite, std::filesystem::perm_options::add);
    files::replace(file, "new");
    EXPECT_EQ(files::read(file), "new");
}

// Otherwise a pulled plug could leave a new name and nothing behind it.
TEST(Faults, TheNewContentIsOnTheDiskBeforeItTakesTheOldOnesPlace) {
    const support::TempFolder folder;
    const string file = folder.write("a", "old");
    const Faults onlyCounted(support::nothing);
    files::replace(file, "new");
    using enum support::Call;
    std::vector<support::Call> calls = onlyCounted.calls();
    std::erase(calls, flushDirectory);  // there is none on Windows
    EXPECT_THAT(calls, ElementsAre(create, write, flush, close, rename));
}

TEST(Faults, AReadingThatFailsIsNeverAShorterFile) {
    const support::TempFolder folder;
    const string file = folder.write("a", string(1 << 20, 'x'));
    const std::array gone{support::Failure{"", support::Fault::networkGone, {}, {}}};
    support::withEach(gone, 2, [&](const support::Failure& failure, int n, bool& met) {
        Faults faults(failure, n);
        faults.inReading();
        const auto error = errorOf([&] { EXPECT_EQ(files::read(file).size(), 1U << 20); });
        met = faults.met();
        EXPECT_EQ(error.number(), met ? error::fileError : 0) << n;
    });
}

TEST(Faults, WhatADeadProcessLeftNeitherHindersASaveNorStaysForEver) {
    const support::TempFolder folder;
    {
        const Faults faults({"", support::Fault::none, support::Fault::crash, support::Fault::crash});
        EXPECT_THROW(files::replace(folder.file("a.kvs"), "unfinished"), RuntimeError);
    }
    const string name = namesIn(folder.path()).at(0);
    ASSERT_TRUE(name.starts_with("~kv") && name.ends_with(".tmp")) << name;
    // The next process of that number would take these names.
    const std::size_t dash = name.find('-') + 1;
    const int number = std::stoi(name.substr(dash));
    const auto place = std::filesystem::temp_directory_path() / path::fileName(folder.path());
    std::vector<string> taken{name};
    for (int i = 1; i <= 3; ++i) taken.push_back(name.substr(0, dash) + std::to_string(number + i) + ".tmp");
    const std::vector<string> notOurs{"~kv1-1.tmp.kvs", "~kv-1.tmp", "~kva-1.tmp", "~kv1-.tmp", "~kv12.tmp"};
    for (const auto& names : {taken, notOurs})
        for (const string& each : names) std::ofstream(place / each) << "left";
    const auto age = [&](const string& each, int hours) {
        std::filesystem::last_write_time(
            place / each, std::filesystem::file_time_type::clock::now() - std::chrono::hours(hours));
    };
    for (const string& each : notOurs) age(each, 1000);
    age(taken[0], 25);
    age(taken[1], 23);
    files::replace(folder.file("a.kvs"), "new");
    std::vector<string> expected = notOurs;
    expected.insert(expected.end(), taken.begin() + 1, taken.end());
    expected.push_back("a.kvs");
    EXPECT_THAT(namesIn(folder.path()), UnorderedElementsAreArray(expected));
}

}  // namespace
