#include "process/process_file.h"

#include <algorithm>
#include <utility>

#include "errors/errors.h"
#include "platform/files.h"
#include "process/process_table.h"
#include "profile/data_file.h"
#include "text/clean_text.h"
#include "text/numbers.h"

namespace process {
namespace {

constexpr std::string_view kListSection = "Processes";

std::string_view NextNumberField(std::string_view& text) {
    if (text.empty()) return "0";
    const auto comma = text.find(',');
    if (comma == text.npos) return {};
    text.remove_prefix(comma + 1);
    const auto number = text.find_first_of("0123456789.");
    return number == text.npos ? std::string_view() : text.substr(number);
}

// "10mm, 2.5, 1200, 5, 0": what is missing is 0, and only the thickness can have a sign.
ThicknessRow ParseRow(std::string_view value) {
    ThicknessRow row;
    row.Thickness = text::ToSingle(value);
    for (float* field : {&row.PierceTime, &row.Feedrate, &row.DefaultLeadin, &row.NozzleSize}) {
        value = NextNumberField(value);
        *field = text::ToSingle(value);
    }
    return row;
}

[[noreturn]] void FailTooManyProcesses() {
    throw errors::FatalError("PROCESS.DAT lists more than " + std::to_string(MaxProcesses) +
                             " processes");
}

// Reads the section of one process into its record, every value through the shared buffer in the
// order of the reads: what they leave there shows in the lead codes and in later names.
class SectionReader {
  public:
    SectionReader(profile::ValueReader& values, ProcessRecord& record)
        : values_(values), record_(record), section_(record.Name.View()) {}

    void Read() {
        record_.Rapid = text::ToSingle(Value("Rapid", "1"));
        record_.LineMarkRate = text::ToSingle(Value("LineMarkRate", "1"));
        record_.Leadin = Lead("Leadin");
        if (record_.Leadin.View() == kLeadLine) record_.Angle = Integer("Angle", "0");
        record_.Leadout = Lead("Leadout");
        if (record_.Leadout.View() == kLeadLine)
            record_.Leadoutangle = Integer("Leadoutangle", "0");
        record_.LeadoutPercent = Integer("LeadoutPercent", "0");
        record_.LeadoutOverrun = Integer("LeadoutOverrun", "0");
        record_.MajorDir = Integer("MajorDir", "0");
        record_.MinorDir = Integer("MinorDir", "0");
        record_.MinorOpenKerf = Integer("MinorOpenKerf", "1");
        record_.Extension = Integer("Extension", "0");
        record_.Leadoutextension = Integer("Leadoutextension", "0");
        record_.AddKerf = text::Val(Value("AddKerf", "0")) == 0 ? 0 : 1;
        ReadRows();
    }

  private:
    std::string_view Value(std::string_view key, std::string_view otherwise) {
        return values_.Read(section_, key, otherwise);
    }

    std::string_view Lead(std::string_view key) {
        Value(key, "");
        return values_.Buffer();
    }

    std::int16_t Integer(std::string_view key, std::string_view otherwise) {
        const std::string_view value = Value(key, otherwise);
        const auto number = text::ToInteger16(text::Val(value));
        if (!number) {
            throw errors::FatalError("PROCESS.DAT: " + std::string(key) + "=" + std::string(value) +
                                     " of " + CleanName() + " is outside -32768 to 32767");
        }
        return *number;
    }

    void ReadRows() {
        int k = 0;
        for (;;) {
            const std::string_view value = Value(profile::Numbered("Thickness", k + 1), "");
            if (value.empty()) break;
            if (++k > MaxThicknessRows) {
                throw errors::FatalError("PROCESS.DAT lists more than " +
                                         std::to_string(MaxThicknessRows) + " thicknesses for " +
                                         CleanName());
            }
            record_.Row(k) = ParseRow(value);
        }
        record_.ThicknessCount = static_cast<std::int16_t>(k);
    }

    std::string CleanName() const {
        std::string name(section_);
        return text::CleanText(name);
    }

