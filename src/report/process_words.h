// The settings of a process in the words of the windows.
#pragma once

#include <string>

#include "process/process_table.h"
#include "report/html.h"
#include "text/clean_text.h"

namespace report {

// A field as it is shown, whatever a read has left in it.
template <std::size_t Width>
std::string Cleaned(text::FixedText<Width> field) {
    return text::CleanText(field);
}

// "Line at 45°", "Arc 90", "none".
Words LeadInWords(const process::ProcessRecord& record);
Words LeadOutWords(const process::ProcessRecord& record);

// "anticlockwise", "clockwise" or "not set".
std::string DirectionWords(int direction);
// "left", "centre", "right" or "not set".
std::string KerfSideWords(int side);

}  // namespace report
