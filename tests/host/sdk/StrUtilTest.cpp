#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common_strutil.h"
#include "support/HostFixture.h"

namespace {

class StrUtilTest : public vextest::HostFixture {};

struct DecodeCase {
    const char* name;
    std::string utf8;
    std::wstring wide;
};

TEST_F(StrUtilTest, Utf8BecomesWideCodePoints) {
    const std::vector<DecodeCase> rows = {
        {"empty", "", L""},
        {"ascii", "movie.mp4", L"movie.mp4"},
        {"two bytes",
         "Gr\xC3\xBC\xC3\x9F"
         "e",
         L"Gr\u00FC\u00DFe"},
        {"three bytes", "\xE5\x8B\x95\xE7\x94\xBB", L"\u52D5\u753B"},
        {"four bytes", "a\xF0\x9F\x8E\xAC", L"a\U0001F3AC"},
        {"lone continuation",
         "a\x80"
         "b",
         L"a\uFFFDb"},
        {"truncated at the end", "x\xE2\x82", L"x\uFFFD"},
        {"truncated before ascii",
         "\xE2\x82"
         "A",
         L"\uFFFDA"},
        {"overlong slash", "\xC0\xAF", L"\uFFFD\uFFFD"},
        {"surrogate", "\xED\xA0\x80", L"\uFFFD\uFFFD\uFFFD"},
        {"above U+10FFFF", "\xF4\x90\x80\x80", L"\uFFFD\uFFFD\uFFFD\uFFFD"},
        {"invalid lead", "\xFF", L"\uFFFD"},
    };
    for (const DecodeCase& row : rows)
        EXPECT_EQ(vexplot::utf8ToWideString(row.utf8), row.wide) << row.name;
}

TEST_F(StrUtilTest, WideStringsGoBackToTheSameBytes) {
    const std::vector<std::string> texts = {"", "plain",
                                            "Gr\xC3\xBC\xC3\x9F"
                                            "e",
                                            "\xE5\x8B\x95\xE7\x94\xBB/\xF0\x9F\x8E\xAC.keyframe"};
    for (const std::string& text : texts)
        EXPECT_EQ(vexplot::wideStringToUtf8(vexplot::utf8ToWideString(text)), text);
}

TEST_F(StrUtilTest, InvalidCodePointsBecomeTheReplacementCharacter) {
    const std::wstring wide = {L'a', static_cast<wchar_t>(0xD800), static_cast<wchar_t>(0x110000)};
    EXPECT_EQ(vexplot::wideStringToUtf8(wide), "a\xEF\xBF\xBD\xEF\xBF\xBD");
}

}  // namespace
