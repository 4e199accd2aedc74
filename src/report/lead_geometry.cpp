#include "report/lead_geometry.h"

#include <cmath>
#include <numbers>

#include "text/clean_text.h"

namespace report {

LeadType TypeOfLead(text::FixedText<4> code) {
    // Read from the file, the code of the quarter circle has lost its blank.
    const std::string name = text::CleanText(code);
    if (name == process::kLeadLine) return LeadType::kLine;
    if (name == "Arc") return LeadType::kQuarter;
    if (name == process::kLeadArc180) return LeadType::kHalf;
    return LeadType::kNone;
}

Lead LeadIn(LeadType type, double angle, double length, double extension) {
    Lead lead{type, {}, {}, {}, 0};
    Point away;  // the direction in which an extension goes on
    if (type == LeadType::kLine) {
        const double radians = std::remainder(angle, 360) * std::numbers::pi / 180;
        away = {-std::cos(radians), std::sin(radians)};
        lead.end = {length * away.x, length * away.y};
    } else if (type == LeadType::kQuarter) {
        away = {0, 1};
        lead.end = {-length, length};
    } else if (type == LeadType::kHalf) {
        away = {1, 0};
        lead.end = {0, 2 * length};
    }
    if (type != LeadType::kLine && type != LeadType::kNone) lead.radius = length;
    lead.extended = {lead.end.x + extension * away.x, lead.end.y + extension * away.y};
    return lead;
}

Lead LeadOut(LeadType type, double angle, double length, double extension, double overrun) {
    Lead lead = LeadIn(type, angle, length, extension);
    for (Point* point : {&lead.contour, &lead.end, &lead.extended}) point->x = overrun - point->x;
    return lead;
}

}  // namespace report
