#include <gtest/gtest.h>

#include <vector>

#include "model/kvTamSampleSet.h"
#include "platform/document.h"
#include "platform/files.h"
#include "platform/text.h"
#include "platform/win32/wide.h"
#include "tests/unit/temporary_directory.h"

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

const std::vector<string> westernTexts = {"plain",
                                          "",
                                          " blanks ",
                                          "\ttab\t",
                                          "\"quoted\"",
                                          "'quoted'",
                                          "\"",
                                          "'",
                                          "\"\"",
                                          "''",
                                          "\"half",
                                          "a=b=c",
                                          "[s]",
                                          ";no",
                                          "a;b",
                                          "Störung",
                                          "Größe €",
                                          "ÃŸ",
                                          "100 % ~",
                                          R"(\\server\a b\)",
                                          "\xC2\xA0nbsp\xC2\xA0",
                                          "a\tb",
                                          "\xC2\x81"};

/// Writes the texts under 1, 2, ... and reads them by the functions of Windows and by our own reader.
void expectTheSame(const std::vector<string>& texts, bool utf16) {
    const TemporaryDirectory directory;
    const string file = directory / "Größe.kvs";
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

TEST(ProfileFunctions, ReadOurTextsInWindows1252) {
    std::vector<string> texts = westernTexts;
    std::erase(texts, "ÃŸ");
    expectTheSame(texts, false);
}

TEST(ProfileFunctions, ReadOurTextsInUtf16) {
    std::vector<string> texts = westernTexts;
    for (const char* text : {"Ω Я 漢字", " Ω ", "🙂", "\xED\xA0\xBD"}) texts.emplace_back(text);
    expectTheSame(texts, true);
}

/// Programs of the code page that the suite was made for see the very bytes.
TEST(ProfileFunctions, AnsiProgramsSeeWindows1252) {
    if (GetACP() != 1252) GTEST_SKIP() << "The system's code page is " << GetACP();
    const TemporaryDirectory directory;
    ProfileWriter writer;
    writer.section("s");
    writer.set("k", "Größe € Riß");
    writer.store(directory / "a.kvs");
    EXPECT_EQ(readAnsi(directory / "a.kvs", "s", "k"), text::toWindows1252("Größe € Riß"));
    writer.set("u", "Größe Ω");
    writer.store(directory / "b.kvs");
    EXPECT_EQ(readAnsi(directory / "b.kvs", "s", "k"), text::toWindows1252("Größe € Riß"));
}

TEST(ProfileFunctions, WhatTheyWriteWeRead) {
    const TemporaryDirectory directory;
    const string file = directory / "a.kvs";
    const std::vector<string> texts = {"plain", "Größe €", "a=b;c", "'quoted'x"};
    for (std::size_t i = 0; i < texts.size(); ++i)
        ASSERT_TRUE(WritePrivateProfileStringW(L"Class1", std::to_wstring(i + 1).c_str(),
                                               wide(texts[i]).c_str(), wide(file).c_str()));
    WritePrivateProfileStringW(nullptr, nullptr, nullptr,
                               wide(file).c_str());  // empties their cache to the disk
    const auto document = ProfileDocument::load(file);
    const auto* section = document.findSection("Class1");
    ASSERT_NE(section, nullptr);
    for (std::size_t i = 0; i < texts.size(); ++i)
        EXPECT_EQ(section->find(static_cast<std::int32_t>(i + 1)), texts[i]);
}

TEST(ProfileFunctions, ReadASavedSet) {
    for (const char* name : {"Störung", "Störung Ω"}) {
        const TemporaryDirectory directory;
        model::kvTamSampleSet set;
        set.AppPath(directory.path());
        set.kvtamClasses().Add(name).Description = " 'so' ";
        set.kvtamSamples().Add(directory / R"(Picture\Bild Ä.bmp)", "erstes").ItemClasses = {1};
        ASSERT_TRUE(set.Save(directory / "Menge.kvs"));
        const string& file = set.FileName();
        EXPECT_EQ(readWide(file, "Common", "Items"), "1");
        EXPECT_EQ(readWide(file, "Class1", "Name"), name);
        EXPECT_EQ(readWide(file, "Class1", "Description"), " 'so' ");
        EXPECT_EQ(readWide(file, "ROI0", "Name"), "(gesamtes Bild)");
        EXPECT_EQ(readWide(file, "ROI0", "1"), "1");
        EXPECT_EQ(readWide(file, "Items", "1"), R"(Picture\Bild Ä.bmp)");
        EXPECT_EQ(readWide(file, "ItemDescr", "1"), "erstes");
    }
}

}  // namespace
