#include "platform/files.h"

#include <gmock/gmock.h>

#include <ctime>

#include "platform/errors.h"
#include "platform/path.h"
#include "platform/text.h"
#include "tests/support/error_of.h"
#include "tests/support/temp_folder.h"

namespace {

using namespace platform;
using std::string;
using support::errorOf;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

std::vector<string> namesIn(const string& directory) {
    std::vector<string> names;
    for (const files::Entry& entry : files::list(directory)) names.push_back(entry.name);
    return names;
}

TEST(Files, WritesAndReadsAnyBytes) {
    const support::TempFolder folder;
    const string content("\0\r\n\xFF\x1A text", 10);
    for (const char* name : {"plain.txt", "Größe [1]; =.txt", "Ω Я 漢字 🙂.txt", " blank.txt"}) {
        files::replace(folder.file(name), content);
        EXPECT_EQ(files::read(folder.file(name)), content) << name;
        EXPECT_THAT(namesIn(folder.path()), ElementsAre(name));
        files::remove(folder.file(name));
        EXPECT_FALSE(files::exists(folder.file(name)));
    }
    files::remove(folder.file("never there"));
}

TEST(Files, ReadsParts) {
    const support::TempFolder folder;
    const string file = folder.write("a", "0123456789");
    EXPECT_EQ(files::readAt(file, 3, 4), "3456");
    EXPECT_EQ(files::readAt(file, 8, 100), "89");
    EXPECT_EQ(files::readAt(file, 11, 5), "");
    EXPECT_EQ(files::readAt(file, std::uint64_t{1} << 40, 5), "");
    EXPECT_EQ(files::readAt(folder.file("none"), 0, 5), "");
    EXPECT_EQ(files::readAt(folder.path(), 0, 5), "");
}

TEST(Files, CaseDoesNotCount) {
    const support::TempFolder folder;
    folder.write(R"(Sub\Störung.BMP)", "old");
    EXPECT_TRUE(files::fileExists(folder.file(R"(SUB\STÖRUNG.bmp)")));
    files::replace(folder.file(R"(sub\störung.bmp)"), "new");
    EXPECT_EQ(files::list(folder.file("SUB")).size(), 1U);
    EXPECT_EQ(files::read(folder.file(R"(Sub\Störung.BMP)")), "new");
    files::createDirectories(folder.file(R"(sub\Deeper)"));
    EXPECT_TRUE(files::directoryExists(folder.file(R"(Sub\Deeper)")));
}

TEST(Files, KnowsWhatIsWhat) {
    const support::TempFolder folder;
    const string file = folder.write(R"(d\a.txt)", "12345");
    const string sub = folder.file("d");
    EXPECT_TRUE(files::exists(file) && files::fileExists(file) && !files::directoryExists(file));
    EXPECT_TRUE(files::exists(sub) && !files::fileExists(sub) && files::directoryExists(sub));
    EXPECT_TRUE(files::directoryExists(path::withBackslash(sub)));
    for (const string& absent :
         {folder.file("x"), string(), string(R"(Q:\x)"), file + R"(\x)", folder.file("a*")})
        EXPECT_FALSE(files::exists(absent) || files::fileExists(absent) || files::directoryExists(absent))
            << absent;

    folder.write("top.txt", "123");
    EXPECT_THAT(namesIn(folder.path()), UnorderedElementsAre("d", "top.txt"));
    for (const files::Entry& entry : files::list(folder.path())) {
        EXPECT_EQ(entry.isDirectory, entry.name == "d");
        if (entry.isDirectory) continue;
        EXPECT_EQ(entry.size, 3U);
        EXPECT_NEAR(static_cast<double>(entry.modified), static_cast<double>(std::time(nullptr)), 60);
    }
}

TEST(Files, ListsManyAndFoldedNamesSorted) {
    const support::TempFolder folder;
    for (const char* name : {"b.BMP", "Ä.bmp", "a.bmp", "Я.jpg", R"(sub\x.bmp)"}) folder.write(name);
    EXPECT_THAT(files::foldedFileNames(folder.path()), ElementsAre("a.bmp", "b.bmp", "ä.bmp", "я.jpg"));
    EXPECT_TRUE(files::foldedFileNames(folder.file("none")).empty());
    std::vector<string> expected;  // more than one buffer holds
    for (int i = 0; i < 200; ++i) expected.push_back(string(200, 'n') + std::to_string(i));
    for (const string& name : expected) folder.write("many\\" + name, "");
    EXPECT_THAT(namesIn(folder.file("many")), testing::UnorderedElementsAreArray(expected));
}

TEST(Files, LongPathsWork) {
    const support::TempFolder folder;
    string deep;
    for (int i = 0; i < 8; ++i) deep += string(50, 'd') + "\\";
    const string file = folder.write(deep + "Bild.bmp", "deep");
    EXPECT_EQ(files::read(file), "deep");
    EXPECT_TRUE(files::fileExists(file));
    EXPECT_THAT(files::foldedFileNames(path::directory(file)), ElementsAre("bild.bmp"));
}

TEST(Files, ErrorsNameTheFileAndTheReason) {
    const support::TempFolder folder;
    const string file = folder.write("a"), none = folder.file("fehlt.kvs");
    EXPECT_EQ(errorOf([&] { files::read(folder.path()); }).number(), error::fileError);
    EXPECT_EQ(errorOf([&] { files::list(none); }).number(), error::pathNotFound);
    EXPECT_EQ(errorOf([&] { files::list(file); }).number(), error::pathNotFound);
    EXPECT_EQ(errorOf([&] { files::createDirectories(file + R"(\sub)"); }).number(), error::fileError);
    const RuntimeError missing = errorOf([&] { files::read(none); });
    EXPECT_EQ(missing.number(), error::fileNotFound);
    EXPECT_THAT(missing.description(),
                testing::MatchesRegex("Die Datei \".*fehlt.kvs\" wurde nicht gefunden: .+"));
}

}  // namespace
