// Dates in the forms of other languages.
#include "platform/date_forms.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "tests/support/environment.h"
#include "tests/support/temp_drives.h"

namespace {

// 17 November 2026, 14:05:09, a Tuesday.
std::tm Afternoon() {
    std::tm time = {};
    time.tm_year = 126, time.tm_mon = 10, time.tm_mday = 17, time.tm_wday = 2, time.tm_yday = 320;
    time.tm_hour = 14, time.tm_min = 5, time.tm_sec = 9;
    return time;
}

TEST(DateForms, BlanksOfAnyWidthBecomePlainAndMarksGo) {
    EXPECT_EQ(platform::SystemDateText(L"\u200E7/3/2026 2:05\u202FPM"), "7/3/2026 2:05 PM");
    EXPECT_EQ(platform::SystemDateText(L"7\u00A0mars \u00FC"), "7 mars \xFC");
    EXPECT_EQ(platform::SystemDateText(L"2026\u5E743\u6708"), "");  // not in the system's set
}

#ifdef _WIN32

TEST(DateForms, FollowTheLanguage) {
    const platform::DateForms german("de-DE"), american("en-US"), japanese("ja-JP");
    EXPECT_EQ(german.ShortDate(Afternoon()), "17.11.2026");
    EXPECT_EQ(german.GeneralDate(Afternoon()), "17.11.2026 14:05:09");
    EXPECT_EQ(american.ShortDate(Afternoon()), "11/17/2026");
    EXPECT_EQ(american.GeneralDate(Afternoon()), "11/17/2026 2:05:09 PM");
    EXPECT_EQ(japanese.GeneralDate(Afternoon()), "2026/11/17 14:05:09");
    EXPECT_EQ(platform::DateForms("no-such-language").ShortDate(Afternoon()), "11/17/2026");
}

#else

TEST(DateForms, FollowTheLanguage) {
    const platform::DateForms neutral("C"), missing("xx_XX.UTF-8");
    EXPECT_EQ(neutral.ShortDate(Afternoon()), "11/17/26");
    EXPECT_EQ(neutral.GeneralDate(Afternoon()), "11/17/26 14:05:09");
    EXPECT_EQ(missing.GeneralDate(Afternoon()), "11/17/26 14:05:09");

    // A language that the machine need not be set up for.
    const test::TempDrives drives;
    const auto folder = drives.Folder().string();
    const test::Environment languages("LOCPATH", folder);
    if (std::system(
            ("localedef -i de_DE -f ISO-8859-1 " + folder + "/de >/dev/null 2>&1").c_str()) < 0 ||
        !std::filesystem::exists(folder + "/de")) {
        GTEST_SKIP() << "localedef is missing";
    }
    EXPECT_EQ(platform::DateForms("de").GeneralDate(Afternoon()), "17.11.2026 14:05:09");
    const test::Environment operators("LC_ALL", "de");
    EXPECT_EQ(platform::DateForms().ShortDate(Afternoon()), "17.11.2026");
}

#endif

}  // namespace
