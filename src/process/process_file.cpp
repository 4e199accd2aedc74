#include "process/process_file.h"

#include <algorithm>
#include <utility>

#include "platform/errors.h"
#include "process/process_table.h"
#include "profile/data_file.h"
#include "text/numbers.h"
#include "views/view_procedures.h"

namespace process {
namespace {

constexpr std::string_view kListSection = "Processes";

std::string_view NextField(std::string_view& text) {
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
    row.Thickness = text::ToSingle(text::Val(value));
    for (float* field : {&row.PierceTime, &row.Feedrate, &row.DefaultLeadin, &row.NozzleSize}) {
        value = NextField(value);
        *field = text::ToSingle(text::Val(value));
    }
    return row;
}

[[noreturn]] void FailTooManyProcesses() {
    throw platform::FatalError("PROCESS.DAT lists more than " + std::to_string(MaxProcesses) +
                               " processes");
}

// Reads the section of one process into its record, every value through the shared buffer in the
// order of the reads: what they leave there shows in the lead codes and in later names.
class SectionReader {
  public:
    SectionReader(profile::ValueReader& values, ProcessRecord& record)
        : values_(values), record_(record), section_(record.Name.View()) {}

    void Read() {
        record_.Rapid = text::ToSingle(text::Val(Value("Rapid", "1")));
        record_.LineMarkRate = text::ToSingle(text::Val(Value("LineMarkRate", "1")));
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
            throw platform::FatalError("PROCESS.DAT: " + std::string(key) + "=" +
                                       std::string(value) + " of " + CleanName() +
                                       " is outside -32768 to 32767");
        }
        return *number;
    }

    void ReadRows() {
        int k = 0;
        for (;;) {
            const std::string_view value = Value(profile::Numbered("Thickness", k + 1), "");
            if (value.empty()) break;
            if (++k > MaxThicknessRows) {
                throw platform::FatalError("PROCESS.DAT lists more than " +
                                           std::to_string(MaxThicknessRows) + " thicknesses for " +
                                           CleanName());
            }
            record_.Row(k) = ParseRow(value);
        }
        record_.ThicknessCount = static_cast<std::int16_t>(k);
    }

    std::string CleanName() const {
        std::string name(section_);
        return views::CleanText(name);
    }

    profile::ValueReader& values_;
    ProcessRecord& record_;
    std::string_view section_;
};

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
            const float thickness = text::ToSingle(text::Val(value));
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

std::string NextNumberField(std::string& text) {
    std::string_view rest = text;
    std::string field(NextField(rest));
    text = std::string(rest);
    return field;
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

}  // namespace process
