#include <algorithm>
#include <array>
#include <string_view>
#include <utility>
#include <vector>

#include "errors/errors.h"
#include "inspect/believable.h"
#include "inspect/check_files.h"
#include "inspect/data_file.h"
#include "process/process_file.h"
#include "profile/data_file.h"
#include "text/clean_text.h"
#include "text/numbers.h"
#include "text/strings.h"

namespace inspect {
namespace {

using profile::Numbered;
using std::string;

// A lead code as it stands in a file: the blank of "Arc " is lost when it is read.
void CheckLead(DataFile& file, const string& section, const string& key, const string& angle) {
    const string code = file.Value(section, key).substr(0, 4);
    const std::size_t line = file.LineOf(section, key);
    if (code == process::kLeadLine) {
        file.CheckInteger(section, angle);
    } else if (code == "Arc") {
        file.Report(Severity::kNote, line,
                    key +
                        "=Arc is kept by a save only where the process window has shown this "
                        "process before");
    } else if (code != process::kLeadArc180 && file.HasKey(section, key)) {
        file.Report(Severity::kWarning, line,
                    key + "=" + file.Value(section, key) +
                        " is none of Line, Arc and A180: the next save leaves it out");
    }
}

// One of the numbers, or a save leaves it out.
void CheckChoice(DataFile& file, const string& section, const string& key,
                 std::initializer_list<int> choices) {
    file.CheckInteger(section, key);
    const string value = file.Value(section, key);
    const auto number = text::ToInteger16(text::Val(value));
    if (value.empty() || !number) return;
    if (std::find(choices.begin(), choices.end(), *number) != choices.end()) return;
    file.Report(Severity::kWarning, file.LineOf(section, key),
                key + "=" + value + " means nothing: the next save leaves it out");
}

std::vector<std::string_view> FieldsOf(std::string_view row) {
    std::vector<std::string_view> fields;
    for (;;) {
        const auto comma = row.find(',');
        fields.push_back(text::Trim(row.substr(0, comma)));
        if (comma == row.npos) return fields;
        row.remove_prefix(comma + 1);
    }
}

// "10mm, 2.5, 1200, 5, 1.5": thickness in mm, pierce time in s, feed rate in mm/min, lead-in length
// and nozzle size in mm.
void CheckRow(const DataFile& file, const string& section, const string& key) {
    static constexpr std::array kNames = {"thickness", "pierce time", "feed rate", "lead-in length",
                                          "nozzle size"};
    const string value = file.Value(section, key);
    const std::size_t line = file.LineOf(section, key);
    const auto fields = FieldsOf(value);
    const auto report = [&](const string& text) {
        file.Report(Severity::kWarning, line, key + "=" + value + ": " + text);
    };
    const auto mm = std::find_if(fields.begin() + 1, fields.end(), [](std::string_view field) {
        return field.find("mm") != field.npos;
    });
    if (mm != fields.end() || fields.size() > kNames.size()) {
        report("decimals stand behind a point; what is behind a comma is the next number");
    }
    if (fields[0].find_first_of("0123456789") == fields[0].npos) {
        report("there is no thickness, which reads as 0");
    } else if (text::Val(value) < 0) {
        report("the thickness is below 0");
    }
    for (std::size_t i = 1; i < std::min(fields.size(), kNames.size()); ++i) {
        const auto digit = fields[i].find_first_of("0123456789.");
        if (digit == string::npos && i + 1 < fields.size()) {
            report(string("the ") + kNames[i] + " is empty, so all behind it shift");
            break;
        }
        if (digit != string::npos && digit > 0 && fields[i][digit - 1] == '-') {
            report(string("the sign of the ") + kNames[i] + " is lost");
        }
    }
    if (fields.size() < 4)
        report(string("there is no ") + kNames[fields.size()] + ", which reads as 0");
}

void CheckProcess(DataFile& file, const string& section) {
    file.Use(section);
    for (const char* key : {"Rapid", "LineMarkRate", "AddKerf"}) file.CheckNumber(section, key);
    CheckLead(file, section, "Leadin", "Angle");
    CheckLead(file, section, "Leadout", "Leadoutangle");
    for (const char* key : {"LeadoutPercent", "LeadoutOverrun"}) file.CheckInteger(section, key);
    CheckChoice(file, section, "MajorDir", {0, 1, -1});
    CheckChoice(file, section, "MinorDir", {0, 1, -1});
    CheckChoice(file, section, "MinorOpenKerf", {0, 1, -1});
    CheckChoice(file, section, "Extension", {0, 1});
    CheckChoice(file, section, "Leadoutextension", {0, 1});
    const int rows = file.CountNumbered(section, "Thickness", process::MaxThicknessRows,
                                        "thicknesses of one process");
    for (int k = 1; k <= rows; ++k) CheckRow(file, section, Numbered("Thickness", k));
}

}  // namespace

void CheckProcesses(const string& path, const string& bytes, Tables& tables, Findings& findings) {
    DataFile file(path, bytes, findings);
    const string list = "Processes";
    const int count = file.CountNumbered(list, "Process", process::MaxProcesses, "processes");
    std::vector<string> seen{Comparable(list)};
    for (int n = 1; n <= std::min(count, process::MaxProcesses); ++n) {
        const string name = file.Value(list, Numbered("Process", n));
        const std::size_t line = file.LineOf(list, Numbered("Process", n));
        const string section = name.substr(0, decltype(process::ProcessRecord::Name)::kWidth);
        file.CheckName(line, name, decltype(process::ProcessRecord::Name)::kWidth);
        if (std::find(seen.begin(), seen.end(), Comparable(section)) != seen.end()) {
            file.ReportShared(line, name, section);
            continue;
        }
        seen.push_back(Comparable(section));
        if (!file.HasSection(section)) {
            file.ReportNoSection(line, name, section, "the defaults and no thickness");
        }
        CheckProcess(file, section);
    }
    file.CheckUnused({"Process#", "Rapid", "LineMarkRate", "Leadin", "Angle", "Leadout",
                      "Leadoutangle", "LeadoutPercent", "LeadoutOverrun", "MajorDir", "MinorDir",
                      "MinorOpenKerf", "Extension", "Leadoutextension", "AddKerf", "Thickness#"});
    try {
        ReadProcesses(file.Profile(), tables.processes);
        ReadProcessRanges(file.Profile(), tables.processes);
        auto& at = tables.processAt.emplace();
        for (int n = 0; n < tables.processes.ProcessCount; ++n) {
            const auto index = static_cast<std::size_t>(n);
            at.try_emplace(Comparable(tables.processes.ProcessNames[index]), index);
        }
    } catch (const errors::FatalError&) {
        return;  // told above
    }
    for (int n = 1; n <= tables.processes.ProcessCount; ++n) {
        process::ProcessRecord& record = tables.processes.Process(n);
        const string section(text::UntilNul(record.Name.View()));
        for (const Doubt& doubt : DoubtsOf(record)) {
            file.Report(Severity::kNote, file.LineOf(section, Numbered("Thickness", doubt.row)),
                        doubt.text);
        }
    }
}

}  // namespace inspect
