// What a cutter would not believe. These are doubts, never errors: there are plates and machines
// for which each of them is right.
#pragma once

#include <string>
#include <vector>

#include "process/process_table.h"

namespace inspect {

struct Doubt {
    int row;                               // of the thickness table, counted from 1
    std::string text;                      // without the row
    float process::ThicknessRow::* value;  // which of its values is doubtful
};

// Thicknesses that do not ascend, a feed rate of 0, one that rises or a pierce time that falls with
// the thickness, and one row off the course of its neighbours.
std::vector<Doubt> DoubtsOf(const process::ProcessRecord& record);

// Of a density in t/m3; empty where it can be.
std::string DoubtOfDensity(float density);

}  // namespace inspect
