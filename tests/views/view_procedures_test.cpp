// The small procedures that all windows share.
#include "views/view_procedures.h"

#include <gtest/gtest.h>

#include <tuple>

#include "tests/support/scripted_screen.h"
#include "text/clean_text.h"
#include "text/numbers.h"
#include "views/form.h"

namespace {

using namespace std::string_literals;

TEST(ViewProcedures, CentreFormUsesTheScreensUnits) {
    test::ScriptedScreen screen;
    views::Form form("frm", "A window");
    form.width = 300;
    form.height = 200;
    views::CentreForm(form);
    EXPECT_EQ(form.left, 350);
    EXPECT_EQ(form.top, 300);
}

TEST(ViewProcedures, PrintableCharactersOfTheSet) {
    for (int code = 0; code < 256; ++code) {
        const bool printable = (code >= 32 && code <= 126) || code >= 160;
        EXPECT_EQ(text::IsPrintableChar(std::string(1, static_cast<char>(code))), printable)
            << code;
    }
    EXPECT_FALSE(text::IsPrintableChar(""));
    EXPECT_TRUE(text::IsPrintableChar("a\x01"));
}

TEST(ViewProcedures, CleanTextTrimsTheCallersTextAndStopsAtTheFirstControl) {
    const std::tuple<std::string, std::string, std::string> cases[] = {
        {"  12.5 ", "12.5", "12.5"},
        {"Plasma\0left over"s, "Plasma", "Plasma\0left over"s},
        {" \tx", "", "\tx"},
        {"\xD6l\x7Fx ", "\xD6l", "\xD6l\x7Fx"},
        {"    ", "", ""},
        {"a b", "a b", "a b"},
    };
    for (const auto& [text, clean, trimmed] : cases) {
        std::string value = text;
        EXPECT_EQ(text::CleanText(value), clean);
        EXPECT_EQ(value, trimmed);
    }
    text::FixedText<8> field("  MS\0x "s);
    EXPECT_EQ(text::CleanText(field), "MS");
    EXPECT_EQ(field.View(), "MS\0x    "s);
}

TEST(ViewProcedures, LeadingZeroText) {
    const std::pair<const char*, const char*> cases[] = {
        {"-3", "0"}, {"0", "0"},     {"1.5", "1.5"}, {".25", "0.25"},
        {"", ""},    {"abc", "abc"}, {"-.1", "0"},   {"1E-05", "01E-05"},
    };
    for (const auto& [number, shown] : cases) EXPECT_EQ(text::LeadingZeroText(number), shown);
}

TEST(ViewProcedures, NavigateCellMovesWithoutBounds) {
    using namespace views;
    struct Case {
        int key, shift, rowStep, row, column;
        bool handled;
    };
    // From row 5, column 2 of a grid whose last row is 9 and last column 4.
    const Case cases[] = {
        {kKeyTab, 0, 1, 5, 3, true},     {kKeyTab, kShift, 1, 5, 1, true},
        {kKeyTab, kCtrl, 1, 5, 3, true}, {kKeyTab, kShift | kCtrl, 1, 5, 3, true},
        {kKeyEnter, 0, 0, 6, 2, true},   {kKeyEnter, kCtrl, 0, 6, 2, true},
        {kKeyLeft, 0, 1, 5, 2, true},    {kKeyLeft, kCtrl, 1, 5, 1, true},
        {kKeyRight, 0, 1, 5, 2, true},   {kKeyRight, kCtrl, 1, 5, 4, true},
        {kKeyUp, 0, 1, 4, 2, true},      {kKeyUp, 0, 0, 5, 2, true},
        {kKeyUp, kCtrl, 0, 1, 2, true},  {kKeyDown, 0, 1, 6, 2, true},
        {kKeyDown, 0, 0, 5, 2, true},    {kKeyDown, kCtrl, 0, 9, 2, true},
        {'A', 0, 1, 5, 2, false},        {kKeyEscape, 0, 1, 5, 2, false},
    };
    for (const Case& c : cases) {
        bool handled = !c.handled;
        int row = 5, column = 2;
        NavigateCell(c.key, c.shift, handled, row, column, 9, 4, c.rowStep);
        EXPECT_EQ(std::tuple(handled, row, column), std::tuple(c.handled, c.row, c.column))
            << "key " << c.key << " shift " << c.shift;
    }
    bool handled = false;
    int row = 1, column = 1;
    NavigateCell(kKeyTab, kShift, handled, row, column, 9, 4, 0);
    EXPECT_EQ(column, 0);
}

}  // namespace
