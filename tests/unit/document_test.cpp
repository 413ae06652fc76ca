#include "platform/document.h"

#include <gmock/gmock.h>

#include "platform/errors.h"
#include "platform/files.h"
#include "tests/support/error_of.h"
#include "tests/support/temp_folder.h"

namespace {

using namespace platform;
using namespace std::string_literals;
using std::string;
using support::errorOf;

string valueIn(const string& bytes, std::string_view section, std::string_view key) {
    const auto document = ProfileDocument::parse(bytes);
    const auto* found = document.findSection(section);
    return found == nullptr ? "no section" : string(found->find(key).value_or("no key"));
}

/// What comes back of a text under the key "k".
string there(const string& value) {
    ProfileWriter writer;
    writer.section("s");
    writer.set("k", value);
    return writer.bytes();
}

TEST(ProfileDocument, ReadsLinesAsWindowsDoes) {
    struct {
        const char *bytes, *value;
    } const cases[] = {
        {"[s]\r\nk=v\r\n", "v"},
        {"[s]\nk=v", "v"},
        {"[S]\nK=v", "v"},
        {"  [s]\n \tk \t=  v w \t\r\n", "v w"},
        {"[s] behind\nk=v", "v"},
        {"[s\nk=v", "no section"},
        {"k=v\n[s]\nj=1", "no key"},
        {"[s]\n;k=1\nk=2", "2"},
        {"[s]\nk\nk=2", "2"},
        {"[s]\nk=a=b;c [d]", "a=b;c [d]"},
        {"[s]\nk=\" v \"", " v "},
        {"[s]\nk='v'", "v"},
        {"[s]\nk=\"v'", "\"v'"},
        {"[s]\nk=\"", "\""},
        {"[s]\nk=\"\"v\"\"", "\"v\""},
        {"[s]\nk=", ""},
        {"[s]\n=v\nk=w", "w"},
        {"[s]\nk=1\nK=2", "1"},
        {"[s]\nj=1\n[t]\nk=1\n[S]\nk=2", "no key"},
        {"[s]\nk=v\x1A", "v"},
    };
    for (const auto& c : cases) EXPECT_EQ(valueIn(c.bytes, "s", "k"), c.value) << c.bytes;
}

TEST(ProfileDocument, RecognisesItsEncoding) {
    EXPECT_EQ(valueIn("[s]\nk=Gr\xF6\xDF"s + "e \x80", "s", "k"), "Größe €");
    EXPECT_EQ(valueIn("[s]\nk=Größe", "s", "k"), "Größe");
    EXPECT_EQ(valueIn("\xEF\xBB\xBF[s]\nk=Größe", "s", "k"), "Größe");
    EXPECT_EQ(valueIn("\xFF\xFE[\0s\0]\0\n\0k\0=\0\x03\x26"s, "s", "k"), "☃");
    EXPECT_EQ(valueIn("\xFE\xFF\0[\0s\0]\0\n\0k\0=\x26\x03"s, "s", "k"), "☃");
}

TEST(ProfileDocument, RefusesWhatIsNoText) {
    for (const string& bytes :
         {"[s]\nk=\0"s, "\0"s, "\xFF\xFE[\0s\0]"s, "\xFF\xFE\0\0"s, "\xEF\xBB\xBF\xFF"s, "[\0s\0]\0"s})
        EXPECT_THROW(ProfileDocument::parse(bytes), RuntimeError) << testing::PrintToString(bytes);
    const support::TempFolder folder;
    const string file = folder.write("a.kvs", "\0"s);
    EXPECT_THAT(errorOf([&] { ProfileDocument::load(file); }).description(),
                testing::HasSubstr("a.kvs\" kann nicht gelesen werden: "));
}

/// Numbered keys take a short cut, which must find the same as a search.
TEST(ProfileDocument, FindsEveryKeyInAnyArrangement) {
    const std::vector<string> arrangements[] = {
        {"Name", "X", "1", "2", "3", "4"},
        {"1", "2", "3", "Name", "4", "5"},
        {"3", "1", "2", "10", "11", "12", "9"},
        {"0", "1", "007", "2", "-1", "+1", "4294967295", "99999999999"},
        {"5", "4", "3", "2", "1", "0"},
        {"999999998", "999999999", "1000000000", "1000000001"},
        {"1", "Ä", "ö", "b", "c", "d", "e", "f", "g", "h", "i", "k", "l", "m", "n", "o", "p", "q", "2", "3"},
    };
    for (const auto& keys : arrangements) {
        string bytes = "[s]\n";
        for (const string& key : keys) bytes += key + "=value " + key + "\n";
        for (const string& key : keys) bytes += key + "=again\n";  // the first count
        const auto document = ProfileDocument::parse(bytes);
        const auto& section = document.section(0);
        ASSERT_EQ(section.size(), keys.size());
        for (std::size_t i = 0; i < keys.size(); ++i) {
            EXPECT_EQ(section.key(i), keys[i]);
            EXPECT_EQ(section.find(keys[i]), "value " + keys[i]);
        }
        for (const char* absent : {"", "7x", "14", "01", "Nam", "1000000"})
            EXPECT_EQ(section.find(absent), std::nullopt);
    }
}

TEST(ProfileWriter, ChoosesTheBytesThatWindowsUnderstands) {
    ProfileWriter writer;
    writer.section("s");
    writer.set("Größe", 7);
    EXPECT_EQ(writer.bytes(),
              "[s]\r\nGr\xF6\xDF"
              "e=7\r\n");
    EXPECT_EQ(there("Riß"), "[s]\r\nk=Ri\xDF\r\n");
    EXPECT_EQ(there(" a "), "[s]\r\nk=\" a \"\r\n");
    EXPECT_THAT(there("Ω"), testing::StartsWith("\xFF\xFE[\0s\0]\0\r\0\n\0"s));
    // In Windows-1252 these bytes are a valid UTF-8 letter.
    EXPECT_THAT(there("ÃŸ"), testing::StartsWith("\xFF\xFE"));
}

TEST(ProfileWriter, RefusesWhatOneLineCannotHold) {
    for (const string& value : {"a\nb"s, "a\r"s, "\n"s, "a\0b"s, "\x1A"s, "\x01"s, "a\xFF"s, "\xC3"s,
                                "\xED\xA0\xBD\xED\xB8\x80"s}) {
        ProfileWriter writer;
        writer.section("Class1");
        writer.set("Name", "gut");
        const string before = writer.bytes();
        const RuntimeError problem = errorOf([&] { writer.set("Description", value); });
        EXPECT_EQ(problem.number(), error::typeMismatch) << testing::PrintToString(value);
        EXPECT_THAT(problem.description(), testing::HasSubstr("[Class1] unter \"Description\""));
        EXPECT_EQ(writer.bytes(), before);
    }
}

}  // namespace
