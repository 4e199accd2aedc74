// The axis of a chart: round ticks, logarithmic where the values need it.
#pragma once

#include <span>
#include <vector>

namespace report {

struct Axis {
    bool logarithmic = false;
    double low = 0, high = 1;  // both are ticks
    std::vector<double> ticks;

    // From 0 at the low end to 1 at the high end. What a logarithmic axis cannot show, 0, is at its
    // low end.
    double PlaceOf(double value) const;
};

// For values from 0 up. From 0 to the next round number; logarithmic, from one round number to
// another, where those above 0 span more than two decades.
Axis AxisFor(std::span<const double> values);

}  // namespace report
