// The cutting processes of the installation in memory, and their file process.dat.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "text/fixed_text.h"

namespace process {

inline constexpr int MaxProcesses = 20;
inline constexpr int MaxThicknessRows = 100;

// What a process needs for one plate thickness.
struct ThicknessRow {
    float Thickness = 0;      // mm
    float PierceTime = 0;     // s
    float Feedrate = 0;       // cutting feed rate, mm/min
    float DefaultLeadin = 0;  // lead-in length, mm
    float NozzleSize = 0;     // mm, 0 where none is given

    bool operator==(const ThicknessRow&) const = default;
};

// Lead codes: exactly these four characters.
inline constexpr std::string_view kLeadLine = "Line";   // straight, at the angle given
inline constexpr std::string_view kLeadArc90 = "Arc ";  // quarter circle
inline constexpr std::string_view kLeadArc180 = "A180";
inline constexpr std::string_view kLeadNone = "    ";  // lead-out only

struct ProcessRecord {
    // As stored: padded with blanks by the windows; as read from the file, the value, a NUL and
    // remains of the read buffer. Cleaned with text::CleanText wherever it is shown or compared.
    text::FixedText<64> Name;
    float Rapid = 0;                    // rapid traverse rate, mm/min
    float LineMarkRate = 0;             // line-marking feed rate, mm/min
    text::FixedText<4> Leadin;          // lead-in code
    std::int16_t Angle = 0;             // of a straight lead-in, degrees
    text::FixedText<4> Leadout;         // lead-out code
    std::int16_t Leadoutangle = 0;      // of a straight lead-out, degrees
    std::int16_t MajorDir = 0;          // major contours: 1 anticlockwise, -1 clockwise, 0 not set
    std::int16_t MinorDir = 0;          // minor contours, likewise
    std::int16_t MinorOpenKerf = 0;     // open minor contours: 1 left, 0 centre, -1 right
    std::int16_t Extension = 0;         // lead-in extension: 1 on, 0 off
    std::int16_t Leadoutextension = 0;  // lead-out extension: 1 on, 0 off
    std::int16_t LeadoutPercent = 0;    // lead-out length in % of the lead-in length
    std::int16_t LeadoutOverrun = 0;    // mm
    std::int16_t AddKerf = 0;           // add kerf to nest: 1 yes, 0 no
    std::array<ThicknessRow, MaxThicknessRows> Rows;
    std::int16_t ThicknessCount = 0;  // rows in use

    // Row k, counted from 1. An index outside 1 to 100 throws errors::FatalError.
    ThicknessRow& Row(int k);
    const ThicknessRow& Row(int k) const;

    bool operator==(const ProcessRecord&) const = default;
};

struct ProcessTable {
    std::int16_t ProcessCount = 0;  // shared by both stores below
    std::array<ProcessRecord, MaxProcesses> Processes;

    // The loader's own store for the material list; after processes were added or deleted it
    // differs from the records until the loader runs again.
    std::array<std::string, MaxProcesses> ProcessNames;  // as read, not trimmed
    std::array<float, MaxProcesses> ProcessThicknessMin{};
    std::array<float, MaxProcesses> ProcessThicknessMax{};

    // Process n, counted from 1. An index outside 1 to 20 throws errors::FatalError.
    ProcessRecord& Process(int n);
    const ProcessRecord& Process(int n) const;
};

// What the process windows share.
struct SharedState {
    ProcessTable table;
    std::int16_t CurrentProcess = 0;  // number of the process being worked on, 0 for none
    bool ProcessChanged = false;      // there are unsaved changes
};

// The one of the run.
SharedState& Shared();
inline ProcessTable& TheProcesses() {
    return Shared().table;
}

// <home><root>\system\process.dat
std::string ProcessFilePath();

}  // namespace process
