// Where the leads of a contour run, in mm.
//
// The contour starts at (0, 0) and is cut towards greater x; the scrap lies on the side of greater
// y. A contour that is cut the other way round is the mirror image.
#pragma once

#include "process/process_table.h"

namespace report {

struct Point {
    double x = 0, y = 0;
};

enum class LeadType { kNone, kLine, kQuarter, kHalf };

// Of a lead code as it is stored; kNone for what is none, which the windows show as none, too.
LeadType TypeOfLead(text::FixedText<4> code);

// One lead, from the contour outwards.
struct Lead {
    LeadType type = LeadType::kNone;
    Point contour;      // where it meets the contour
    Point end;          // of the line or arc
    Point extended;     // of the straight extension behind that; the end where there is none
    double radius = 0;  // mm, of an arc; its centre is straight above `contour`
};

// `length` and `extension` in mm: the length of a line, the radius of an arc. `angle` in degrees,
// of a line: 0 along the contour, 90 square to it, negative into the part.
Lead LeadIn(LeadType type, double angle, double length, double extension);
// The same seen from the end of the contour, which lies `overrun` mm past its start.
Lead LeadOut(LeadType type, double angle, double length, double extension, double overrun);

}  // namespace report
