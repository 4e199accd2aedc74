#include "report/process_words.h"

#include "report/lead_geometry.h"
#include "text/numbers.h"

namespace report {
namespace {

Words LeadWords(text::FixedText<4> code, int angle) {
    switch (TypeOfLead(code)) {
        case LeadType::kLine:
            return "Line at " + Words(text::NumberText(angle)) + u8"°";
        case LeadType::kQuarter:
            return "Arc 90";
        case LeadType::kHalf:
            return "Arc 180";
        case LeadType::kNone:
            break;
    }
    return "none";
}

}  // namespace

Words LeadInWords(const process::ProcessRecord& record) {
    return LeadWords(record.Leadin, record.Angle);
}

Words LeadOutWords(const process::ProcessRecord& record) {
    return LeadWords(record.Leadout, record.Leadoutangle);
}

std::string DirectionWords(int direction) {
    return direction == 1 ? "anticlockwise" : direction == -1 ? "clockwise" : "not set";
}

std::string KerfSideWords(int side) {
    return side == 1 ? "left" : side == 0 ? "centre" : side == -1 ? "right" : "not set";
}

}  // namespace report
