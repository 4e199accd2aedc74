// Writing process.dat. The nesting system reads the file too, so the order of the lines, the blanks
// and the keys that are left out are part of the format.
#include <string>

#include "platform/files.h"
#include "process/process_file.h"
#include "process/process_table.h"
#include "profile/data_file.h"
#include "text/numbers.h"
#include "views/view_procedures.h"

namespace process {
namespace {

using text::NumberText;

bool IsLeadCode(std::string_view code) {
    return code == kLeadArc180 || code == kLeadLine || code == kLeadArc90;
}

bool IsDirection(int value) {
    return value == 1 || value == -1;
}

void WriteLeadin(profile::FileText& file, const ProcessRecord& record) {
    const std::string_view code = record.Leadin.View();
    if (!IsLeadCode(code)) return;
    file.Line("; Default leadin type etc");
    file.Line("Leadin=", code);
    if (code != kLeadLine) return;
    file.Line("; Default leadin angle - zero if missing");
    file.Line("Angle=", NumberText(record.Angle));
}

void WriteRows(profile::FileText& file, const ProcessRecord& record) {
    file.Line("; List of valid thicknesses for this process");
    file.Line(
        "; Thickness, Pierce time(secs), Feedrate(mm/min), Default Leadin(mm), optional Nozzle "
        "size");
    for (int k = 1; k <= record.ThicknessCount; ++k) {
        const ThicknessRow& row = record.Row(k);
        // All but the thickness keep the blank in front that takes the place of the sign.
        file.Line("Thickness", NumberText(k), "=", NumberText(row.Thickness), "mm,",
                  text::Str(row.PierceTime), ",", text::Str(row.Feedrate), ",",
                  text::Str(row.DefaultLeadin), ",", text::Str(row.NozzleSize));
    }
}

void WriteLeadout(profile::FileText& file, const ProcessRecord& record) {
    const std::string_view code = record.Leadout.View();
    if (IsLeadCode(code)) file.Line("Leadout=", code);
    if (code == kLeadLine) file.Line("Leadoutangle=", NumberText(record.Leadoutangle));
    if (record.Leadoutextension > 0) {
        file.Line("Leadoutextension=", NumberText(record.Leadoutextension));
    }
}

void WriteProcess(profile::FileText& file, ProcessRecord& record) {
    file.BlankLine();
    file.Line("[", views::CleanText(record.Name), "]");
    file.Line("; Rapid Traverse rate (mm/min)");
    file.Line("Rapid=", NumberText(record.Rapid));
    file.Line("LineMarkRate=", NumberText(record.LineMarkRate));
    WriteLeadin(file, record);
    file.Line("; default Percent of Leadin Length and leadout Overrun distance");
    file.Line("LeadoutPercent=", NumberText(record.LeadoutPercent));
    file.Line("LeadoutOverrun=", NumberText(record.LeadoutOverrun));
    if (IsDirection(record.MajorDir)) file.Line("MajorDir=", NumberText(record.MajorDir));
    if (IsDirection(record.MinorDir)) file.Line("MinorDir=", NumberText(record.MinorDir));
    if (IsDirection(record.MinorOpenKerf) || record.MinorOpenKerf == 0) {
        file.Line("MinorOpenKerf=", NumberText(record.MinorOpenKerf));
    }
    if (record.Extension == 1) file.Line("Extension=", NumberText(record.Extension));
    file.Line("AddKerf=", NumberText(record.AddKerf));
    WriteRows(file, record);
    WriteLeadout(file, record);
}

}  // namespace

std::string ProcessFileText(ProcessTable& table) {
    profile::FileText file;
    file.Line("; PROCESS.DAT");
    file.Line("; Holds times etc for different processes");
    file.BlankLine();
    if (table.ProcessCount < 1) return file.Bytes();
    file.Line("[Processes]");
    file.Line("; This is a List of valid processes on the system");
    for (int n = 1; n <= table.ProcessCount; ++n) {
        file.Line("Process", NumberText(n), "=", table.Process(n).Name.View());
    }
    for (int n = 1; n <= table.ProcessCount; ++n) WriteProcess(file, table.Process(n));
    return file.Bytes();
}

void WriteProcessFile() {
    platform::ReplaceWholeFile(ProcessFilePath(), ProcessFileText(TheProcesses()));
}

}  // namespace process
