#include "platform/path.h"

#include <gtest/gtest.h>

#include "platform/text.h"

namespace {

using namespace platform;
using std::string;

TEST(Path, Normalises) {
    const std::pair<const char*, const char*> cases[] = {
        {"C:/a//b/", R"(C:\a\b)"},
        {R"(C:\)", R"(C:\)"},
        {R"(C:\..\a)", R"(C:\a)"},
        {R"(C:\a\.\b\..\c)", R"(C:\a\c)"},
        {R"(\\server\share\)", R"(\\server\share)"},
        {R"(\\server\share\a\..\..\b)", R"(\\server\share\b)"},
        {"//server/share//a", R"(\\server\share\a)"},
        {R"(\\server)", R"(\\server)"},
        {R"(\a\b\)", R"(\a\b)"},
        {R"(\)", R"(\)"},
        {R"(..\a\..\..\b)", R"(..\..\b)"},
        {R"(a\..)", "."},
        {R"(  C:\a b )", R"(C:\a b)"},
        {R"(\\?\C:\a\b)", R"(C:\a\b)"},
        {R"(\\?\UNC\server\share\a)", R"(\\server\share\a)"},
        {"", ""},
    };
    for (const auto& [given, expected] : cases) EXPECT_EQ(path::normalise(given), expected) << given;
}

TEST(Path, RelativeOnlyBelowTheBase) {
    struct {
        const char *file, *base, *relative;
    } const cases[] = {
        {R"(C:\Data\Picture\a.bmp)", R"(C:\Data)", R"(Picture\a.bmp)"},
        {R"(C:\Data\Picture\a.bmp)", R"(C:\Data\)", R"(Picture\a.bmp)"},
        {R"(c:\DÄTA\a.bmp)", R"(C:\däta)", "a.bmp"},
        {R"(C:\Ⱥb\c\a.bmp)", R"(C:\ⱥb)", R"(c\a.bmp)"},
        {R"(C:\Database\a.bmp)", R"(C:\Data)", R"(C:\Database\a.bmp)"},
        {R"(D:\Data\a.bmp)", R"(C:\Data)", R"(D:\Data\a.bmp)"},
        {R"(C:\Data)", R"(C:\Data)", R"(C:\Data)"},
        {R"(C:\Data\\a.bmp)", R"(C:\Data)", R"(C:\Data\\a.bmp)"},
        {R"(C:\Data\ a.bmp)", R"(C:\Data)", " a.bmp"},
        {R"(\\server\share\a.bmp)", R"(\\server\share)", "a.bmp"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(path::relativeTo(c.file, c.base), c.relative) << c.file;
        EXPECT_TRUE(text::equalNoCase(path::resolve(c.relative, c.base), c.file)) << c.file;
    }
    EXPECT_EQ(path::resolve(R"(\\server\share\a)", R"(C:\Data)"), R"(\\server\share\a)");
}

TEST(Path, ValidNames) {
    for (const char* good :
         {"a", "a b", ".kvs", "Größe Ω", "COM0", "COM10", "CONSOLE", "a.con", "LPTx", "nulls", "com"})
        EXPECT_TRUE(path::isValidFileName(good)) << good;
    for (const char* bad :
         {"",   "a.", "a ",   "..",   "a\\b", "a/b",     "a:b",  "a*",       "a?",   "a\"",      "a<",
          "a>", "a|", "a\nb", "\x01", "con",  "NUL.txt", "Com1", "lpt9.a.b", "COM¹", "aux .txt", "conin$"})
        EXPECT_FALSE(path::isValidFileName(bad)) << bad;
    EXPECT_TRUE(path::isValidFileName(string(255, 'a')));
    EXPECT_FALSE(path::isValidFileName(string(256, 'a')));
}

}  // namespace
