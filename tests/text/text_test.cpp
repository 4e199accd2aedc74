// Numbers, fixed-width fields and the character set.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <limits>
#include <string>

#include "text/code_page.h"
#include "text/fixed_text.h"
#include "text/numbers.h"
#include "text/strings.h"

namespace {

using namespace std::string_literals;

TEST(Val, TakesTheLongestLeadingNumber) {
    const std::pair<const char*, double> cases[] = {
        {"12.5mm", 12.5}, {"mm", 0},         {"", 0},       {"   ", 0},   {" 1 2 . 5 ", 12.5},
        {"-3", -3},       {"- 3", -3},       {"+.5", .5},   {".", 0},     {"-", 0},
        {"5.", 5},        {"1.2.3", 1.2},    {"1e3", 1000}, {"1D2", 100}, {"1 e - 2", .01},
        {"1e", 1},        {"1e+", 1},        {"2ex", 2},    {"0x10", 0},  {"&H10", 0},
        {"1,5", 1},       {"007.850", 7.85}, {"inf", 0},    {"nan", 0},   {"10, 2.5, 1200", 10},
        {"\t5", 0},       {"e5", 0},         {"--5", 0},
    };
    for (const auto& [text, value] : cases) EXPECT_EQ(text::Val(text), value) << text;
}

TEST(Val, StaysFiniteForAnyText) {
    EXPECT_EQ(text::Val("1e999"), std::numeric_limits<double>::max());
    EXPECT_EQ(text::Val("-1e99999999999"), -std::numeric_limits<double>::max());
    EXPECT_EQ(text::Val("1e-999"), 0);
    EXPECT_EQ(text::Val("0e999"), 0);
    EXPECT_EQ(text::Val(std::string(100000, '9')), std::numeric_limits<double>::max());
    EXPECT_EQ(text::Val("0." + std::string(100000, '0') + "1"), 0);
    EXPECT_EQ(text::Val("1" + std::string(400, '0') + "e-400"), 1);
    EXPECT_EQ(text::ToSingle(1e300), std::numeric_limits<float>::max());
    EXPECT_EQ(text::ToSingle(-1e300), -std::numeric_limits<float>::max());
}

TEST(Str, WritesTheGeneralForm) {
    const std::pair<float, const char*> cases[] = {
        {0.0f, " 0"},       {-0.0f, " 0"},        {7.85f, " 7.85"},       {.5f, " .5"},
        {-.5f, "-.5"},      {12000.0f, " 12000"}, {1e7f, " 1E+07"},       {9999999.0f, " 9999999"},
        {.0001f, " .0001"}, {.00001f, " 1E-05"},  {-2.5e-7f, "-2.5E-07"}, {1234567.8f, " 1234568"},
        {.1f, " .1"},       {-10.25f, "-10.25"},
    };
    for (const auto& [value, text] : cases) {
        EXPECT_EQ(text::Str(value), text);
        EXPECT_EQ(text::NumberText(value), std::string(text::Trim(text)));
    }
    EXPECT_EQ(text::Str(64), " 64");
    EXPECT_EQ(text::Str(-32768), "-32768");
}

// What is written must come back as the same text, or a file would change each time it is saved.
TEST(Str, ReadsBackTheSame) {
    for (std::uint32_t bits = 1; bits < 0x7F800000u; bits += 104729) {
        float value = 0;
        std::memcpy(&value, &bits, sizeof value);
        const std::string text = text::Str(value);
        EXPECT_EQ(text::Str(text::ToSingle(text)), text);
    }
}

TEST(ToInteger16, RoundsTiesToEvenAndRefusesWhatDoesNotFit) {
    EXPECT_EQ(text::ToInteger16(2.5), 2);
    EXPECT_EQ(text::ToInteger16(3.5), 4);
    EXPECT_EQ(text::ToInteger16(-2.5), -2);
    EXPECT_EQ(text::ToInteger16(45.4), 45);
    EXPECT_EQ(text::ToInteger16(32767.4), 32767);
    EXPECT_EQ(text::ToInteger16(-32768.5), -32768);
    EXPECT_EQ(text::ToInteger16(32767.5), std::nullopt);
    EXPECT_EQ(text::ToInteger16(-32769), std::nullopt);
    EXPECT_EQ(text::ToInteger16(1e300), std::nullopt);
}

TEST(FixedText, PadsCutsAndKeepsEveryCharacter) {
    text::FixedText<4> field;
    EXPECT_EQ(field.View(), "    ");
    field = "Arc";
    EXPECT_EQ(field.View(), "Arc ");
    field = "Arc\0x123"s;
    EXPECT_EQ(field.View(), "Arc\0"s);
    field = field.View().substr(1);  // a part of itself
    EXPECT_EQ(field.View(), "rc\0 "s);
}

TEST(CodePage, ConvertsThereAndBackAndRefusesTheRest) {
    std::string all;
    for (int code = 1; code < 256; ++code) all += static_cast<char>(code);
    EXPECT_EQ(text::FromUtf8(text::ToUtf8(all)), all);
    EXPECT_EQ(text::ToUtf8("M\xFCller \x80"), "M\xC3\xBCller \xE2\x82\xAC");
    // Greek, an emoji, an overlong form, a lone surrogate, cut short, a stray continuation.
    for (const char* bad : {"\xCE\xA9", "\xF0\x9F\x94\xA5", "\xC0\xAF", "\xED\xA0\x80", "a\xC3",
                            "\x80", "\xFF", "\xE2\x82"}) {
        EXPECT_EQ(text::FromUtf8(bad), std::nullopt) << bad;
    }
}

TEST(Case, FollowsTheCharacterSet) {
    EXPECT_EQ(text::LowerCase("JOB \xC4\xD6\xDC\x8A"), "job \xE4\xF6\xFC\x9A");
    EXPECT_EQ(text::UpperCase("stra\xDF"
                              "e \xFF\xF7"),
              "STRA\xDF"
              "E \x9F\xF7");
    EXPECT_TRUE(text::EqualIgnoringCase("M\xDCLLER", "m\xFCller"));
    EXPECT_FALSE(text::EqualIgnoringCase("a", "ab"));
    EXPECT_TRUE(text::LessIgnoringCase("abc", "ABD"));
    EXPECT_FALSE(text::LessIgnoringCase("ABC", "abc"));
    EXPECT_TRUE(text::LessIgnoringCase("job", "job_1"));
}

TEST(Strings, TrimTakesBlanksOnly) {
    EXPECT_EQ(text::Trim("  a b\t "), "a b\t");
    EXPECT_EQ(text::Trim("   "), "");
    EXPECT_EQ(text::UntilNul("Plasma\0rest"s), "Plasma");
}

}  // namespace
