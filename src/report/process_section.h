// A process on the page: its defaults, its leads, its thicknesses and their course.
#pragma once

#include <string>

#include "process/process_table.h"
#include "report/found.h"
#include "report/html.h"

namespace report {

// "p3": the anchor of a process, and "p3r12" that of a row; both are counted from 1.
std::string ProcessAnchor(int process);
std::string RowAnchor(int process, int row);

// Its name as lists show it; one without a character that prints gets its number.
std::string ProcessName(const process::ProcessTable& table, int process);

// Puts what was found in process.dat to the processes and their rows.
void PlaceProcesses(const std::string& path, const std::string& bytes,
                    const process::ProcessTable& table, Found& found);

void PutProcess(Html& html, const process::ProcessTable& table, int process, const Found& found);

}  // namespace report
