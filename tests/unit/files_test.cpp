#include "platform/files.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <ctime>

#include "platform/errors.h"
#include "platform/path.h"
#include "platform/text.h"
#include "tests/unit/error_of.h"
#include "tests/unit/temporary_directory.h"

namespace {

using namespace platform;
using std::string;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

std::vector<string> namesIn(const string& directory) {
    std::vector<string> names;
    for (const files::Entry& entry : files::list(directory)) names.push_back(entry.name);
    return names;
}

TEST(Files, WritesAndReadsAnyBytes) {
    const TemporaryDirectory directory;
    const string content("\0\r\n\xFF\x1A text", 10);
    for (const char* name : {"plain.txt", "Größe [1]; =.txt", "Ω Я 漢字 🙂.txt", " blank.txt"}) {
        files::replace(directory / name, content);
        EXPECT_EQ(files::read(directory / name), content) << name;
        EXPECT_THAT(namesIn(directory.path()), ElementsAre(name));
        files::remove(directory / name);
        EXPECT_FALSE(files::exists(directory / name));
    }
    files::remove(directory / "never there");
}

TEST(Files, ReadsParts) {
    const TemporaryDirectory directory;
    const string file = directory.put("a", "0123456789");
    EXPECT_EQ(files::readAt(file, 3, 4), "3456");
    EXPECT_EQ(files::readAt(file, 8, 100), "89");
    EXPECT_EQ(files::readAt(file, 11, 5), "");
    EXPECT_EQ(files::readAt(file, std::uint64_t{1} << 40, 5), "");
    EXPECT_EQ(files::readAt(directory / "none", 0, 5), "");
    EXPECT_EQ(files::readAt(directory.path(), 0, 5), "");
}

TEST(Files, CaseDoesNotCount) {
    const TemporaryDirectory directory;
    directory.put(R"(Sub\Störung.BMP)", "old");
    EXPECT_TRUE(files::fileExists(directory / R"(SUB\STÖRUNG.bmp)"));
    EXPECT_EQ(files::read(directory / R"(sub\störung.bmp)"), "old");
    files::replace(directory / R"(sub\störung.bmp)", "new");
    EXPECT_EQ(files::list(directory / "SUB").size(), 1U);
    EXPECT_EQ(files::read(directory / R"(Sub\Störung.BMP)"), "new");
    files::createDirectories(directory / R"(sub\Deeper)");
    EXPECT_TRUE(files::directoryExists(directory / R"(Sub\Deeper)"));
}

TEST(Files, KnowsWhatIsWhat) {
    const TemporaryDirectory directory;
    const string file = directory.put(R"(d\a.txt)", "12345");
    EXPECT_TRUE(files::exists(file) && files::fileExists(file) && !files::directoryExists(file));
    const string sub = directory / "d";
    EXPECT_TRUE(files::exists(sub) && !files::fileExists(sub) && files::directoryExists(sub));
    EXPECT_TRUE(files::directoryExists(path::withBackslash(sub)));
    for (const string& absent :
         {directory / "x", string(), string(R"(Q:\x)"), file + R"(\x)", directory / "a*"})
        EXPECT_FALSE(files::exists(absent) || files::fileExists(absent) || files::directoryExists(absent))
            << absent;

    directory.put("top.txt", "123");
    EXPECT_THAT(namesIn(directory.path()), UnorderedElementsAre("d", "top.txt"));
    for (const files::Entry& entry : files::list(directory.path())) {
        EXPECT_EQ(entry.isDirectory, entry.name == "d");
        if (!entry.isDirectory) {
            EXPECT_EQ(entry.size, 3U);
            EXPECT_NEAR(static_cast<double>(entry.modified), static_cast<double>(std::time(nullptr)), 60);
        }
    }
}

TEST(Files, FoldedNamesAreSortedFiles) {
    const TemporaryDirectory directory;
    for (const char* name : {"b.BMP", "Ä.bmp", "a.bmp", "Я.jpg"}) directory.put(name);
    directory.put(R"(sub\x.bmp)");
    const auto names = files::foldedFileNames(directory.path());
    EXPECT_TRUE(std::is_sorted(names.begin(), names.end()));
    EXPECT_THAT(names, UnorderedElementsAre("a.bmp", "b.bmp", "ä.bmp", "я.jpg"));
    EXPECT_TRUE(files::foldedFileNames(directory / "none").empty());
}

TEST(Files, ListsMoreThanOneBufferHolds) {
    const TemporaryDirectory directory;
    std::vector<string> expected;
    for (int i = 0; i < 200; ++i) expected.push_back(string(200, 'n') + std::to_string(i));
    for (const string& name : expected) directory.put(name, "");
    EXPECT_THAT(namesIn(directory.path()), testing::UnorderedElementsAreArray(expected));
}

TEST(Files, LongPathsWork) {
    const TemporaryDirectory directory;
    string deep = directory.path();
    for (int i = 0; i < 8; ++i) deep = path::join(deep, string(50, 'd'));
    files::createDirectories(deep);
    const string file = path::join(deep, "Bild.bmp");
    files::replace(file, "deep");
    EXPECT_EQ(files::read(file), "deep");
    EXPECT_TRUE(files::fileExists(file));
    EXPECT_THAT(files::foldedFileNames(deep), ElementsAre("bild.bmp"));
}

TEST(Files, AFailedReplacementLeavesTheOldFileAndNothingElse) {
    const TemporaryDirectory directory;
    const string file =
        directory.put(R"(taken\old.kvs)", "old");  // a directory stands where the file should go
    EXPECT_EQ(errorOf([&] { files::replace(directory / "taken", "new"); }), error::fileError);
    EXPECT_EQ(files::read(file), "old");
    EXPECT_THAT(namesIn(directory.path()), ElementsAre("taken"));
    EXPECT_EQ(errorOf([&] { files::replace(directory / R"(none\a)", "new"); }), error::fileError);
}

TEST(Files, ErrorsNameTheFileAndTheReason) {
    const TemporaryDirectory directory;
    const string file = directory.put("a");
    EXPECT_EQ(errorOf([&] { files::read(directory / "none"); }), error::fileNotFound);
    EXPECT_EQ(errorOf([&] { files::read(directory.path()); }), error::fileError);
    EXPECT_EQ(errorOf([&] { files::list(directory / "none"); }), error::pathNotFound);
    EXPECT_EQ(errorOf([&] { files::list(file); }), error::pathNotFound);
    EXPECT_EQ(errorOf([&] { files::createDirectories(file + R"(\sub)"); }), error::fileError);
    try {
        files::read(directory / "fehlt.kvs");
    } catch (const RuntimeError& problem) {
        EXPECT_THAT(problem.description(),
                    testing::MatchesRegex("Die Datei \".*fehlt.kvs\" wurde nicht gefunden: .+"));
    }
}

TEST(Files, FullPaths) {
    EXPECT_TRUE(path::isAbsolute(files::fullPath("out.kvs")));
    EXPECT_EQ(files::fullPath(R"(a\..\out.kvs)"), files::fullPath("./out.kvs"));
    EXPECT_EQ(files::fullPath("Z:/a/b/"), R"(Z:\a\b)");
    EXPECT_EQ(files::fullPath(R"(\\server\share\a)"), R"(\\server\share\a)");
    EXPECT_TRUE(files::directoryExists(files::programDirectory()));
    const TemporaryDirectory directory;
    EXPECT_EQ(files::fullPath(directory.path()), directory.path());
}

}  // namespace
