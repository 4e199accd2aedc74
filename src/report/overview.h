// All processes in one table, for the first page.
#pragma once

#include "process/process_table.h"
#include "report/html.h"

namespace report {

void PutOverview(Html& html, const process::ProcessTable& table);

}  // namespace report
