// Where the ticks of an axis stand.
#include "report/axis.h"

#include <gtest/gtest.h>

namespace {

TEST(Axis, Ticks) {
    using Values = std::vector<double>;
    struct {
        Values values;
        bool logarithmic;
        Values ticks;
    } const cases[] = {
        {{}, false, {0, 1}},
        {{0, 0}, false, {0, 1}},
        {{3, 25}, false, {0, 5, 10, 15, 20, 25}},
        {{550, 6400}, false, {0, 2000, 4000, 6000, 8000}},
        {{double{.1F}, double{.6F}}, false, {0, .1, .2, .3, .4, .5, .6}},
        {{1, 100}, false, {0, 20, 40, 60, 80, 100}},
        {{1, 101}, true, {1, 2, 5, 10, 20, 50, 100, 200}},
        {{.5, 0, 360}, true, {.5, 1, 2, 5, 10, 20, 50, 100, 200, 500}},
        {{1e-3, 1e7}, true, {1e-3, 1e-1, 1e1, 1e3, 1e5, 1e7}},
    };
    for (const auto& [values, logarithmic, ticks] : cases) {
        const auto axis = report::AxisFor(values);
        EXPECT_EQ(axis.logarithmic, logarithmic);
        ASSERT_EQ(axis.ticks.size(), ticks.size()) << testing::PrintToString(axis.ticks);
        for (std::size_t i = 0; i < ticks.size(); ++i) {
            EXPECT_NEAR(axis.ticks[i], ticks[i], 1e-9 * ticks.back());
        }
        EXPECT_EQ(axis.PlaceOf(axis.ticks.front()), 0);
        EXPECT_EQ(axis.PlaceOf(axis.ticks.back()), 1);
        for (const double value : values) EXPECT_NEAR(axis.PlaceOf(value), 0.5, 0.5001);
    }
    const auto wide = report::AxisFor(Values{1e-45, 1e38});
    EXPECT_LE(wide.ticks.size(), 13U);
    EXPECT_NEAR(report::AxisFor(Values{1, 1e4}).PlaceOf(100), 0.5, 1e-9);
    EXPECT_EQ(report::AxisFor(Values{1, 1e4}).PlaceOf(0), 0);
}

}  // namespace
