// Any bytes as each of the three data files: reading never ends in anything but a table within its
// limits or a refusal, and what is then written, after the windows have shown it, reads back the
// same in all that the format keeps.
#include <fuzzer/FuzzedDataProvider.h>

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "errors/errors.h"
#include "materiallist/material_list_table.h"
#include "materialtypes/material_type_table.h"
#include "process/process_file.h"
#include "process/process_table.h"
#include "profile/profile.h"
#include "text/clean_text.h"
#include "text/numbers.h"
#include "text/strings.h"
#include "views/view_procedures.h"

namespace {

#define REQUIRE(condition) \
    if (!(condition)) std::abort()

using profile::Profile;
using std::string;

// A value that a person would type, or any.
string Value(FuzzedDataProvider& input) {
    constexpr std::string_view kUsual[] = {"Line", "Arc ", "A180", "0", "1", "-1", "2.5", ".5mm"};
    const auto choice = input.ConsumeIntegralInRange<std::size_t>(0, 2 * std::size(kUsual));
    if (choice < std::size(kUsual)) return string(kUsual[choice]);
    return input.ConsumeRandomLengthString(80);
}

// Some of the keys, each with a value.
void AddKeys(FuzzedDataProvider& input, string& file, const std::vector<string>& keys) {
    for (const string& key : keys) {
        if (input.ConsumeBool()) file += "\r\n" + key + "=" + Value(input);
    }
}

// The names are found by hash, which no fuzzer guesses, so that any bytes alone would hardly ever
// be a table: mostly they fill one.
string BytesOf(FuzzedDataProvider& input) {
    if (input.ConsumeIntegralInRange(0, 7) == 0) return input.ConsumeRemainingBytesAsString();
    string names = "[Processes]", types = "\r\n[Materials]", sections;
    const int count = input.ConsumeIntegralInRange(0, 22);
    for (int n = 1; n <= count; ++n) {
        const string number = std::to_string(n);
        const string name =
            input.ConsumeBool() ? "P" + number : input.ConsumeRandomLengthString(70);
        names += "\r\nProcess" + number + "=" + name;
        types += "\r\nMat" + number + "=" + name;
        sections += "\r\n[" + name + "]";
        AddKeys(input, sections,
                {"Rapid", "LineMarkRate", "Leadin", "Angle", "Leadout", "Leadoutangle",
                 "LeadoutPercent", "LeadoutOverrun", "MajorDir", "MinorDir", "MinorOpenKerf",
                 "Extension", "Leadoutextension", "AddKerf", "Description", "Density"});
        const int rows = input.ConsumeIntegralInRange(0, 3);
        for (int k = 1; k <= rows; ++k) {
            const string row = Value(input) + "," + Value(input) + "," + Value(input);
            sections += "\r\nThickness" + std::to_string(k) + "=" + row;
        }
        sections += "\r\n[Mat" + number + "]";
        AddKeys(input, sections, {"Type", "Thickness", "Process"});
    }
    return names + types + sections + "\r\n" + input.ConsumeRemainingBytesAsString();
}

template <std::size_t Width>
string Shown(text::FixedText<Width>& field) {
    const string clean = text::CleanText(field);
    field = clean;
    return string(text::Trim(field.View()));
}

// Quotes around a value are taken off whenever it is read.
bool IsQuoted(std::string_view value) {
    return value.size() >= 2 && (value.front() == '"' || value.front() == '\'') &&
           value.back() == value.front();
}

// Whether the names can all be sections of one file beside its list.
class Names {
  public:
    explicit Names(const string& list) { taken_.insert(text::UpperCase(list)); }
    void Add(const string& name) {
        distinct_ = distinct_ && !name.empty() && !IsQuoted(name) &&
                    taken_.insert(text::UpperCase(name)).second;
    }
    bool AllDistinct() const { return distinct_; }

