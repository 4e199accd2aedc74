// Numbers, fields of fixed width, what counts as a value, and the character set.
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <limits>
#include <optional>
#include <string>

#include "text/clean_text.h"
#include "text/code_page.h"
#include "text/numbers.h"
#include "text/strings.h"

namespace {

using namespace std::string_literals;

constexpr double kMost = std::numeric_limits<double>::max();

TEST(Numbers, TheLongestLeadingNumberIsTheValue) {
    const std::pair<const char*, double> cases[] = {
        {"12.5mm", 12.5},    {"mm", 0},         {"", 0},
        {" 1 2 . 5 ", 12.5}, {"-3", -3},        {"- 3", -3},
        {"+.5", .5},         {".", 0},          {"-", 0},
        {"5.", 5},           {"1.2.3", 1.2},    {"1e3", 1000},
        {"1D2", 100},        {"1 e - 2", .01},  {"1e", 1},
        {"1e+", 1},          {"2ex", 2},        {"0x10", 0},
        {"1,5", 1},          {"007.850", 7.85}, {"inf", 0},
        {"nan", 0},          {"\t5", 0},        {"e5", 0},
        {"--5", 0},          {"1e999", kMost},  {"-1e9999999", -kMost},
        {"1e-999", 0},       {"0e999", 0},
    };
    for (const auto& [text, value] : cases) EXPECT_EQ(text::Val(text), value) << text;
    EXPECT_EQ(text::Val(std::string(100000, '9')), kMost);
    EXPECT_EQ(text::Val("0." + std::string(100000, '0') + "1"), 0);
    EXPECT_EQ(text::Val("1" + std::string(400, '0') + "e-400"), 1);
    EXPECT_EQ(text::ToSingle("-1e300"), -std::numeric_limits<float>::max());
}

TEST(Numbers, AreWrittenInTheGeneralFormShownWithAZeroAndPlain) {
    struct Case {
        float value;
        const char *general, *shown, *plain;
    };
    const Case cases[] = {
        {-0.0f, " 0", "0", "0"},
        {7.85f, " 7.85", "7.85", "7.85"},
        {.5f, " .5", "0.5", "0.5"},
        {-.5f, "-.5", "0", "-0.5"},
        {12000, " 12000", "12000", "12000"},
        {1, " 1", "1", "1"},
        {1e7f, " 1E+07", "1E+07", "10000000"},
        {.00001f, " 1E-05", "01E-05", "0.00001"},
        {-2.5e-7f, "-2.5E-07", "0", "-0.00000025"},
        {1234567.8f, " 1234568", "1234568", "1234568"},
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
        const std::string text = text::Str(value);
        ASSERT_EQ(text::Str(text::ToSingle(text)), text);
        ASSERT_EQ(text::ToSingle(text::PlainText(value)), text::ToSingle(text));
    }
}

TEST(Numbers, OfSixteenBitsRoundTiesToEven) {
    constexpr std::nullopt_t kNone = std::nullopt;
    const std::pair<double, std::optional<std::int16_t>> cases[] = {
        {2.5, 2},           {3.5, 4},         {-2.5, -2},      {45.4, 45},     {32767.4, 32767},
        {-32768.5, -32768}, {32767.5, kNone}, {-32769, kNone}, {1e300, kNone},
    };
    for (const auto& [value, rounded] : cases)
        EXPECT_EQ(text::ToInteger16(value), rounded) << value;
}

TEST(Texts, FieldsArePaddedAndCutAndTheirCleanValueIsTaken) {
    text::FixedText<4> field("Arc");
    EXPECT_EQ(field.View(), "Arc ");
    field = "Arc\0x123"s;
    EXPECT_EQ(field.View(), "Arc\0"s);
    field = field.View().substr(1);  // a part of itself
    EXPECT_EQ(field.View(), "rc\0 "s);
    // The caller's text is trimmed of blanks, its value ends before what does not print.
    const std::array<std::string, 3> cases[] = {
        {"  12.5 ", "12.5", "12.5"},
        {"Pl 1\0left"s, "Pl 1", "Pl 1\0left"s},
        {" \tx", "", "\tx"},
        {"\xD6l\x7Fx ", "\xD6l", "\xD6l\x7Fx"},
        {"\xA0\x9F", "\xA0", "\xA0\x9F"},
        {"   ", "", ""},
    };
    for (const auto& [text, clean, trimmed] : cases) {
        std::string value = text;
        EXPECT_EQ(text::CleanText(value), clean);
        EXPECT_EQ(value, trimmed);
    }
}

TEST(Texts, CharactersConvertThereAndBackOrAreRefused) {
    std::string all;
    for (int code = 1; code < 256; ++code) all += static_cast<char>(code);
    EXPECT_EQ(text::FromUtf8(text::ToUtf8(all)), all);
    EXPECT_EQ(text::ToUtf8("M\xFCller \x80"), "M\xC3\xBCller \xE2\x82\xAC");
    // Greek, an emoji, overlong forms, a lone surrogate, cut short, a stray continuation.
    for (const char* bad : {"\xCE\xA9", "\xF0\x9F\x94\xA5", "\xC0\xAF", "\xE0\x80\xAF",
                            "\xED\xA0\x80", "a\xC3", "\x80", "\xFF", "\xE2\x82", "\xC3x"}) {
        EXPECT_EQ(text::FromUtf8(bad), std::nullopt) << bad;
    }
}

TEST(Texts, CaseFollowsTheCharacterSet) {
    EXPECT_EQ(text::LowerCase("JOB \xC4\xD6\xDC\x8A\xD7"), "job \xE4\xF6\xFC\x9A\xD7");
    EXPECT_EQ(text::UpperCase("\xDFz \xFF\xF7"), "\xDFZ \x9F\xF7");
    EXPECT_TRUE(text::EqualIgnoringCase("M\xDCLLER", "m\xFCller"));
    EXPECT_FALSE(text::EqualIgnoringCase("a", "ab"));
    EXPECT_TRUE(text::LessIgnoringCase("abc", "ABD") && text::LessIgnoringCase("job", "job_1"));
    EXPECT_FALSE(text::LessIgnoringCase("ABC", "abc"));
}

}  // namespace
