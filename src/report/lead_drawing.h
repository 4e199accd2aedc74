// How a process cuts: its leads on an outside contour and in a hole, and the kerf of an open
// contour.
#pragma once

#include <string>

#include "process/process_table.h"
#include "report/html.h"

namespace report {

// `name` as it is shown, `id` of the process on the page.
void DrawLeads(Html& html, const process::ProcessRecord& record, const std::string& name,
               const std::string& id);

}  // namespace report