  private:
    std::set<string> taken_;
    bool distinct_ = true;
};

// What is left of a number after 7 digits were written.
float Kept(float value) {
    REQUIRE(std::isfinite(value));
    return text::ToSingle(text::NumberText(value));
}

void KeepLead(text::FixedText<4>& code, std::int16_t& angle) {
    const bool known = code.View() == process::kLeadLine || code.View() == process::kLeadArc90 ||
                       code.View() == process::kLeadArc180;
    if (!known) code = process::kLeadNone;
    if (code.View() != process::kLeadLine) angle = 0;
}

// The record as the file keeps it, with the texts that the process window makes of it.
string ShowAndKeep(process::ProcessRecord& record) {
    const string name = Shown(record.Name);
    Shown(record.Leadin);
    Shown(record.Leadout);
    KeepLead(record.Leadin, record.Angle);
    KeepLead(record.Leadout, record.Leadoutangle);
    record.Rapid = Kept(record.Rapid);
    record.LineMarkRate = Kept(record.LineMarkRate);
    if (std::abs(record.MajorDir) != 1) record.MajorDir = 0;
    if (std::abs(record.MinorDir) != 1) record.MinorDir = 0;
    if (std::abs(record.MinorOpenKerf) > 1) record.MinorOpenKerf = 1;
    if (record.Extension != 1) record.Extension = 0;
    if (record.Leadoutextension < 0) record.Leadoutextension = 0;
    REQUIRE(record.ThicknessCount >= 0 && record.ThicknessCount <= process::MaxThicknessRows);
    for (int k = 1; k <= record.ThicknessCount; ++k) {
        process::ThicknessRow& row = record.Row(k);
        for (float* value : {&row.PierceTime, &row.Feedrate, &row.DefaultLeadin, &row.NozzleSize}) {
            REQUIRE(*value >= 0);
            *value = Kept(*value);
        }
        row.Thickness = Kept(row.Thickness);
    }
    return name;
}

void CheckProcesses(const Profile& file) {
    process::ProcessTable table;
    try {
        ReadProcesses(file, table);
    } catch (const errors::FatalError&) {
        REQUIRE(table.ProcessCount == 0);
        return;
    }
    REQUIRE(table.ProcessCount >= 0 && table.ProcessCount <= process::MaxProcesses);
    process::ProcessTable ranges;
    ReadProcessRanges(file, ranges);
    REQUIRE(ranges.ProcessCount == table.ProcessCount);
    // First as it comes, with what the read buffer left in the names.
    process::ProcessTable raw = table;
    ProcessFileText(raw);

    Names names("Processes");
    for (int n = 1; n <= table.ProcessCount; ++n) {
        const auto index = static_cast<std::size_t>(n - 1);
        REQUIRE(ranges.ProcessThicknessMin[index] <= 0 && ranges.ProcessThicknessMax[index] >= 0);
        names.Add(ShowAndKeep(table.Process(n)));
    }
    const string written = ProcessFileText(table);
    process::ProcessTable again;
    ReadProcesses(Profile(written), again);
    if (!names.AllDistinct()) return;
    REQUIRE(again.ProcessCount == table.ProcessCount);
    for (int n = 1; n <= again.ProcessCount; ++n) ShowAndKeep(again.Process(n));
    REQUIRE(again.Processes == table.Processes);
    REQUIRE(ProcessFileText(again) == written);
}

void CheckMaterialTypes(const Profile& file) {
    materialtypes::MaterialTypeTable table;
    try {
        ReadMaterialTypes(file, table);
    } catch (const errors::FatalError&) {
        REQUIRE(table.Count == 0);
        return;
    }
    REQUIRE(table.Count >= 0 && table.Count <= materialtypes::MaxMaterialTypes);
    materialtypes::MaterialTypeTable codes;
    ReadMaterialTypeCodes(file, codes);
    REQUIRE(codes.Count == table.Count);
    materialtypes::MaterialTypeTable raw = table;
    MaterialTypesText(raw);

    Names names("Materials");
    bool quoted = false;
    const auto show = [&](materialtypes::MaterialTypeRecord& record) {
        record.Density = Kept(record.Density);
        quoted = quoted || IsQuoted(Shown(record.Description));
        return Shown(record.Code);
    };
    for (int n = 1; n <= table.Count; ++n) names.Add(show(table.Record(n)));
    materialtypes::MaterialTypeTable again;
    const string written = MaterialTypesText(table);
    ReadMaterialTypes(Profile(written), again);
    if (!names.AllDistinct() || quoted) return;
    REQUIRE(again.Count == table.Count);
    for (int n = 1; n <= again.Count; ++n) show(again.Record(n));
    REQUIRE(again.Records == table.Records);
    REQUIRE(MaterialTypesText(again) == written);
}

void CheckMaterialList(const Profile& file) {
    materiallist::MaterialListTable table;
    const bool fits = ReadMaterialList(file, table) != profile::ReadResult::kTooBig;
    REQUIRE(table.EntryCount >= 0 && table.EntryCount <= materiallist::MaxMaterialListEntries);
    REQUIRE(fits == (table.EntryCount < materiallist::MaxMaterialListEntries));
    MaterialListText(table, materiallist::kSystemDefaults);
    bool plain = true;
    for (int i = 1; i <= table.EntryCount; ++i) {
        auto& entry = table.Entry(i);
        const string type = Shown(entry.MaterialType);
        plain = plain && !type.empty() && !IsQuoted(type) && !IsQuoted(Shown(entry.ProcessName));
        entry.Thickness = entry.Thickness < 0 ? 0 : Kept(entry.Thickness);
    }
    materiallist::MaterialListTable again;
    const string written = MaterialListText(table, materiallist::kExistingDirectory);
    const bool fitsAgain =
        ReadMaterialList(Profile(written), again) != profile::ReadResult::kTooBig;
    if (!plain) return;
    REQUIRE(fitsAgain == fits);
    REQUIRE(again.EntryCount == table.EntryCount);
    for (int i = 1; i <= table.EntryCount; ++i) REQUIRE(again.Entry(i) == table.Entry(i));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider input(data, size);
    const Profile file(BytesOf(input));
    CheckProcesses(file);
    CheckMaterialTypes(file);
    CheckMaterialList(file);
    return 0;
}
