// A chart of a process: one of its values over the thickness.
#pragma once

#include <string>
#include <vector>

#include "report/html.h"

namespace report {

struct ChartPoint {
    float x = 0, y = 0;  // as the windows show them, never below 0
    std::string doubt;   // why the value is doubtful, empty where it is not
    std::string link;    // "#f3" of that doubt, empty for none
};

struct Chart {
    std::string id;  // of the drawing on the page
    std::string process;
    const char* what;                // "Feed rate"
    const char* unit;                // "mm/min"
    std::vector<ChartPoint> points;  // in the order of the table
};

void DrawChart(Html& html, const Chart& chart);

}  // namespace report
