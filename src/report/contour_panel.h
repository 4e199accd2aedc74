// A closed contour with its leads, or an open one, as inline SVG.
#pragma once

#include "process/process_table.h"
#include "report/html.h"
#include "report/lead_geometry.h"

namespace report {

// The leads of a process at one of its thicknesses.
struct Leads {
    explicit Leads(const process::ProcessRecord& record);

    const process::ThicknessRow* row = nullptr;        // nothing where no row has a lead-in length
    double inLength = 10, outLength = 0, overrun = 0;  // mm
    int inAngle = 0, outAngle = 0;                     // degrees, of lines
    // As they are drawn: what would be too small to be seen or too large for the paper is drawn
    // larger or smaller, and an extension, of which the data have no length, half as long as its
    // lead.
    double drawnOverrun = 0;
    bool toScale = true;
    Lead in, out;
};

// The place and size of the drawings in their own units.
inline constexpr const char* kPanelBox = "0 0 340 250";
inline constexpr const char* kOpenPanelBox = "0 0 170 250";

// Into an open svg element of kPanelBox. `direction` as it is stored: 1 anticlockwise.
void DrawOutside(Html& html, const Leads& leads, int direction);
void DrawHole(Html& html, const Leads& leads, int direction);

// Into one of kOpenPanelBox. `side` as it is stored: 1 left.
void DrawOpenContour(Html& html, int side);

}  // namespace report
