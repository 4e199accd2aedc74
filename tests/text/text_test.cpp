// Numbers, fields of fixed width, what counts as a value, and the character set.
#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <map>
#include <vector>

#include "text/clean_text.h"
#include "text/code_page.h"
#include "text/numbers.h"
#include "text/strings.h"

namespace {

using namespace std::string_literals;
using std::string;

TEST(Numbers, TheLongestLeadingNumberIsTheValue) {
    constexpr double kMost = std::numeric_limits<double>::max();
    const std::map<double, std::vector<string>> cases = {
        {0,
         {"", "mm", ".", "-", "0x10", "inf", "nan", "\t5", "e5", "--5", "1e-999", "0e999",
          "0." + string(100000, '0') + "1"}},
        {1, {"1e", "1e+", "1,5", "1" + string(400, '0') + "e-400"}},
        {-3, {"-3", "- 3", "-3.", "-3ex"}},
        {7.85, {"007.850", "7.85.9", "+ 7 . 8 5 t"}},
        {1900, {"1900", "1.9e3", "1.9D+3", "19d 2", "190000 E - 2"}},
        {kMost, {"1e999", string(100000, '9'), "9e99999999999"}},
        {-kMost, {"-1e999"}}};
    for (const auto& [value, texts] : cases) {
        for (const string& text : texts) EXPECT_EQ(text::Val(text), value) << text;
    }
}

TEST(Numbers, AreWrittenInTheGeneralFormShownWithAZeroAndPlain) {
    const struct {
        float value;
        const char *general, *shown, *plain;
    } cases[] = {
        {-0.0f, " 0", "0", "0"},
        {7.85f, " 7.85", "7.85", "7.85"},
        {.5f, " .5", "0.5", "0.5"},
        {-.5f, "-.5", "0", "-0.5"},
        {1e7f, " 1E+07", "1E+07", "10000000"},
        {.00001f, " 1E-05", "01E-05", "0.00001"},
        {-2.5e-7f, "-2.5E-07", "0", "-0.00000025"},
        {1234567.8f, " 1234568", "1234568", "1234568"},
        {1.25e12f, " 1.25E+12", "1.25E+12", "1250000000000"},
    };
    for (const auto& [value, general, shown, plain] : cases) {
        EXPECT_EQ(text::Str(value), general);
        EXPECT_EQ(text::ShownNumber(value), shown);
        EXPECT_EQ(text::PlainText(value), plain);
    }
    EXPECT_EQ(text::Str(64) + text::Str(-32768) + text::LeadingZeroText("abc"), " 64-32768abc");
    // What is written comes back as the same text, or a file would change each time it is saved.
    for (std::uint32_t bits = 1; bits < 0x7F800000u; bits += 104729) {
        float value = 0;
        std::memcpy(&value, &bits, sizeof value);
        const string text = text::Str(value);
        ASSERT_EQ(text::Str(text::ToSingle(text)), text);
        ASSERT_EQ(text::ToSingle(text::PlainText(value)), text::ToSingle(text));
    }
}

TEST(Texts, CharactersConvertOrAreRefusedAndHaveTwoCases) {
    string all;
    for (int code = 1; code < 256; ++code) all += static_cast<char>(code);
    EXPECT_EQ(text::FromUtf8(text::ToUtf8(all)), all);
    EXPECT_EQ(text::ToUtf8("\x7F\x80\x9F\xA0\xFC"), "\x7F\xE2\x82\xAC\xC5\xB8\xC2\xA0\xC3\xBC");
    // Greek, an emoji, overlong forms, a lone surrogate, cut short, stray continuations.
    for (const char* bad :
         {"\xCE\xA9", "\xF0\x9F\x94\xA5", "\xC1\xBF", "\xE0\x83\xBF", "\xF0\x82\x82\xAC",
          "\xED\xA0\x80", "a\xC3", "\x80", "\xFF", "\xE2\x82", "\xC3x", "\xC3\xC3"}) {
        EXPECT_EQ(text::FromUtf8(bad), std::nullopt) << bad;
    }
    const string neither = "@[`{0\x83\xD7\xF7\xDF", upper = "AZ\xC0\xD6\xD8\xDE\x8A\x8C\x8E\x9F",
                 lower = "az\xE0\xF6\xF8\xFE\x9A\x9C\x9E\xFF";
    EXPECT_EQ(text::LowerCase(upper + lower + neither), lower + lower + neither);
    EXPECT_EQ(text::UpperCase(upper + lower + neither), upper + upper + neither);
    EXPECT_TRUE(text::EqualIgnoringCase(upper, lower) && !text::EqualIgnoringCase("a", "ab"));
    EXPECT_TRUE(text::LessIgnoringCase("abc", "ABD") && text::LessIgnoringCase("Z", "\xE9"));
}

}  // namespace