    profile::ValueReader& values_;
    ProcessRecord& record_;
    std::string_view section_;
};

// The order of the lines, the blanks and the keys that are left out are part of the format.
using text::NumberText;

bool IsLeadCode(std::string_view code) {
    return code == kLeadArc180 || code == kLeadLine || code == kLeadArc90;
}

bool IsDirection(int value) {
    return value == 1 || value == -1;
}

void WriteLeadin(profile::FileLines& file, const ProcessRecord& record) {
    const std::string_view code = record.Leadin.View();
    if (!IsLeadCode(code)) return;
    file.Line("; Default leadin type etc");
    file.Line("Leadin=", code);
    if (code != kLeadLine) return;
    file.Line("; Default leadin angle - zero if missing");
    file.Line("Angle=", NumberText(record.Angle));
}

void WriteRows(profile::FileLines& file, const ProcessRecord& record) {
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

void WriteLeadout(profile::FileLines& file, const ProcessRecord& record) {
    const std::string_view code = record.Leadout.View();
    if (IsLeadCode(code)) file.Line("Leadout=", code);
    if (code == kLeadLine) file.Line("Leadoutangle=", NumberText(record.Leadoutangle));
    if (record.Leadoutextension > 0) {
        file.Line("Leadoutextension=", NumberText(record.Leadoutextension));
    }
}

void WriteProcess(profile::FileLines& file, ProcessRecord& record) {
    file.BlankLine();
    file.Line("[", text::CleanText(record.Name), "]");
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

bool ReadProcessFile() {
    const auto file = profile::LoadDataFile(ProcessFilePath());
    if (file) {
        ReadProcesses(*file, TheProcesses());
    } else {
        TheProcesses().ProcessCount = 0;
    }
    return file.has_value();
}

void ReadProcesses(const profile::Profile& file, ProcessTable& table) {
    profile::ValueReader values(file);
    // The old records are the start: what the file does not tell, they keep.
    auto records = table.Processes;
    std::size_t count = 0;
    while (!values.Read(kListSection, profile::Numbered("Process", static_cast<int>(count) + 1))
                .empty()) {
        if (count == records.size()) FailTooManyProcesses();
        ProcessRecord& record = records[count++];
        record.Name = values.Buffer();
        SectionReader(values, record).Read();
    }
    table.Processes = records;
    table.ProcessCount = static_cast<std::int16_t>(count);
}

bool ReadProcessRanges() {
    const auto file = profile::LoadDataFile(ProcessFilePath());
    if (file) ReadProcessRanges(*file, TheProcesses());
    return file.has_value();
}

void ReadProcessRanges(const profile::Profile& file, ProcessTable& table) {
    profile::ValueReader values(file);
    std::size_t count = 0;
    table.ProcessCount = 0;
    for (;;) {
        const std::string name(
            values.Read(kListSection, profile::Numbered("Process", static_cast<int>(count) + 1)));
        if (name.empty()) break;
        if (count == table.ProcessNames.size()) FailTooManyProcesses();
        // The minimum starts at 0 and only a smaller value replaces it, so it is 0 wherever all
        // thicknesses are positive: the material list is meant to be held to the maximum only.
        float minimum = 0, maximum = 0;
        for (int j = 1;; ++j) {
            const auto value = values.Read(name, profile::Numbered("Thickness", j));
            if (value.empty()) break;
            const float thickness = text::ToSingle(value);
            if (minimum > thickness) {
                minimum = thickness;
            } else {
                maximum = std::max(maximum, thickness);
            }
        }
        table.ProcessNames[count] = name;
        table.ProcessThicknessMin[count] = minimum;
        table.ProcessThicknessMax[count] = maximum;
        table.ProcessCount = static_cast<std::int16_t>(++count);
    }
}

void InitProcessRecord(int destination, int source) {
    ProcessTable& table = TheProcesses();
    ProcessRecord& to = table.Process(destination);
    ProcessRecord record;
    if (source >= 1) {
        record = table.Process(source);
    } else {
        record.Leadin = kLeadLine;
        record.Leadout = kLeadNone;
        record.MajorDir = record.MinorDir = -1;
        record.MinorOpenKerf = 1;
    }
    record.Name = to.Name;
    // Rows that are not in use stay as they are.
    std::copy(to.Rows.begin() + record.ThicknessCount, to.Rows.end(),
              record.Rows.begin() + record.ThicknessCount);
    to = record;
}

std::string ProcessFileText(ProcessTable& table) {
    profile::FileLines file;
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
