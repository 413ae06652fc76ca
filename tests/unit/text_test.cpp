#include "platform/text.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <iterator>
#include <limits>
#include <numeric>
#include <random>
#include <vector>

#include "platform/errors.h"
#include "tests/support/error_of.h"

namespace {

using namespace platform;
using std::string;

TEST(Text, Utf16ComesBackEqual) {
    for (const std::u16string& units :
         {std::u16string(u""), std::u16string(u"abc"), std::u16string(u"Störung Ω Я"),
          std::u16string(u"🙂x"), std::u16string{0xD83D}, std::u16string{0xDE00, 0xD83D},
          std::u16string{u'a', 0xD83D, u'b'}, std::u16string{0xD83D, 0xD83D, 0xDE00},
          std::u16string{0xFFFF, 0xFEFF}})
        EXPECT_EQ(text::toUtf16(text::fromUtf16(units)), units);
}

TEST(Text, BrokenUtf8BecomesReplacementCharacters) {
    EXPECT_EQ(text::toUtf16("a\xFFz"), u"a\uFFFDz");
    EXPECT_EQ(text::toUtf16("a\xC3"), u"a\uFFFD");
    EXPECT_EQ(text::toUtf16("\xE2\x82z"), u"\uFFFD\uFFFDz");
}

TEST(Text, TellsUtf8) {
    for (const char* good : {"", "abc", "ä", "€", "🙂", "longer than eight bytes",
                             "longer than eight bytes ä", "\xEF\xBF\xBF", "\xF4\x8F\xBF\xBF"})
        EXPECT_TRUE(text::isUtf8(good)) << good;
    for (const char* bad :
         {"\x80", "a\xC3", "\xC0\x80", "\xC1\xBF", "\xE0\x80\x80", "\xED\xA0\x80", "\xED\xB0\x80",
          "\xF0\x80\x80\x80", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xC3(", "12345678\xFC"})
        EXPECT_FALSE(text::isUtf8(bad)) << bad;
}

TEST(Text, Windows1252HasEveryByte) {
    string bytes;
    for (int b = 1; b < 256; ++b) bytes += static_cast<char>(b);
    EXPECT_EQ(text::toWindows1252(text::fromWindows1252(bytes)), bytes);
    EXPECT_EQ(text::fromWindows1252("\x80\x84\xDF\xFC\x81"), "€„ßü\xC2\x81");
    for (const char* foreign : {"Ω", "Я", "🙂", "\xC2\x80", "ş", "a\xFF"})
        EXPECT_EQ(text::toWindows1252(foreign), std::nullopt) << foreign;
}

TEST(Text, CaseDoesNotCountInThreeScripts) {
    const std::pair<const char*, const char*> equal[] = {
        {"Störung ÀÉÎÕÜÿ aÄb ŠŽČŁ", "STÖRUNG àéîõüŸ AäB šžčł"},
        {"ΣΊΣΥΦΟΣ ΆΈΉΊΌΎΏ", "σίσυφος άέήίόύώ"},
        {"ПРИВЕТ Ё Ҁ", "привет ё ҁ"},
        {"Ⱥ Ǆ ＡＺ", "ⱥ ǆ ａｚ"},
    };
    for (const auto& [a, b] : equal) {
        EXPECT_TRUE(text::equalNoCase(a, b)) << a << ' ' << b;
        EXPECT_EQ(text::foldCase(a), text::foldCase(b));
    }
    const std::pair<const char*, const char*> different[] = {
        {"Riß", "RISS"}, {"ä", "a"}, {"÷", "×"},       {"a", "aa"},
        {"", "a"},       {"ı", "I"}, {"\xFF", "\xFE"}, {"д", "т"},
    };
    for (const auto& [a, b] : different) {
        EXPECT_FALSE(text::equalNoCase(a, b)) << a << ' ' << b;
        EXPECT_NE(text::foldCase(a), text::foldCase(b));
    }
    for (char16_t c = 1; c < 0xFFFF; ++c) {
        const string once = text::foldCase(text::fromUtf16(std::u16string(1, c)));
        ASSERT_EQ(text::foldCase(once), once) << std::hex << static_cast<int>(c);
    }
}

TEST(Text, NaturalOrder) {
    // An umlaut stands with its vowel: "Äpfel" comes after "Affe", by its second letter.
    const std::vector<string> ordered = {
        "",       "1.bmp",  "2.bmp",   "10.bmp",   "99999999999999999999.bmp",
        "_a",     "Affe",   "Äpfel",   "bild1",    "Bild2",
        "bild02", "bild10", "bild10a", "bild010b", "Öl",
        "Omega",  "z",      "Ω"};
    std::vector<string> sorted(ordered.rbegin(), ordered.rend());
    std::sort(sorted.begin(), sorted.end(),
              [](const string& a, const string& b) { return text::compareNatural(a, b) < 0; });
    EXPECT_EQ(sorted, ordered);
    EXPECT_EQ(text::compareNatural("BILD 7 Ä", "bild 7 ä"), 0);

    // Many are sorted by keys, not by comparing them: the same order, equal ones as they stood.
    std::mt19937 random(3);
    const char* const parts[] = {"a", "Ä", "ä", "b", "0", "7", "10", "007", "_", ":", "/", "Ω", "\xFF"};
    std::vector<string> names(ordered.rbegin(), ordered.rend());
    while (names.size() < 500) {
        string name;
        for (auto length = random() % 6; length > 0; --length) name += parts[random() % std::size(parts)];
        names.push_back(name);
    }
    std::vector<std::uint32_t> expected(names.size());
    std::iota(expected.begin(), expected.end(), 0U);
    std::stable_sort(expected.begin(), expected.end(),
                     [&](auto a, auto b) { return text::compareNatural(names[a], names[b]) < 0; });
    EXPECT_EQ(text::naturalOrder({names.begin(), names.end()}), expected);
    const std::pair<const char*, const char*> pairs[] = {
        {"apfel", "äpfel"}, {"äpfel1", "apfel2"}, {"a1", "a01"}, {"a01b1", "a1b2"}, {"a19", "a109"},
    };
    for (const auto& [less, more] : pairs) EXPECT_LT(text::compareNatural(less, more), 0) << less;
}

TEST(Text, NumbersAreWholeAndFit) {
    const std::pair<const char*, std::int32_t> good[] = {
        {"0", 0},
        {"-1", -1},
        {"+7", 7},
        {" 12\t", 12},
        {"007", 7},
        {"2147483647", 2147483647},
        {"-2147483648", -2147483647 - 1},
    };
    for (const auto& [written, number] : good) EXPECT_EQ(text::parseInt32(written), number) << written;
    for (const char* bad : {"", " ", "-", "+", "+-1", "-+1", "1.0", "1,5", "0x10", "1 2", "abc", "1a",
                            "2147483648", "-2147483649", "99999999999999999999"})
        EXPECT_EQ(text::parseInt32(bad), std::nullopt) << bad;
    const RuntimeError none = support::errorOf([] { text::toInt32("x", "Breite"); });
    EXPECT_EQ(none.number(), error::typeMismatch);
    EXPECT_EQ(none.description(), "Breite: \"x\" ist keine ganze Zahl.");
    const RuntimeError big = support::errorOf([] { text::toInt32("3000000000", "Breite"); });
    EXPECT_EQ(big.number(), error::overflow);
    EXPECT_THAT(big.description(), testing::StartsWith("Breite: "));
}

TEST(Text, HalvesGoToTheEvenNumber) {
    const std::pair<double, std::int32_t> roundings[] = {{0.5, 0},  {1.5, 2},    {2.5, 2},
                                                         {-0.5, 0}, {-1.5, -2},  {2.4999, 2},
                                                         {2.51, 3}, {-2.51, -3}, {2147483647.4, 2147483647}};
    for (const auto& [value, rounded] : roundings) EXPECT_EQ(text::roundHalfEven(value), rounded) << value;
    for (const double bad : {2147483647.5, -2147483649.0, 1e300, std::numeric_limits<double>::quiet_NaN()})
        EXPECT_THROW(text::roundHalfEven(bad), RuntimeError) << bad;
}

}  // namespace
