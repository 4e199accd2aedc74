#include "report/axis.h"

#include <algorithm>
#include <cmath>

namespace report {
namespace {

constexpr double kRound[] = {1, 2, 5, 10};
// Values come from 32-bit floats, where .1 is a little more than that.
constexpr double kNearly = 1e-6;

// The least of 1, 2, 5, 10 times a power of ten that is not below a value above 0.
double RoundUp(double value) {
    const double power = std::pow(10, std::floor(std::log10(value)));
    for (const double digit : kRound) {
        if (digit * power >= value * (1 - kNearly)) return digit * power;
    }
    return 10 * power;
}

Axis Linear(double most) {
    Axis axis;
    constexpr double kTicks = 6;  // at the most, beside the 0
    const double step = most > 0 ? RoundUp(most / kTicks) : 1;
    const int count = std::max(1, static_cast<int>(std::ceil(most / step * (1 - kNearly))));
    for (int i = 0; i <= count; ++i) axis.ticks.push_back(i * step);
    axis.high = axis.ticks.back();
    return axis;
}

Axis Logarithmic(double least, double most) {
    Axis axis;
    axis.logarithmic = true;
    const int first = static_cast<int>(std::floor(std::log10(least) + kNearly));
    const int last = static_cast<int>(std::ceil(std::log10(most) - kNearly));
    // Over many decades only their powers, and of these so many as can be told apart.
    const bool fine = last - first <= 4;
    const int step = fine ? 1 : (last - first + 7) / 8;
    for (int power = first; power < last + step; power += step) {
        for (const double digit : {1.0, 2.0, 5.0}) {
            if (digit == 1 || fine) axis.ticks.push_back(digit * std::pow(10, power));
        }
    }
    // Without those below and above that no value needs.
    const auto above = [&](double value) { return [value](double tick) { return tick > value; }; };
    auto begin = std::find_if(axis.ticks.begin(), axis.ticks.end(), above(least * (1 + kNearly)));
    if (begin != axis.ticks.begin()) --begin;
    auto end = std::find_if(axis.ticks.begin(), axis.ticks.end(), above(most * (1 - kNearly)));
    if (end != axis.ticks.end()) ++end;
    axis.ticks = std::vector<double>(begin, end);
    axis.low = axis.ticks.front();
    axis.high = axis.ticks.back();
    return axis;
}

}  // namespace

double Axis::PlaceOf(double value) const {
    if (!logarithmic) return (value - low) / (high - low);
    if (value <= low) return 0;
    return std::log(value / low) / std::log(high / low);
}

Axis AxisFor(std::span<const double> values) {
    double least = 0, most = 0;
    for (const double value : values) {
        most = std::max(most, value);
        if (value > 0 && (least == 0 || value < least)) least = value;
    }
    constexpr double kTwoDecades = 100;
    return least > 0 && most / least > kTwoDecades ? Logarithmic(least, most) : Linear(most);
}

}  // namespace report
