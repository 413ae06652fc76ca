#include <gtest/gtest.h>

#include <vector>

#include "platform/document.h"
#include "platform/files.h"
#include "platform/text.h"
#include "platform/win32/wide.h"
#include "tests/support/temp_folder.h"

/// The suite's other programs read set files by Windows' own profile functions: they must see what we wrote,
/// and we what they wrote.
namespace {

using namespace platform;
using std::string;

string readWide(const string& file, std::string_view section, std::string_view key) {
    std::vector<wchar_t> buffer(8192);
    const DWORD length =
        GetPrivateProfileStringW(wide(section).c_str(), wide(key).c_str(), L"(absent)", buffer.data(),
                                 static_cast<DWORD>(buffer.size()), wide(file).c_str());
    return narrow({buffer.data(), length});
}

string readAnsi(const string& file, const string& section, const string& key) {
    std::vector<char> buffer(8192);
    const DWORD length = GetPrivateProfileStringA(section.c_str(), key.c_str(), "(absent)", buffer.data(),
                                                  static_cast<DWORD>(buffer.size()), file.c_str());
    return {buffer.data(), length};
}

const std::vector<string> westernTexts = {"",         "plain",   " blanks ", "\ttab\t", "\"quoted\"",
                                          "'quoted'", "\"",      "'",        "\"\"",    "''",
                                          "\"half",   "a=b=c",   "[s]",      ";no",     "a;b",
                                          "Störung",  "Größe €", "100 % ~",  "a\tb",    "\xC2\x81"};

/// Writes the texts under 1, 2, ... and reads them by the functions of Windows and by our own reader.
void expectTheSame(const std::vector<string>& texts, bool utf16) {
    const support::TempFolder folder;
    const string file = folder.file("Größe.kvs");
    ProfileWriter writer;
    writer.section("Items");
    for (std::size_t i = 0; i < texts.size(); ++i) writer.set(static_cast<std::int32_t>(i + 1), texts[i]);
    writer.section("Class1");
    writer.set("Name", texts.back());
    writer.store(file);
    ASSERT_EQ(files::read(file).starts_with("\xFF\xFE"), utf16);
    for (std::size_t i = 0; i < texts.size(); ++i)
        EXPECT_EQ(readWide(file, "Items", std::to_string(i + 1)), texts[i])
            << testing::PrintToString(texts[i]);
    EXPECT_EQ(readWide(file, "class1", "NAME"), texts.back());
    EXPECT_EQ(readWide(file, "Class1", "none"), "(absent)");
}

TEST(ProfileFunctions, ReadOurTexts) {
    std::vector<string> texts = westernTexts;
    texts.insert(texts.end(), {"\xC2\xA0nbsp\xC2\xA0", R"(\\server\a b\)"});
    expectTheSame(texts, false);
    texts.insert(texts.end(), {"ÃŸ", "Ω Я 漢字", " Ω ", "🙂", "\xED\xA0\xBD"});
    expectTheSame(texts, true);
}

/// Programs of the code page that the suite was made for see the very bytes.
TEST(ProfileFunctions, AnsiProgramsSeeWindows1252) {
    if (GetACP() != 1252) GTEST_SKIP() << "The system's code page is " << GetACP();
    const support::TempFolder folder;
    ProfileWriter writer;
    writer.section("s");
    writer.set("k", "Größe € Riß");
    writer.store(folder.file("a.kvs"));
    EXPECT_EQ(readAnsi(folder.file("a.kvs"), "s", "k"), text::toWindows1252("Größe € Riß"));
    writer.set("u", "Größe Ω");
    writer.store(folder.file("b.kvs"));
    EXPECT_EQ(readAnsi(folder.file("b.kvs"), "s", "k"), text::toWindows1252("Größe € Riß"));
}

}  // namespace
